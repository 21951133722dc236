// SPDX-License-Identifier: GPL-3.0-or-later
#include "SongListFixture.h"
#include "catalogue/CatalogueSchema.h"
#include "catalogue/DuplicateQueries.h"
#include "support/Limits.h"

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

TEST_F(SongList, ComesUpSortedAsTheLastRunLeftIt)
{
    EXPECT_EQ(data().RecordSource(), u"Select * from  tblContacts  Order By SongName, Artist"_s);
    EXPECT_EQ(current(), u"Dancing Queen"_s);
    EXPECT_EQ(screen.cmdShowArtistSongs(), u"Show all songs by Abba"_s);
    EXPECT_FALSE(screen.isVisible(MainControl::lblFilterMsg));
    screen.set_cmbSort(u"Artist"_s);
    set.Data1().Close();
    store.reopen();
    load();
    EXPECT_EQ(screen.cmbSort(), u"Artist"_s);
    EXPECT_EQ(store.catalogue().ContactsTable->Index(), u"Artist"_s);
    EXPECT_EQ(current(), u"Untitled"_s);
    EXPECT_FALSE(screen.isVisible(MainControl::cmdShowArtistSongs));
}

TEST_F(SongList, TheLastCategoryIsThereAgainWhenThatIsWanted)
{
    set.categoryChosen(jazz, u"Jazz"_s);
    const auto reload = [this](const QString &startup) {
        store.settings().store(u"CATEGORYSTARTUP"_s, startup);
        set.openAtLoad();
    };
    reload(u"0"_s);
    EXPECT_EQ(rows(), 7);
    reload(u"-1"_s);
    EXPECT_EQ(data().RecordSource(),
              u"Select * from qryContacts Where CategoryNumber = 1  Order By SongName"_s);
    EXPECT_EQ(rows(), 2);
    reload(u"1"_s);
    set.openAtFirstActivation();
    EXPECT_EQ(screen.lblCategory(), u"Jazz"_s);
    EXPECT_EQ(names(), (QStringList{u"Dancing Queen"_s, u"Imagine"_s}));
    store.settings().storeCategory(u"Jazz"_s, u" no clause at all "_s);
    reload(u"True"_s);
    EXPECT_EQ(rows(), 7);
    EXPECT_EQ(set.texts().ListCategoryClause, QString());
    set.openAtFirstActivation();
    EXPECT_FALSE(store.settings().category()) << "Show All is the last choice";
    EXPECT_EQ(screen.lblCategory(), QString());
}

TEST_F(SongList, ShowAllKeepsTheMarks)
{
    mark(sos);
    ASSERT_TRUE(set.filterApplied(u"SongName = \"SOS\""_s));
    set.ShowAllMenu_Click();
    EXPECT_TRUE(screen.isVisible(MainControl::cmdShowSelected));
    EXPECT_EQ(screen.lblFilterMsg(), u"Filter is limiting records displayed."_s);
    EXPECT_FALSE(screen.isVisible(MainControl::lblFilterMsg));
    EXPECT_EQ(store.songValue(sos, u"Selected"_s), u"x"_s);
    EXPECT_EQ(set.SelectedCount(), 1);
}

TEST_F(SongList, AnEmptyCatalogueLeavesPlayingDisabledAndStoresNoSort)
{
    store.db().Execute(u"Delete * from tblContacts"_s);
    store.db().Execute(u"Delete * from tblSettings"_s);
    load();
    screen.set_cmbSort(u"Rating"_s);
    EXPECT_FALSE(screen.isEnabled(MainControl::cmdPlay) || screen.isEnabled(MainControl::cmdPlayAll));
    EXPECT_FALSE(store.settings().gridSortOrder());
    EXPECT_EQ(set.texts().ListOrder, u" Order By SongName "_s);
    set.cmdShowArtistSongs_Click();
    set.find(u"love"_s);
    set.toggleMark();
    EXPECT_EQ(data().RecordSource(), u"Select * from  tblContacts Order By SongName "_s);
    EXPECT_EQ(set.recordCountMessage(), u"There are no records displayed in the current list."_s);
}

TEST_F(SongList, ArtistViewsReadAnyName)
{
    const std::tuple<const char *, const char *, int> cases[] = {
        {"Dancing Queen", "Show all songs by Abba", 2},
        {"Say \"Hi\"", "Show all songs by The \"Hi\" Boys", 1},
        {"Mrs & Mr", "Show all songs by Simon && Garfunkel", 1},
        {"Order By Mail", "Show all songs by Order By Band", 1},
    };
    for (const auto &[song, caption, songs] : cases) {
        set.ShowAllMenu_Click();
        data().Recordset().FindFirst(u"SongName = "_s + quoted(QString::fromLatin1(song)));
        data().notifyRowChanged();
        EXPECT_EQ(screen.cmdShowArtistSongs(), QString::fromLatin1(caption));
        set.cmdShowArtistSongs_Click();
        EXPECT_EQ(rows(), songs) << song;
        EXPECT_EQ(screen.cmdShowArtistSongs(), u"Return from artist filter"_s);
        EXPECT_EQ(screen.firstColumnField(), u"Artist"_s);
        EXPECT_FALSE(screen.isEnabled(MainControl::cmdAdd));
        set.cmdShowArtistSongs_Click();
        EXPECT_EQ(rows(), 7);
    }
}

