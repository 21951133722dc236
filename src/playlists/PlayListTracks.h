// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Services.h"
#include "lists/PlayListStore.h"
#include "playlists/TrackRows.h"

namespace quaverly {

class DataControl;
class Preview;

/** What the commands on a list's tracks work with. All of it outlives them. */
struct PlayListTracksParts
{
    Services services;
    PlayListStore &lists;
    /** The songs that the main screen shows. */
    DataControl &displayed;
};

/** What came of storing the order on the screen. */
enum class OrderKept {
    Yes,
    /** But the list's songs are other ones than those on the screen: they are to be loaded again. */
    WithOtherSongs,
    /** The old order stands. That was told, and the screen closes. */
    No,
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

    /** cmdOK: the grid's current song. False when the list or the song is gone. */
    bool addCurrentSong(const PlayListName &list);
    /** mnuAddAllSongs: how many songs were added; nothing when the user did not want that. */
    std::optional<qint64> addAllSongs(const PlayListName &list);
    /** mnuEditDeleteSong; the rows are to be loaded again. */
    void deleteSong(int row) { m_parts.lists.deleteTrack(m_listId, m_rows.key(row)); }

    /** Stores the loaded list's tracks in the order of the rows. */
    [[nodiscard]] OrderKept ReOrderTracksAfterDrag();

private:
    /** False when it was told that the list has been deleted. */
    [[nodiscard]] bool isThere(const PlayListName &list);
    [[nodiscard]] qint64 countDisplayed() const;
    [[nodiscard]] bool mayAdd(qint64 songs, const std::function<Preview &()> &preview);
    [[nodiscard]] QList<Track> displayedTracks() const;

    PlayListTracksParts m_parts;
    TrackRows m_rows;
    qint64 m_listId = 0;
};

/** The statement that counts the songs of a displayed set. */
[[nodiscard]] QString countStatement(const QString &recordSource);

} // namespace quaverly
