// SPDX-License-Identifier: GPL-3.0-or-later
#include "MaintenanceFixture.h"

#include "catalogue/DuplicateQueries.h"
#include "maintenance/MaintenanceCommands.h"

#include <QFile>
#include <QSet>

#include <ostream>

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

/** A way to come to a list, and how many of the ten songs it shows. */
struct View
{
    const char *name;
    int shown;
    void (*act)(Maintenance &);
};

void PrintTo(const View &view, std::ostream *out)
{
    *out << view.name;
}

class DisplayedIn : public Maintenance, public ::testing::WithParamInterface<View>
{
protected:
    void SetUp() override
    {
        Maintenance::SetUp();
        // Duplicates by size and by album; and a song's own ID that is the key of another one of its
        // category.
        for (int i = 0; i < 3; ++i)
            store.addSong(
                Song(u"Twin"_s, u"Pair"_s).with(u"FileSize"_s, u"4 MB"_s).with(u"AlbumName"_s, u"A"_s));
        store.db().Execute(u"Update tblContacts Set ID = '3' Where RecordID = 1"_s);
        store.addCategory(u"Both"_s, {queen});
        store.addRow(u"tblOrphanFileNames"_s, {{u"RecordIdOrphan"_s, 2}});
        store.addRow(u"tblOrphanFileNames"_s, {{u"RecordIdOrphan"_s, 3}});
        set.showAll();
    }
    QSet<QString> displayed()
    {
        QSet<QString> keys;
        for (qint64 row = 0; row < rows(); ++row)
            keys.insert(QString::number(data().Recordset().bookmarkAt(row).key));
        return keys;
    }

    MaintenanceCommands commands{parts, [] {}, [] {}};
};

TEST_P(DisplayedIn, DeletesTheSongsThatAreShownAndNoOthers)
{
    ensureDuplicateQueries(store.db());
    const QStringList before = songs();
    ASSERT_EQ(before.size(), 10);
    GetParam().act(*this);
    const int shown = GetParam().shown;
    const QString records = shown == 1 ? u"1 record"_s : u"%1 records"_s.arg(shown);
    desktop.willAnswer(Answer::Yes, u"DELETE the "_s + records + u" currently"_s).meanwhile([&] {
        EXPECT_EQ(rows(), shown) << "what is announced is on the grid";
    });
    QSet<QString> gone;
    desktop.willAnswer(Answer::Yes, u"About to DELETE "_s + records + u'.').meanwhile([&] {
        gone = displayed();
    });
    desktop.willSee(u"Records Deleted."_s);

    commands.mnuDeleteDisplayed_Click();

    const QStringList left = songs();
    EXPECT_EQ(QSet<QString>(before.begin(), before.end()) - QSet<QString>(left.begin(), left.end()), gone);
    EXPECT_EQ(backups, 1);
    EXPECT_EQ(screen.lblFilterMsg(), QString());
    EXPECT_EQ(screen.cmdShowArtistSongs(), QString());
    EXPECT_TRUE(screen.isEnabled(MainControl::cmdAdd));
    EXPECT_EQ(rows(), 0) << data().RecordSource().toStdString();
}

void artistOf(Maintenance &m, const QString &song)
{
    m.data().Recordset().FindFirst(u"SongName = '"_s + song + u'\'');
    m.set.showArtistSongs();
}

