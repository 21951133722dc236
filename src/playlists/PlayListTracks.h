// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "player/PlayListStore.h"
#include "playlists/TrackRows.h"

namespace quaverly {

class DataControl;
class Desktop;

/** What the commands on a list's tracks work with. All of it outlives them. */
struct PlayListTracksParts
{
    Desktop &desktop;
    Catalogue &catalogue;
    PlayListStore &lists;
    /** The songs that the main screen shows. */
    DataControl &displayed;
};

/**
 * The tracks of the chosen list, in the store and as the rows of lbDetail. Lists are told by their ListID.
 * Every operation may throw dao::DaoError.
 */
class PlayListTracks final
{
public:
    explicit PlayListTracks(PlayListTracksParts parts);

    [[nodiscard]] TrackRows &rows() { return m_rows; }
    [[nodiscard]] const TrackRows &rows() const { return m_rows; }

    /** False for a list without tracks. */
    bool LoadDetailListbox(qint64 listId);

    /** cmdOK: the grid's current song, numbered by the rows. False when the list or the song is gone. */
    bool addCurrentSong(const PlayListName &list);
    /** mnuAddAllSongs: how many songs were added; nothing when the user did not want that. */
    std::optional<qint64> addAllSongs(const PlayListName &list);
    /** mnuEditDeleteSong; the rows are read again. */
    void deleteSong(qint64 listId, int row);

    /** False when it failed: that was told, and the screen closes. */
    [[nodiscard]] bool ReOrderTracksAfterDrag(qint64 listId);

private:
    /** False when it was told that the list has been deleted. */
    [[nodiscard]] bool isThere(const PlayListName &list);
    [[nodiscard]] qint64 countDisplayed() const;
    [[nodiscard]] bool mayAdd(qint64 songs);
    [[nodiscard]] bool failReorder(int number, const QString &description);

    PlayListTracksParts m_parts;
    TrackRows m_rows;
};

/** The statement that counts the songs of a displayed set. */
[[nodiscard]] QString countStatement(const QString &recordSource);

} // namespace quaverly
