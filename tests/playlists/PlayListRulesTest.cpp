// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlists/PlayListControls.h"
#include "playlists/PlayListTracks.h"
#include "support/QtPrinters.h"

#include <QStringList>

using namespace Qt::StringLiterals;
using namespace quaverly;

namespace {

using enum PlayListControl;
using enum PlayListEvent;

constexpr PlayListControls Five =
    mnuFileMakePlayListFile | cmdPlay | cmdPlay1 | mnuFileCopyMusic | mnuFileDisplayOnly;
constexpr PlayListControls Seven = Five | mnuEditDeleteSong | mnuEditEditSong;
constexpr PlayListControls All = AllPlayListControls;
constexpr PlayListControls None;

TEST(PlayListRules, FollowWhatHappened)
{
    struct Case
    {
        const char *what;
        PlayListState state;
        PlayListControls before;
        PlayListControls enabled;
        PlayListControls hidden;
        QString lblMsg;
    };
    const QString kept = u"as before"_s;
    const QString press = u"Press the Add Song button to add this song, or choose another play list."_s;
    const PlayListControls ofList = mnuEditDelete | mnuEditPlayList | mnuFilePopulate | mnuEditAddSong;
    const Case cases[] = {
        {"no lists",
         {.event = HeadersLoaded},
         All,
         All & ~(Five | mnuEditDelete | mnuEditPlayList | cmdOK | mnuFilePopulate),
         lblSongTitle,
         u"There are no play lists.  You must create a new one before you can add songs to it."_s},
        {"load, none remembered",
         {.event = ScreenLoaded, .hasLists = true, .displaysSongs = true},
         All,
         All & ~(Seven | ofList | mnuAddAllSongs | cmdOK),
         lblSongTitle,
         u"Select a play list."_s},
        {"load to add a song",
         {.event = ScreenLoaded,
          .hasLists = true,
          .isListChosen = true,
          .isFirstRowEmpty = false,
          .displaysSongs = true,
          .AddingFromGrid = true},
         mnuEditAddSong | Seven,
         mnuEditAddSong | Seven | ofList | mnuAddAllSongs | cmdOK,
         lblInstructions,
         press},
        {"load, remembered",
         {.event = ScreenLoaded, .hasLists = true, .isListChosen = true, .isFirstRowEmpty = false},
         Seven,
         Seven | mnuEditDelete | mnuEditPlayList | mnuFilePopulate,
         lblInstructions,
         {}},
        {"a list, a song waits",
         {.event = ListChosen, .isFirstRowEmpty = false, .displaysSongs = true, .songWaits = true},
         Five,
         Seven | ofList | mnuAddAllSongs | cmdOK,
         lblInstructions,
         press},
        {"a list, no song waits",
         {.event = ListChosen, .isFirstRowEmpty = false},
         All,
         All & ~(mnuAddAllSongs | cmdOK),
         lblInstructions | cmdOK | lblSongTitle,
         u"Add Songs by selecting them from previous screen using the Right mouse button."_s},
        {"an empty list",
         {.event = ListChosen, .displaysSongs = true, .songWaits = true},
         All,
         All & ~Seven,
         lblInstructions,
         press},
        {"a song was added", {.event = SongAdded}, cmdOK, cmdOK, cmdOK, u"Song was added to Play List."_s},
        {"songs are loaded",
         {.event = TracksLoaded, .hasTracks = true, .isFirstRowEmpty = false},
         None,
         Seven | mnuFilePopulate,
         None,
         kept},
        {"songs are loaded, the first shows nothing",
         {.event = TracksLoaded, .hasTracks = true},
         None,
         Five,
         None,
         kept},
        {"the last song is deleted",
         {.event = SongDeleted},
         All,
         All & ~(Seven | mnuFilePopulate),
         None,
         kept},
        {"the list is deleted", {.event = ListDeleted}, All, All & ~(Seven | ofList | cmdOK), None, kept},
    };
    for (const Case &each : cases) {
        const PlayListLook look = lookAfter(each.state, {each.before, All, kept});
        EXPECT_EQ(look.enabled.toInt(), each.enabled.toInt()) << each.what;
        EXPECT_EQ(look.shown.toInt(), (All & ~each.hidden).toInt()) << each.what;
        EXPECT_EQ(look.lblMsg, each.lblMsg) << each.what;
    }
}

TEST(PlayListRules, DragUnlessTheProgramStandsWithItsSources)
{
    EXPECT_TRUE(hasDragSupport(u"/usr/bin"_s));
    EXPECT_FALSE(hasDragSupport(u"/home/a/Sources/bin"_s));
}

TEST(PlayListRules, CountWhatIsDisplayed)
{
    EXPECT_EQ(countStatement(u"Select DISTINCTROW * from  tblContacts Where a=1 order By b"_s),
              u"Select Count(*) as RowCount from  tblContacts Where a=1 "_s);
    EXPECT_EQ(countStatement(u"qryDuplicateSongs"_s),
              u"Select Count(*) as RowCount From qryDuplicateSongs"_s);
}

} // namespace