const View Views[] = {
    {"ShowAll", 10, [](Maintenance &) {}},
    {"AtLoad", 10, [](Maintenance &m) { m.set.openAtLoad(); }},
    {"Category", 2, [](Maintenance &m) { m.set.categoryChosen(1, u"Jazz"_s); }},
    {"CategoryAtLoad", 2,
     [](Maintenance &m) {
         m.store.settings().storeCategoryStartupBox(-1);
         m.store.settings().storeCategory(u"Jazz"_s, u" CategoryNumber = 1 "_s);
         m.set.openAtLoad();
     }},
    {"CategoryCleared", 10,
     [](Maintenance &m) {
         m.set.categoryChosen(1, u"Jazz"_s);
         m.set.categoryCleared();
     }},
    {"Filter", 2, [](Maintenance &m) { m.set.filterApplied(u"Artist = \"abba\" order by SongName desc"_s); }},
    {"FilterOnWordsOfAStatement", 1,
     [](Maintenance &m) { m.set.filterApplied(u"SongName Like '*by m*'"_s); }},
    {"FilterInCategory", 1,
     [](Maintenance &m) {
         m.set.categoryChosen(1, u"Jazz"_s);
         m.set.filterApplied(u"Artist = \"abba\""_s);
     }},
    {"FilterOnAFieldThatAssignmentsHaveToo", 1,
     [](Maintenance &m) {
         m.set.categoryChosen(1, u"Jazz"_s);
         m.set.filterApplied(u"ID = '3'"_s);
     }},
    {"FilterThatFoundNothingInCategory", 2,
     [](Maintenance &m) {
         m.set.categoryChosen(1, u"Jazz"_s);
         m.set.rememberSourceForFilter();
         m.desktop.willSee(u"No records found"_s);
         m.set.filterApplied(u"Artist = 'nobody'"_s);
     }},
    {"Find", 2, [](Maintenance &m) { m.set.find(u"abba"_s); }},
    {"FindWordsOfAStatement", 1, [](Maintenance &m) { m.set.find(u"order by"_s); }},
    {"ArtistView", 2, [](Maintenance &m) { artistOf(m, u"SOS"_s); }},
    {"ArtistWithWordsOfAStatement", 1, [](Maintenance &m) { artistOf(m, u"Order By Mail"_s); }},
    {"BackFromArtistView", 10,
     [](Maintenance &m) {
         artistOf(m, u"SOS"_s);
         m.set.showArtistSongs();
     }},
    {"SelectedOnly", 1,
     [](Maintenance &m) {
         m.mark(m.queen);
         m.set.selectedOnly();
     }},
    {"SelectedOnlyWithOneUnmarkedSince", 1,
     [](Maintenance &m) {
         m.mark(m.queen);
         m.mark(2);
         m.set.selectedOnly();
         m.mark(2);
     }},
    {"HideSelected", 9,
     [](Maintenance &m) {
         m.mark(m.queen);
         m.set.hideSelected();
     }},
    {"HideSelectedInCategory", 1,
     [](Maintenance &m) {
         m.mark(m.queen);
         m.set.categoryChosen(1, u"Jazz"_s);
         m.set.hideSelected();
     }},
    {"RemoveMarks", 10,
     [](Maintenance &m) {
         m.mark(m.queen);
         m.set.hideSelected();
         m.set.removeMarks();
     }},
    {"InvalidFiles", 2, [](Maintenance &m) { m.set.invalidFileView(); }},
    {"InvalidFilesInCategory", 1,
     [](Maintenance &m) {
         m.set.categoryChosen(1, u"Jazz"_s);
         m.set.invalidFileView();
     }},
    {"HideSelectedInInvalidFiles", 1,
     [](Maintenance &m) {
         m.mark(2);
         m.set.invalidFileView();
         m.set.hideSelected();
     }},
    {"PlayList", 2, [](Maintenance &m) { m.set.playListView(m.list, u"Party"_s); }},
    {"PlayListSorted", 2,
     [](Maintenance &m) {
         m.set.playListView(m.list, u"Party"_s);
         m.set.applySort(u"Album Name"_s);
     }},
    {"HideSelectedInPlayList", 1,
     [](Maintenance &m) {
         m.mark(2);
         m.set.playListView(m.list, u"Party"_s);
         m.set.hideSelected();
     }},
    {"Duplicates", 3, [](Maintenance &m) { m.set.duplicateView(u"qryDuplicateSongs"_s); }},
    {"DuplicatesToDelete", 2, [](Maintenance &m) { m.set.duplicateView(u"qryShowDuplicatesToBeDeleted"_s); }},
    {"AlbumDuplicates", 3, [](Maintenance &m) { m.set.duplicateView(u"qryDuplicateSongsAlbum"_s); }},
    {"AlbumDuplicatesToDelete", 2,
     [](Maintenance &m) { m.set.duplicateView(u"qryShowDuplicatesToBeDeletedAlbum"_s); }},
};

INSTANTIATE_TEST_SUITE_P(Views, DisplayedIn, ::testing::ValuesIn(Views),
                         [](const auto &given) { return std::string(given.param.name); });

class DeletingDisplayed : public Maintenance
{
protected:
    MaintenanceCommands commands{parts, [] {}, [] {}};
};

TEST_F(DeletingDisplayed, StopsAtEveryNoAndWithoutABackup)
{
    for (int yeses = 0; yeses < 3; ++yeses) {
        backupWorks = false;
        for (int i = 0; i < yeses; ++i)
            desktop.willAnswer(Answer::Yes);
        if (yeses < 2)
            desktop.willAnswer(Answer::No);
        commands.mnuDeleteDisplayed_Click();
        EXPECT_EQ(desktop.lastCall().defaultAnswer, Answer::No);
        EXPECT_EQ(songs().size(), 7);
        EXPECT_EQ(backups, yeses / 2);
    }
}

TEST_F(DeletingDisplayed, EndsTheSelectionThatItShowed)
{
    mark(queen);
    set.selectedOnly();
    desktop.willAnswer(Answer::Yes).willAnswer(Answer::Yes).willSee();
    commands.mnuDeleteDisplayed_Click();
    EXPECT_EQ(set.SelectedCount(), 0);
    EXPECT_EQ(set.texts().ListSelectionClause, QString());
    EXPECT_FALSE(screen.isVisible(MainControl::cmdShowSelected));
}

TEST_F(DeletingDisplayed, TellsWhatWentWrongAndDeletesNothing)
{
    set.playListView(list, u"Party"_s);
    const QString file = store.catalogue().DatabaseFile;
    desktop.willAnswer(Answer::Yes).willAnswer(Answer::Yes).meanwhile([&] {
        ASSERT_TRUE(QFile::rename(file, file + u".gone"_s));
    });
    desktop.willSee(u"moved or deleted"_s);
    commands.mnuDeleteDisplayed_Click();
    EXPECT_EQ(desktop.lastCall().title, u"Record Delete Error"_s);
    EXPECT_EQ(desktop.lastCall().icon, Icon::Stop);
    EXPECT_FALSE(commands.isBusy());
    ASSERT_TRUE(QFile::rename(file + u".gone"_s, file));
    EXPECT_EQ(songs().size(), 7);
}

} // namespace
