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

/** Beside the songs of SongList: three times one song, of two sizes and on two albums, and a pair without
 * artists. */
class Duplicates : public Maintenance
{
protected:
    void SetUp() override
    {
        Maintenance::SetUp();
        ensureDuplicateQueries(store.db());
        first = add(u"Waterloo"_s, u"Abba"_s, u"4194304"_s, u"Waterloo"_s);
        second = add(u"WATERLOO"_s, u"abba"_s, u"4194304"_s, u"Gold"_s);
        third = add(u"Waterloo"_s, u"Abba"_s, u"4194305"_s, u"waterloo"_s);
        fourth = add(u"Waterloo"_s, u"Abba"_s, u"4194304"_s, u"Waterloo"_s);
        add(u"Waterloo"_s, u"Äbba"_s, u"4194304"_s, u"Waterloo"_s);
        for (int i = 0; i < 2; ++i)
            store.addSong(Song(u"Untitled"_s).with(u"FileSize"_s, u"1"_s).with(u"AlbumName"_s, u"A"_s));
        set.showAll();
    }
    qint64 add(const S &name, const S &artist, const S &size, const S &album)
    {
        return store.addSong(Song(name, artist).with(u"FileSize"_s, size).with(u"AlbumName"_s, album));
    }
    QList<qint64> shown()
    {
        QList<qint64> keys;
        for (qint64 row = 0; row < rows(); ++row)
            keys.append(data().Recordset().bookmarkAt(row).key);
        return keys;
    }
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
    qint64 first = 0, second = 0, third = 0, fourth = 0;
};

TEST_F(Duplicates, ShowsTheGroupsOfEitherRule)
{
    struct Case
    {
        Command command;
        S query;
        S caption;
        QList<qint64> songs;
    };
    const Case cases[] = {
        {&DuplicateCommands::mnuShowDuplicates_Click,
         u"qryDuplicateSongs"_s,
         u"Showing All Songs With Duplicates"_s,
         {first, second, fourth}},
        {&DuplicateCommands::mnuShowDuplicatesToDelete_Click,
         u"qryShowDuplicatesToBeDeleted"_s,
         u"Showing Duplicate Songs To Delete from Quaverly"_s,
         {second, fourth}},
        {&DuplicateCommands::mnuShowDuplicatesAlbum_Click,
         u"qryDuplicateSongsAlbum"_s,
         u"Showing All Songs With Duplicates in Albums"_s,
         {first, third, fourth}},
        {&DuplicateCommands::mnuShowDuplicatesToDeleteAlbum_Click,
         u"qryShowDuplicatesToBeDeletedAlbum"_s,
         u"Showing Duplicate Songs To Delete in Albums from Quaverly"_s,
         {third, fourth}},
    };
    for (const Case &c : cases) {
        set.categoryChosen(jazz, u"Jazz"_s);
        (commands.*c.command)();
        EXPECT_EQ(data().RecordSource(), c.query);
        EXPECT_EQ(shown(), c.songs) << c.query.toStdString();
        EXPECT_EQ(screen.lblCategory(), c.caption);
        EXPECT_EQ(screen.cmbSort(), u"Artist"_s);
        EXPECT_FALSE(screen.isVisible(MainControl::lblFilterMsg));
        EXPECT_TRUE(enabled(false));
        screen.cmbSort_Click();
        set.hideSelected();
        set.removeMarks();
        EXPECT_EQ(data().RecordSource(), c.query) << "nothing composes it anew";
        screen.ShowAllMenu_Click();
        EXPECT_TRUE(enabled(true));
    }
}

TEST_F(Duplicates, DeletesWhatWasShownAndNoOther)
{
    const QStringList before = songs();
    struct Case
    {
        Command command;
        S question;
        QList<qint64> gone;
    };
    const Case cases[] = {
        {&DuplicateCommands::mnuDeleteDuplicates_Click,
         u"then choose \r\n\"Show Duplicate Songs to Delete\" from the Edit menu.\r\n\r\nAre you SURE you "
         u"want "
         "to delete these duplicates?"_s,
         {second, fourth}},
        {&DuplicateCommands::mnuDeleteDuplicatesAlbum_Click,
         u"from your computer.\r\n\r\nAre you SURE you want to delete duplicates?"_s,
         {third}},
    };
    QStringList left = before;
    for (const Case &c : cases) {
        const S announced = u"This will DELETE all %1 duplicate songs "_s.arg(c.gone.size());
        desktop.willAnswer(Answer::No, announced);
        (commands.*c.command)();
        EXPECT_TRUE(desktop.lastCall().text.endsWith(c.question));
        EXPECT_EQ(desktop.lastCall().defaultAnswer, Answer::No);
        EXPECT_EQ(shown(), c.gone) << "stays shown, as the question says";
        EXPECT_TRUE(enabled(true));
        backupWorks = false;
        desktop.willAnswer(Answer::Yes);
        (commands.*c.command)();
        EXPECT_EQ(songs(), left);
        backupWorks = true;
        desktop.willAnswer(Answer::Yes)
            .willSee(S::number(c.gone.size()) +
                     u" Duplicates Deleted from the Quaverly database.  This does not "
                     "delete the actual music file from your computer.  You can re-scan to "
                     "put these duplicate songs back into Quaverly."_s);
        (commands.*c.command)();
        for (const qint64 song : c.gone)
            left.removeAll(S::number(song));
        EXPECT_EQ(songs(), left);
        EXPECT_EQ(rows(), left.size());
        desktop.willSee(u"No duplicate songs to delete."_s);
        (commands.*c.command)();
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
    const auto deleteSong = [&](qint64 song) {
        ASSERT_TRUE(data().findRecord(song));
        desktop.willAnswer(Answer::Yes, u"Are you sure you want to delete this record?"_s);
        listCommands.cmdDelete_Click([] {});
    };
    const auto current = [this] { return data().Recordset().bookmark().key; };
    commands.mnuShowDuplicates_Click();
    deleteSong(first);
    EXPECT_EQ(shown(), (QList<qint64>{second, fourth}));
    EXPECT_EQ(current(), second);
    set.showAll();
    commands.mnuShowDuplicatesAlbum_Click();
    deleteSong(fourth);
    EXPECT_EQ(shown(), QList<qint64>()) << "the last of a pair is no duplicate";
    EXPECT_TRUE(data().RecordSource() == u"qryDuplicateSongsAlbum"_s && !songs().contains(S::number(fourth)));
    set.showAll();
    fourth = add(u"Waterloo"_s, u"Abba"_s, u"4194304"_s, {});
    const qint64 last = add(u"Waterloo"_s, u"Abba"_s, u"4194304"_s, {});
    commands.mnuShowDuplicates_Click();
    deleteSong(last);
    EXPECT_EQ(current(), fourth);
}

TEST_F(Duplicates, TellsWhatKeepsTheSongsFromGoing)
{
    parts.beforeBulk = [this] { return QFile::rename(store.db().Name(), store.path(u"away.mdb"_s)); };
    DuplicateCommands unlucky{parts};
    desktop.willAnswer(Answer::Yes).willSee(u"It was moved or deleted while it was open."_s);
    unlucky.mnuDeleteDuplicates_Click();
    EXPECT_EQ(desktop.lastCall().title, u"Duplicate Record Delete Error"_s);
    EXPECT_EQ(desktop.lastCall().icon, Icon::Stop);
    EXPECT_EQ(songs().size(), 14);
    EXPECT_FALSE(desktop.isHourglassOn() || unlucky.isBusy());
}

} // namespace
