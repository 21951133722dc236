// SPDX-License-Identifier: GPL-3.0-or-later
#include "maintenance/DuplicateCommands.h"

#include "MaintenanceFixture.h"
#include "catalogue/DuplicateQueries.h"
#include "songlist/ListCommands.h"

#include <QFile>

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

using Command = void (DuplicateCommands::*)();

/**
 * Beside the seven songs of SongList: 8 to 11 are one song, of two sizes and on two albums, 12 is not, and
 * 13 and 14 are a pair without artists.
 */
class Duplicates : public Maintenance
{
protected:
    void SetUp() override
    {
        Maintenance::SetUp();
        ensureDuplicateQueries(store.db());
        add(u"Waterloo"_s, u"Abba"_s, u"4194304"_s, u"Waterloo"_s);
        add(u"WATERLOO"_s, u"abba"_s, u"4194304"_s, u"Gold"_s);
        add(u"Waterloo"_s, u"Abba"_s, u"4194305"_s, u"waterloo"_s);
        add(u"Waterloo"_s, u"Abba"_s, u"4194304"_s, u"Waterloo"_s);
        add(u"Waterloo"_s, u"Äbba"_s, u"4194304"_s, u"Waterloo"_s);
        for (int i = 0; i < 2; ++i)
            store.addSong(Song(u"Untitled"_s).with(u"FileSize"_s, u"1"_s).with(u"AlbumName"_s, u"A"_s));
        set.ShowAllMenu_Click();
    }
    void add(const S &name, const S &artist, const S &size, const S &album)
    {
        store.addSong(Song(name, artist).with(u"FileSize"_s, size).with(u"AlbumName"_s, album));
    }
    QString keys() { return shown().join(u' '); }
    bool enabled(bool on)
    {
        using enum MainControl;
        bool all = true;
        for (const MainControl control : {File, cmdAdd, AddMenu, FindEditMenu, cmdShowArtistSongs, cmdFilter,
                                          cmdFind, cmbSort, cmdSortSong, cmdSortArtist})
            all = all && screen.isEnabled(control) == on;
        return all && screen.isEnabled(cmdEdit) && screen.isEnabled(cmdDelete);
    }

    DuplicateCommands commands{parts};
};

TEST_F(Duplicates, ShowsTheGroupsOfEitherRule)
{
    const std::tuple<Command, S, S, S> cases[] = {
        {&DuplicateCommands::mnuShowDuplicates_Click, u"qryDuplicateSongs"_s, u"All Songs With Duplicates"_s,
         u"8 9 11"_s},
        {&DuplicateCommands::mnuShowDuplicatesToDelete_Click, u"qryShowDuplicatesToBeDeleted"_s,
         u"Duplicate Songs To Delete from Quaverly"_s, u"9 11"_s},
        {&DuplicateCommands::mnuShowDuplicatesAlbum_Click, u"qryDuplicateSongsAlbum"_s,
         u"All Songs With Duplicates in Albums"_s, u"8 10 11"_s},
        {&DuplicateCommands::mnuShowDuplicatesToDeleteAlbum_Click, u"qryShowDuplicatesToBeDeletedAlbum"_s,
         u"Duplicate Songs To Delete in Albums from Quaverly"_s, u"10 11"_s},
    };
    for (const auto &[command, query, caption, songs] : cases) {
        set.categoryChosen(jazz, u"Jazz"_s);
        (commands.*command)();
        EXPECT_EQ(keys(), songs) << query.toStdString();
        EXPECT_EQ(screen.lblCategory(), u"Showing "_s + caption);
        EXPECT_EQ(screen.cmbSort(), u"Artist"_s);
        EXPECT_FALSE(screen.isVisible(MainControl::lblFilterMsg));
        EXPECT_TRUE(enabled(false));
        screen.cmbSort_Click();
        set.HideSelectedMenu_Click();
        set.RemoveSelectionsMenu_Click();
        EXPECT_EQ(data().RecordSource(), query) << "nothing composes it anew";
        screen.ShowAllMenu_Click();
        EXPECT_TRUE(enabled(true));
    }
}

