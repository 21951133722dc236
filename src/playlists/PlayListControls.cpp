// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlists/PlayListControls.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

using enum PlayListControl;

constexpr PlayListControls NeedsTracks =
    mnuFileMakePlayListFile | cmdPlay | cmdPlay1 | mnuFileCopyMusic | mnuFileDisplayOnly;
constexpr PlayListControls NeedsSong = NeedsTracks | mnuEditDeleteSong | mnuEditEditSong;
constexpr PlayListControls NeedsList =
    mnuEditDelete | mnuEditPlayList | mnuAddAllSongs | mnuFileDisplayOnly | mnuFilePopulate;

QString pressAdd()
{
    return u"Press the Add Song button to add this song, or choose another play list."_s;
}

void headersLoaded(const PlayListState &state, PlayListLook &look)
{
    if (state.hasLists) {
        look.enabled |= cmdOK;
        return;
    }
    look.enabled &= ~(NeedsTracks | mnuEditDelete | mnuEditPlayList | cmdOK | mnuFilePopulate);
    look.lblMsg = u"There are no play lists.  You must create a new one before you can add songs to it."_s;
    look.shown &= ~PlayListControls(lblSongTitle);
}

void screenLoaded(const PlayListState &state, PlayListLook &look)
{
    if (state.isListChosen) {
        look.lblMsg = state.AddingFromGrid ? pressAdd() : QString();
        look.enabled |= NeedsList | cmdOK;
        look.shown |= lblSongTitle;
    } else {
        look.lblMsg = state.hasLists ? u"Select a play list."_s
                                     : u"There are no play lists.  Click the Add New Play List button."_s;
        look.enabled &= ~(NeedsList | cmdOK | mnuEditAddSong);
        look.shown &= ~PlayListControls(lblSongTitle);
    }
    look.shown.setFlag(lblInstructions, state.hasLists && !state.isListChosen);
    if (!state.AddingFromGrid)
        look.enabled &= ~PlayListControls(cmdOK);
    if (state.isFirstRowEmpty)
        look.enabled &= ~NeedsSong;
    if (!state.displaysSongs)
        look.enabled &= ~PlayListControls(mnuAddAllSongs);
}

void listChosen(const PlayListState &state, PlayListLook &look)
{
    look.enabled |= mnuEditDelete | mnuEditPlayList | mnuFileDisplayOnly | mnuFilePopulate | mnuEditAddSong;
    look.enabled.setFlag(cmdOK, state.songWaits);
    look.enabled.setFlag(mnuAddAllSongs, state.displaysSongs);
    look.shown.setFlag(lblInstructions, false);
    look.shown.setFlag(cmdOK, state.songWaits);
    look.shown.setFlag(lblSongTitle, state.songWaits);
    look.lblMsg = state.songWaits
                      ? pressAdd()
                      : u"Add Songs by selecting them from previous screen using the Right mouse button."_s;
    if (state.isFirstRowEmpty)
        look.enabled &= ~NeedsSong;
    else
        look.enabled |= mnuEditDeleteSong | mnuEditEditSong | mnuFileDisplayOnly;
}

} // namespace

PlayListLook lookAfter(const PlayListState &state, PlayListLook look)
{
    switch (state.event) {
    case PlayListEvent::HeadersLoaded:
        headersLoaded(state, look);
        break;
    case PlayListEvent::ScreenLoaded:
        screenLoaded(state, look);
        break;
    case PlayListEvent::TracksLoaded:
        look.enabled = state.hasTracks ? look.enabled | NeedsTracks : look.enabled & ~NeedsTracks;
        if (!state.isFirstRowEmpty)
            look.enabled |= mnuEditDeleteSong | mnuEditEditSong | mnuFilePopulate;
        break;
    case PlayListEvent::ListChosen:
        listChosen(state, look);
        break;
    case PlayListEvent::SongChosen:
        look.enabled |= mnuEditEditSong;
        break;
    case PlayListEvent::SongAdded:
        look.lblMsg = u"Song was added to Play List."_s;
        look.shown &= ~PlayListControls(cmdOK);
        break;
    case PlayListEvent::AllSongsAdded:
        look.lblMsg = QString::number(state.songsAdded) + u" songs were added to Play List."_s;
        break;
    case PlayListEvent::SongDeleted:
        if (!state.hasTracks)
            look.enabled &= ~(NeedsSong | mnuFilePopulate);
        break;
    case PlayListEvent::ListDeleted:
        look.enabled &=
            ~(NeedsSong | cmdOK | mnuEditAddSong | mnuEditDelete | mnuEditPlayList | mnuFilePopulate);
        break;
    }
    return look;
}

bool hasDragSupport(const QString &programFolder)
{
    return !programFolder.contains("source"_L1, Qt::CaseInsensitive);
}

} // namespace quaverly
