// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "lists/PlayListStore.h"

namespace quaverly {

class Desktop;
class SongQueue;
struct PlayerState;

/** What came of an add of one song. */
enum class SongAdded {
    Yes,
    /** Refused, and the user was told why. */
    No,
    /** Told to choose a list first: the box with the lists gets the focus and opens. */
    ChooseList,
};

/** Adding one song to a play list, from wherever it is shown. Every operation may throw dao::DaoError. */
class AddToPlayList final
{
public:
    enum class From { NameList, NameEdit };

    AddToPlayList(Desktop &desktop, PlayerState &state, PlayListStore &store);

    /** @p song's current row, to the remembered current list, which there must be. */
    SongAdded AddSongToCurrentList(From from, const dao::Recordset &song);

    /** The editor's way: without a remembered list the user is told to choose one. */
    SongAdded addFromEditor(const dao::Recordset &song);

    /** The player's: its row @p song with the file @p url, to the list of that name. */
    SongAdded addFromPlayer(const QString &listName, const QString &song, const QString &url);

    /** The player's whole list as a new play list, whose name is asked for; its name, or nothing. */
    [[nodiscard]] QString saveFromPlayer(const SongQueue &queue);

    /** Removes all tracks with that file from the list whose songs the player plays. */
    void deleteFromPlayer(const QString &url);

private:
    SongAdded tellNoList();
    [[nodiscard]] Track trackOf(const QString &song, const QString &url) const;
    [[nodiscard]] bool hasFile(From from, const dao::Recordset &song);

    Desktop &m_desktop;
    PlayerState &m_state;
    PlayListStore &m_store;
};

} // namespace quaverly