TEST_F(SongList, TheWayBackFromTheArtistKeepsSongLineAndSort)
{
    screen.set_cmbSort(u"Album Name"_s);
    set.categoryChosen(jazz, u"Jazz"_s);
    ASSERT_TRUE(data().findRecord(imagine));
    screen.row = 1;
    set.cmdShowArtistSongs_Click();
    EXPECT_EQ(screen.cmbSort(), u"Song Name"_s);
    screen.row = 0;
    set.cmdShowArtistSongs_Click();
    EXPECT_EQ(current(), u"Imagine"_s);
    EXPECT_EQ(screen.scrolls, QList<QPoint>({QPoint(0, -1)}));
    EXPECT_EQ(screen.cmbSort(), u"Album Name"_s);
    EXPECT_EQ(screen.firstColumnField(), u"SongName"_s);
    EXPECT_EQ(rows(), 2);
    // The texts stay the artist's: composing anew brings him back.
    set.RefreshDisplayedSet();
    EXPECT_EQ(names(), QStringList(u"Imagine"_s));
}

TEST_F(SongList, AFilterThatFindsNothingBringsListAndRowBackButNotItsText)
{
    set.categoryChosen(jazz, u"Jazz"_s);
    ASSERT_TRUE(data().findRecord(imagine));
    set.rememberSourceForFilter();
    const QString before = data().RecordSource();
    desktop.willSee(u"No records found that meet the criteria you specified.  Try again."_s);
    EXPECT_FALSE(set.filterApplied(u"Artist = \"Nobody\""_s));
    EXPECT_EQ(data().RecordSource(), before);
    EXPECT_EQ(current(), u"Imagine"_s);
    EXPECT_EQ(set.texts().ListWhere, QString());
    EXPECT_EQ(set.LastFilterCriteria(), QString());
    set.RefreshDisplayedSet();
    EXPECT_GT(rows(), 2);
}

TEST_F(SongList, ARefusedStatementLeavesListAndTextsAsTheyWere)
{
    set.categoryChosen(jazz, u"Jazz"_s);
    ASSERT_TRUE(data().findRecord(imagine));
    const QString source = data().RecordSource();
    const QString where = set.texts().ListWhere;
    for (const auto &criteria : {u"Artist = = \"x\""_s, u"Loudness > 3"_s, u" "_s, u"order by SongName"_s}) {
        EXPECT_THROW((void)set.filterApplied(criteria), dao::DaoError) << criteria.toStdString();
        EXPECT_EQ(data().RecordSource(), source);
        EXPECT_EQ(set.texts().ListWhere, where);
        EXPECT_EQ(set.texts().ListFilterText, QString());
        EXPECT_EQ(current(), u"Imagine"_s);
    }
    EXPECT_FALSE(desktop.isHourglassOn());
    EXPECT_FALSE(set.filterApplied({}));
}

TEST_F(SongList, FindReplacesTheListAndSaysWhenThereIsNothing)
{
    set.categoryChosen(jazz, u"Jazz"_s);
    set.find(u" "_s);
    EXPECT_EQ(screen.lblCategory(), u"Jazz"_s);
    set.find(u"abba"_s);
    EXPECT_EQ(names(), QStringList({u"Dancing Queen"_s, u"SOS"_s}));
    EXPECT_EQ(screen.lblCategory(), u"Records containing abba"_s);
    EXPECT_EQ(screen.cmdShowArtistSongs(), u"Show all songs by Abba"_s);
    EXPECT_FALSE(screen.isEnabled(MainControl::cmdAdd));
    // Another filter finds its way in a list that was found.
    ASSERT_TRUE(set.filterApplied(u"Artist > \" \""_s));
    EXPECT_EQ(screen.lblCategory(), QString());
    set.find(u"order by"_s);
    screen.set_cmbSort(u"Song Name"_s);
    EXPECT_EQ(names(), QStringList(u"Order By Mail"_s));
    set.ShowAllMenu_Click();
    set.find(u"Say \"Hi\""_s);
    EXPECT_EQ(names(), QStringList(u"Say \"Hi\""_s));
    desktop.willSee(u"No records found."_s);
    set.find(u"zyx"_s);
    EXPECT_EQ(rows(), 0);
}

