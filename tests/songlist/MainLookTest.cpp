// SPDX-License-Identifier: GPL-3.0-or-later
#include "songlist/MainLook.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace quaverly;

namespace {

using enum MainControl;
using Kinds = QList<ListKind>;

/** The kinds that are shown one after the other, from all songs on, and the look of the last one. */
struct LookCase
{
    Kinds kinds;
    QString lblCategory;
    /** Empty while it is hidden. */
    QString lblFilterMsg;
    QString artistButton = u"Show all songs by A && B"_s;
    MainControls disabled{};
};

ListView viewOf(ListKind kind)
{
    ListView view{.kind = kind, .text = u"x"_s};
    if (kind == ListKind::Category)
        view.category = {3, u"Jazz"_s};
    return view;
}

TEST(MainLook, FollowsFromWhatTheListShowsAndShowedBefore)
{
    using enum ListKind;
    const QString back = u"Return from artist filter"_s;
    const QString songs = u"Show all songs by A && B"_s;
    const MainControls composing = File | AddMenu | FindEditMenu | cmdShowArtistSongs | cmdFilter | cmdFind |
                                   cmbSort | cmdSortSong | cmdSortArtist;
    const QString filter = u"Filter is limiting records displayed."_s;
    const QString invalid = u"Records with invalid path/file names"_s;
    const QString selected = u"Showing selected records only."_s;
    const QString hiding = u"Hiding selected records."_s;
    const LookCase cases[] = {
        {{AllSongs}, {}, {}},
        {{Category}, u"Jazz"_s, {}},
        {{Filter}, {}, filter},
        {{Category, Filter}, u"Jazz"_s, filter},
        {{Find}, u"Records containing x"_s, {}, songs, cmdAdd},
        {{Category, Find, Filter}, {}, filter, songs, cmdAdd},
        {{Find, Category}, u"Jazz"_s, {}},
        {{Category, Artist}, {}, {}, back, cmdAdd},
        {{Artist, Returning}, {}, {}, u"Returning"_s, cmdAdd},
        {{Artist, Returning, Unnamed}, {}, {}, songs, cmdAdd},
        {{Artist, SelectedOnly}, {}, selected, back, cmdAdd},
        {{Artist, InvalidFiles}, {}, invalid, back, cmdAdd},
        {{Artist, PlayList}, {}, u"PlayList:x"_s, songs, cmdAdd},
        {{Category, PlayList}, {}, u"PlayList:x"_s},
        {{Category, InvalidFiles}, {}, invalid, songs, cmdAdd},
        {{Findings}, {}, u"x"_s, songs, cmdAdd},
        {{Category, SelectedOnly}, {}, selected, songs, cmdAdd},
        {{Category, HidingSelected}, u"Jazz"_s, hiding},
        {{Find, HidingSelected}, {}, hiding, songs, cmdAdd},
        {{Category, Unnamed}, {}, {}},
        {{Duplicates}, u"x"_s, {}, songs, composing | cmdAdd},
        {{Duplicates, SelectedOnly}, {}, selected, songs, composing | cmdAdd},
        {{Duplicates, AllSongs}, {}, {}},
    };
    for (const LookCase &expected : cases) {
        ListView view;
        for (const ListKind kind : expected.kinds)
            view = viewAfter(view, viewOf(kind));
        const MainLook look = lookOf(view, {.hasRows = true, .artist = u"A & B"_s, .SelectedCount = 1});
        SCOPED_TRACE(static_cast<int>(&expected - cases));
        EXPECT_EQ(look.lblCategory, expected.lblCategory);
        EXPECT_EQ(look.shown.testFlag(lblFilterMsg) ? look.lblFilterMsg : QString(), expected.lblFilterMsg);
        EXPECT_EQ(look.cmdShowArtistSongs, expected.artistButton);
        EXPECT_EQ(look.enabled.toInt(), (AllMainControls & ~expected.disabled).toInt());
        EXPECT_EQ(look.shown.testFlag(cmdShowSelected), view.kind != SelectedOnly);
    }
    const ListView narrowed = viewAfter(viewAfter({}, viewOf(Category)), viewOf(InvalidFiles));
    EXPECT_EQ(narrowed.category.number, 3) << "invalid files are looked for within the category";
}

TEST(MainLook, FollowsFromTheRowsTheMarksAndTheEditor)
{
    const MainLook empty = lookOf({.kind = ListKind::Artist, .leadsBack = true}, {});
    EXPECT_EQ((AllMainControls & ~empty.enabled).toInt(), (cmdPlay | cmdPlayAll).toInt());
    EXPECT_EQ((AllMainControls & ~empty.shown).toInt(),
              (lblFilterMsg | cmdShowSelected | cmdShowArtistSongs).toInt());
    EXPECT_FALSE(lookOf({}, {.hasRows = true, .artist = u" "_s}).shown.testFlag(cmdShowArtistSongs));
    const ListView marked{.kind = ListKind::SelectedOnly, .areMarksChanged = true};
    EXPECT_TRUE(lookOf(marked, {.SelectedCount = 2}).shown.testFlag(cmdShowSelected));
    const MainLook adding = lookOf({}, {.hasRows = true, .isAdding = true});
    EXPECT_EQ((AllMainControls & ~adding.enabled).toInt(), (cmdAdd | cmdEdit | cmdDelete | cmdExit).toInt());
    EXPECT_EQ(lookOf({}, {.soughtText = u"abba"_s}).lblCategory, u"Searching for \"abba\"..."_s);
}

} // namespace