TEST_F(Duplicates, DeletesWhatWasShownAndNoOther)
{
    const std::tuple<Command, S, S> cases[] = {
        {&DuplicateCommands::mnuDeleteDuplicates_Click,
         u"choose \r\n\"Show Duplicate Songs to Delete\" from the Edit menu.\r\n\r\nAre you SURE you want "
         "to delete these duplicates?"_s,
         u"9 11"_s},
        {&DuplicateCommands::mnuDeleteDuplicatesAlbum_Click,
         u"from your computer.\r\n\r\nAre you SURE you want to delete duplicates?"_s, u"10"_s},
    };
    QStringList left = songs();
    for (const auto &[command, question, gone] : cases) {
        const S count = S::number(gone.split(u' ').size());
        desktop.willAnswer(Answer::No, u"This will DELETE all "_s + count + u" duplicate songs "_s);
        (commands.*command)();
        EXPECT_TRUE(desktop.lastCall().text.endsWith(question));
        EXPECT_EQ(desktop.lastCall().defaultAnswer, Answer::No);
        EXPECT_EQ(keys(), gone) << "stays shown, as the question says";
        EXPECT_TRUE(enabled(true));
        backupWorks = false;
        desktop.willAnswer(Answer::Yes);
        (commands.*command)();
        EXPECT_EQ(songs(), left);
        backupWorks = true;
        desktop.willAnswer(Answer::Yes).willSee(count + u" Duplicates Deleted from the Quaverly database."_s);
        (commands.*command)();
        for (const S &song : gone.split(u' '))
            left.removeAll(song);
        EXPECT_EQ(songs(), left);
        desktop.willSee(u"No duplicate songs to delete."_s);
        (commands.*command)();
        EXPECT_EQ(rows(), left.size());
    }
    EXPECT_EQ(backups, 4);
    desktop.willSee(u"No duplicate songs found."_s);
    commands.mnuShowDuplicates_Click();
    EXPECT_EQ(desktop.lastCall().title, u"No duplicates"_s);
    EXPECT_TRUE(enabled(true));
}

TEST_F(Duplicates, StaysInTheViewWhenASongIsDeletedByHand)
{
    ListCommands listCommands{set, screen, desktop};
    const auto deleteIn = [&](Command view, qint64 song) {
        set.ShowAllMenu_Click();
        (commands.*view)();
        ASSERT_TRUE(data().findRecord(song));
        desktop.willAnswer(Answer::Yes, u"Are you sure you want to delete this record?"_s);
        listCommands.cmdDelete_Click();
    };
    deleteIn(&DuplicateCommands::mnuShowDuplicates_Click, 8);
    EXPECT_EQ(keys(), u"9 11"_s);
    EXPECT_EQ(data().Recordset().bookmark().key, 9);
    deleteIn(&DuplicateCommands::mnuShowDuplicatesAlbum_Click, 11);
    EXPECT_EQ(keys(), S()) << "the last of a pair is no duplicate";
    EXPECT_TRUE(set.isDuplicateView() && !songs().contains(u"11"_s));
    for (int i = 0; i < 2; ++i)
        add(u"Waterloo"_s, u"Abba"_s, u"4194304"_s, {});
    deleteIn(&DuplicateCommands::mnuShowDuplicates_Click, 16);
    EXPECT_EQ(data().Recordset().bookmark().key, 15) << "the one before the last";
}

TEST_F(Duplicates, CommandsTellWhatKeepsThemFromTheirWork)
{
    const S file = store.db().Name();
    duringBackup = [&] { ASSERT_TRUE(QFile::rename(file, file + u".gone"_s)); };
    const auto expectTold = [&](const S &title, Icon icon) {
        EXPECT_EQ(desktop.lastCall().title, title);
        EXPECT_EQ(desktop.lastCall().icon, icon);
        EXPECT_FALSE(desktop.isHourglassOn() || busy);
        ASSERT_TRUE(QFile::rename(file + u".gone"_s, file));
        EXPECT_EQ(songs().size(), 14);
    };
    desktop.willAnswer(Answer::Yes).willSee(u"It was moved or deleted while it was open."_s);
    commands.mnuDeleteDuplicates_Click();
    expectTold(u"Duplicate Record Delete Error"_s, Icon::Stop);
    desktop.willAnswer(Answer::Yes).willAnswer(Answer::Yes).willSee(u"moved or deleted"_s);
    many.mnuDeleteDisplayed_Click();
    expectTold(u"Record Delete Error"_s, Icon::Stop);
    desktop.atEvents(desktop.eventsRun() + 1, duringBackup);
    desktop.willSee(u".  Error number:3024"_s);
    many.mnuFindInvalidFilenames_Click();
    expectTold(u"Error"_s, Icon::None);
}

} // namespace