TEST_F(SongList, AnOlderCatalogueIsSearchedAsItStandsAndGetsItsNewFieldOnceItCanBeWritten)
{
    const QString file = store.catalogue().DatabaseFile;
    set.Data1().Close();
    store.close();
    const dao::Schema older = catalogueSchema(2);
    QFile::remove(file);
    dao::DBEngine(older).CreateEmpty(file);
    dao::DBEngine(older).OpenDatabase(file)->Execute(
        u"Insert Into tblContacts (SongName, Artist) Values ('SOS', 'Abba')"_s);
    {
        const LockedFolder locked(file, store.folder(), QFile::ReadOwner);
        store.open();
        load();
        set.find(u"abba"_s);
        EXPECT_EQ(names(), QStringList(u"SOS"_s));
        set.Data1().Close();
        store.close();
    }
    store.open();
    EXPECT_EQ(store.column(u"Select SongName & AlbumArtist from tblContacts"_s), QStringList(u"SOS"_s));
    load();
}

TEST_F(SongList, APlayListTakesEverySortAndTheMarkModesAndIsNotShownWithoutSongs)
{
    const qint64 empty = store.addPlayList(u"By hand"_s);
    ASSERT_TRUE(data().findRecord(sos));
    desktop.willSee(u"No records found in database for this PlayList."_s);
    EXPECT_FALSE(set.playListView(empty, u"By hand"_s));
    EXPECT_EQ(current(), u"SOS"_s);
    EXPECT_EQ(set.texts().ListWhere, QString());
    ASSERT_TRUE(set.playListView(list, u"Party"_s));
    EXPECT_EQ(screen.lblFilterMsg(), u"PlayList:Party"_s);
    for (const auto &label :
         {u"Year"_s, u"Rating"_s, u"File Name"_s, u"Path Name"_s, u"Duration"_s, u"Artist"_s}) {
        screen.set_cmbSort(label);
        EXPECT_EQ(rows(), 2) << label.toStdString();
    }
    mark(sos);
    set.HideSelectedMenu_Click();
    EXPECT_EQ(names(), QStringList(u"Imagine"_s));
    set.RemoveSelectionsMenu_Click();
    EXPECT_EQ(rows(), 2);
    EXPECT_EQ(screen.lblFilterMsg(), u"PlayList:Party"_s);
}

TEST_F(SongList, InvalidFilesStayWithinTheCategory)
{
    for (const qint64 song : {queen, sos})
        store.addRow(u"tblOrphanFileNames"_s, {{u"RecordIdOrphan"_s, song}});
    mark(sos);
    set.invalidFileView();
    EXPECT_EQ(names(), QStringList({u"Dancing Queen"_s, u"SOS"_s}));
    EXPECT_EQ(screen.lblFilterMsg(), u"Records with invalid path/file names"_s);
    set.HideSelectedMenu_Click();
    EXPECT_EQ(names(), QStringList(u"Dancing Queen"_s));
    set.categoryChosen(jazz, u"Jazz"_s);
    set.invalidFileView();
    EXPECT_EQ(names(), QStringList(u"Dancing Queen"_s));
    screen.set_cmbSort(u"Artist"_s);
    EXPECT_EQ(rows(), 1);
}

TEST_F(SongList, RecordCountSumsWhatIsDisplayed)
{
    const QString size = u"\n\nTotal file size of all songs displayed in current list: "_s;
    EXPECT_EQ(set.recordCountMessage(),
              u"There are 7 songs displayed in the current list."_s + size + u"1,007.8 MB."_s);
    ASSERT_TRUE(data().findRecord(imagine));
    mark(sos);
    set.HideSelectedMenu_Click();
    set.categoryChosen(jazz, u"Jazz"_s);
    EXPECT_EQ(set.recordCountMessage(),
              u"There are 2 songs displayed in the current list."_s + size + u"1,004.5 MB."_s);
    EXPECT_EQ(set.texts().ListSelectionClause, u" And Selected < 'x' "_s);
    ASSERT_TRUE(set.filterApplied(u"SongName = \"Imagine\" order by Year"_s));
    EXPECT_EQ(set.recordCountMessage(), u"There is 1 record displayed in the current list."_s);
    set.ShowAllMenu_Click();
    set.find(u"m"_s);
    EXPECT_EQ(rows(), 3);
    EXPECT_TRUE(set.recordCountMessage().endsWith(u": 1,000.0 MB."_s));
}

TEST_F(SongList, AWalkThroughTheRowsEndsWhereItBegan)
{
    ASSERT_TRUE(data().findRecord(sos));
    {
        const KeepRow keep(data());
        data().Recordset().MoveLast();
    }
    EXPECT_EQ(current(), u"SOS"_s);
    EXPECT_FALSE(data().findRecord(4711));
    EXPECT_EQ(current(), u"SOS"_s);
    {
        const KeepRow keep(data());
        store.db().Execute(u"Delete * from tblContacts Where SongName = 'SOS'"_s);
        set.RefreshDisplayedSet();
    }
    EXPECT_EQ(current(), u"Dancing Queen"_s);
}

} // namespace
