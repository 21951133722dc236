// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFlags>
#include <QString>

/** Which commands of the play lists screen can be used: a function from what is the case. */
namespace quaverly {

enum class PlayListControl {
    mnuFileCopyMusic = 1 << 0,
    mnuFileMakePlayListFile = 1 << 1,
    mnuFileDisplayOnly = 1 << 2,
    mnuFilePopulate = 1 << 3,
    mnuAddAllSongs = 1 << 4,
    mnuEditAddSong = 1 << 5,
    mnuEditDeleteSong = 1 << 6,
    mnuEditEditSong = 1 << 7,
    mnuEditDelete = 1 << 8,
    mnuEditPlayList = 1 << 9,
    cmdOK = 1 << 10,
    cmdPlay = 1 << 11,
    cmdPlay1 = 1 << 12,
    lblSongTitle = 1 << 13,
    lblInstructions = 1 << 14,
};
Q_DECLARE_FLAGS(PlayListControls, PlayListControl)
Q_DECLARE_OPERATORS_FOR_FLAGS(PlayListControls)

/** All that the rules speak of. */
inline constexpr PlayListControls AllPlayListControls = PlayListControls((1 << 15) - 1);

enum class PlayListEvent {
    /** LoadHeaderCombo. */
    HeadersLoaded,
    /** The end of the screen's load. */
    ScreenLoaded,
    /** LoadDetailListbox. */
    TracksLoaded,
    /** A list was chosen in cmbHeader, its tracks are loaded. */
    ListChosen,
    /** A row with a text was chosen in lbDetail. */
    SongChosen,
    SongAdded,
    AllSongsAdded,
    SongDeleted,
    ListDeleted,
};

/** What is the case when something has happened. */
struct PlayListState
{
    PlayListEvent event = PlayListEvent::ScreenLoaded;
    bool hasLists = false;
    bool isListChosen = false;
    /** The store has tracks of the list. */
    bool hasTracks = false;
    /** The first row of lbDetail shows nothing. */
    bool isFirstRowEmpty = true;
    /** The main screen shows songs. */
    bool displaysSongs = false;
    /** The screen was opened to add the grid's song. */
    bool AddingFromGrid = false;
    /** lblSongTitle has a text. */
    bool songWaits = false;
    /** By AllSongsAdded. */
    qint64 songsAdded = 0;
};

/** What the screen offers. Labels are always enabled, menu entries and most buttons always shown. */
struct PlayListLook
{
    PlayListControls enabled = AllPlayListControls;
    PlayListControls shown = AllPlayListControls;
    QString lblMsg{};

    bool operator==(const PlayListLook &) const = default;
};

/**
 * The look after @p state.event. What the event says nothing about stays as in @p before: after a list was
 * deleted, for one, all displayed songs may be added, to nothing.
 */
[[nodiscard]] PlayListLook lookAfter(const PlayListState &state, PlayListLook before);

/** Whether songs can be dragged. A program in a folder with "source" in its path does without; that is meant.
 */
[[nodiscard]] bool hasDragSupport(const QString &programFolder);

} // namespace quaverly
