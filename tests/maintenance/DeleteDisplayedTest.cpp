// SPDX-License-Identifier: GPL-3.0-or-later
#include "MaintenanceFixture.h"

#include "catalogue/DuplicateQueries.h"

#include <QSet>

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

using DeletingDisplayed = Maintenance;
using Text = const QString &;

/** What a user does to come to a list; some of it with the text that follows the word. */
const QMap<QString, void (*)(Maintenance &, Text)> Steps{
    {u"startWithCategory"_s,
     [](Maintenance &m, Text) {
         m.store.settings().storeCategoryStartupBox(-1);
         m.store.settings().storeCategory(u"Jazz"_s, u" CategoryNumber = 1 "_s);
         m.set.openAtLoad();
     }},
    {u"category"_s, [](Maintenance &m, Text) { m.set.categoryChosen(1, u"Jazz"_s); }},
    {u"filter"_s, [](Maintenance &m, Text criteria) { m.set.filterApplied(criteria); }},
    {u"filterMisses"_s,
     [](Maintenance &m, Text criteria) {
         m.set.rememberSourceForFilter();
         m.desktop.willSee(u"No records found"_s);
         m.set.filterApplied(criteria);
     }},
    {u"find"_s, [](Maintenance &m, Text text) { m.set.find(text); }},
    {u"artistOf"_s,
     [](Maintenance &m, Text song) {
         m.data().Recordset().FindFirst(u"SongName = '"_s + song + u'\'');
         m.set.cmdShowArtistSongs_Click();
     }},
    {u"mark"_s, [](Maintenance &m, Text song) { m.mark(song.toLongLong()); }},
    {u"selected"_s, [](Maintenance &m, Text) { m.set.ShowSelectedOnlyMenu_Click(); }},
    {u"hide"_s, [](Maintenance &m, Text) { m.set.HideSelectedMenu_Click(); }},
    {u"invalid"_s, [](Maintenance &m, Text) { m.set.invalidFileView(); }},
    {u"playList"_s, [](Maintenance &m, Text) { m.set.playListView(m.list, u"Party"_s); }},
    {u"sort"_s, [](Maintenance &m, Text order) { m.set.applySort(order); }},
    {u"view"_s, [](Maintenance &m, Text query) { m.set.duplicateView(query); }},
};

/** How many of the ten songs a list shows, and the way there. */
using View = std::pair<int, const char *>;

class DisplayedIn : public DeletingDisplayed, public ::testing::WithParamInterface<View>
{
protected:
    void SetUp() override
    {
        Maintenance::SetUp();
        // Duplicates by size and by album; a song's own ID is the key of another one of its category.
        for (int i = 0; i < 3; ++i)
            store.addSong(
                Song(u"Twin"_s, u"Pair"_s).with(u"FileSize"_s, u"4 MB"_s).with(u"AlbumName"_s, u"A"_s));
        store.db().Execute(u"Update tblContacts Set ID = '3' Where RecordID = 1"_s);
        store.addCategory(u"Both"_s, {queen});
        for (const int song : {2, 3})
            store.addRow(u"tblOrphanFileNames"_s, {{u"RecordIdOrphan"_s, song}});
        ensureDuplicateQueries(store.db());
        set.ShowAllMenu_Click();
    }
};

TEST_P(DisplayedIn, DeletesTheSongsThatAreShownAndNoOthers)
{
    const QStringList before = songs();
    ASSERT_EQ(before.size(), 10);
    for (const QString &step : QString::fromLatin1(GetParam().second).split(u'|', Qt::SkipEmptyParts))
        Steps[step.section(u' ', 0, 0)](*this, step.section(u' ', 1));
    const int announced = GetParam().first;
    const QString records = announced == 1 ? u"1 record"_s : u"%1 records"_s.arg(announced);
    QStringList gone;
    desktop.willAnswer(Answer::Yes, u"DELETE the "_s + records + u" currently"_s).meanwhile([&] {
        EXPECT_EQ(rows(), announced) << "what is announced is on the grid";
        gone = shown();
    });
    desktop.willAnswer(Answer::Yes, u"About to DELETE "_s + records + u'.')
        .willSee(u"choose Restore From Backup"_s);

    many.mnuDeleteDisplayed_Click();

    const QStringList left = songs();
    EXPECT_EQ(QSet(before.begin(), before.end()) - QSet(left.begin(), left.end()),
              QSet(gone.begin(), gone.end()));
    EXPECT_EQ(backups, 1);
    EXPECT_EQ(screen.lblFilterMsg() + screen.cmdShowArtistSongs(), QString());
    EXPECT_TRUE(screen.isEnabled(MainControl::cmdAdd));
    EXPECT_EQ(rows(), 0) << data().RecordSource().toStdString();
}

const View Views[] = {
    {10, ""},
    {2, "category"},
    {2, "startWithCategory"},
    {2, "filter Artist = \"abba\" order by SongName desc"},
    {1, "filter SongName Like '*by m*'"},
    {1, "category|filter Artist = \"abba\""},
    {1, "category|filter ID = '3'"},
    {2, "category|filterMisses Artist = 'nobody'"},
    {2, "find abba"},
    {1, "find order by"},
    {2, "artistOf SOS"},
    {1, "artistOf Order By Mail"},
    {10, "artistOf SOS|artistOf SOS"},
    {1, "mark 1|selected"},
    {1, "mark 1|mark 2|selected|mark 2"},
    {9, "mark 1|hide"},
    {1, "mark 1|category|hide"},
    {2, "invalid"},
    {1, "category|invalid"},
    {1, "mark 2|invalid|hide"},
    {2, "playList|sort Album Name"},
    {1, "mark 2|playList|hide"},
    {3, "view qryDuplicateSongs"},
    {2, "view qryShowDuplicatesToBeDeleted"},
    {2, "view qryShowDuplicatesToBeDeletedAlbum"},
};

INSTANTIATE_TEST_SUITE_P(Views, DisplayedIn, ::testing::ValuesIn(Views));

TEST_F(DeletingDisplayed, StopsAtEveryNoAndWithoutABackupAndEndsTheSelectionThatItShowed)
{
    mark(queen);
    set.ShowSelectedOnlyMenu_Click();
    backupWorks = false;
    for (int yeses = 0; yeses < 3; ++yeses) {
        for (int i = 0; i < yeses; ++i)
            desktop.willAnswer(Answer::Yes);
        if (yeses < 2)
            desktop.willAnswer(Answer::No);
        many.mnuDeleteDisplayed_Click();
        EXPECT_EQ(desktop.lastCall().defaultAnswer, Answer::No);
        EXPECT_EQ(songs().size(), 7);
        EXPECT_EQ(backups, yeses / 2);
    }
    EXPECT_EQ(set.SelectedCount(), 1);
    backupWorks = true;
    desktop.willAnswer(Answer::Yes).willAnswer(Answer::Yes).willSee();
    many.mnuDeleteDisplayed_Click();
    EXPECT_EQ(set.SelectedCount(), 0);
    EXPECT_EQ(set.texts().ListSelectionClause, QString());
    EXPECT_FALSE(screen.isVisible(MainControl::cmdShowSelected));
}

} // namespace
