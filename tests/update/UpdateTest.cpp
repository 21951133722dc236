// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/CatalogueSchema.h"
#include "main/ProgramFixture.h"
#include "update/frmCheck.h"
#include "update/frmUpdate.h"

#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QTableView>
#include <QTreeWidget>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

/** A catalogue that was filled by a scan, and other programs at work in its folder. */
class TheUpdate : public ProgramTest
{
protected:
    TheUpdate()
    {
        addFile(u"Abba/Arrival/Tiger.mp3"_s, u"Tiger"_s, u"Abba"_s);
        addFile(u"Abba/Arrival/Money.flac"_s, u"Money"_s, u"Abba"_s);
        addFile(u"Abba/Arrival/Queen.m4a"_s, u"Queen"_s, u"Abba"_s);
        addFile(u"Björk/Jóga.ogg"_s, u"Jóga"_s, u"Björk"_s);
        start(true);
        addFolder();
    }
    /** Opens the screen, which looks at once. */
    void look()
    {
        chooseMenu(screen(), u"mnuUpdateFromDisk"_s);
        m_form = screen().findChild<frmUpdate *>();
        ASSERT_TRUE(m_form);
        settle();
        ASSERT_TRUE(QTest::qWaitFor([this] { return m_desktop.answersLeft() == 0; }));
    }
    void lookAgain()
    {
        if (m_form)
            m_form->reject();
        settle();
        look();
    }
    /** A line a row, its tick in front. */
    [[nodiscard]] QStringList found()
    {
        const QAbstractItemModel &model = *child<QTableView>(*m_form, u"listRows"_s)->model();
        QStringList rows;
        for (int row = 0; row < model.rowCount(); ++row) {
            const bool isTicked = model.index(row, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked;
            QStringList texts{isTicked ? u"x"_s : u"-"_s};
            for (int column = 0; column < model.columnCount(); ++column)
                texts.append(model.index(row, column).data().toString().remove(music()));
            texts.removeAll(QString());
            rows.append(texts.join(u'|'));
        }
        rows.sort();
        return rows;
    }
    void carryOut(const QString &told)
    {
        m_desktop.willSee(told);
        click(*m_form, u"cmdUpdate"_s);
        settle();
    }
    void rename(const QString &from, const QString &to) const
    {
        QDir().mkpath(QFileInfo(music() + to).path());
        ASSERT_TRUE(QFile::rename(music() + from, music() + to)) << from.toStdString();
    }
    /** Runs @p work on the catalogue between two runs of the program. */
    void between(const std::function<void(dao::Database &)> &work)
    {
        if (m_form)
            m_form->reject();
        settle();
        close();
        {
            dao::DBEngine engine(catalogueSchema());
            work(*engine.OpenDatabase(path()));
        }
        start();
    }
    /** What a statement gives: a line a row. */
    [[nodiscard]] QStringList rows(const QString &sql)
    {
        QStringList all;
        between([&](dao::Database &database) {
            const auto found = database.OpenRecordset(sql, dao::RecordsetType::Snapshot);
            for (; !found->atEOF(); found->MoveNext()) {
                QStringList texts;
                for (const dao::Field &field : found->Fields())
                    texts.append(found->text(field.name).remove(music()));
                all.append(texts.join(u'|'));
            }
        });
        return all;
    }
    [[nodiscard]] QStringList files()
    {
        return rows(u"Select PathName & FileName As File1 From tblContacts Order By RecordID"_s);
    }
    void execute(const QString &sql)
    {
        between([&](dao::Database &database) { database.Execute(sql); });
    }

    QPointer<frmUpdate> m_form;
};

TEST_F(TheUpdate, FollowsRenamedAndMovedFilesWithTheirTracks)
{
    execute(u"Insert Into tblPlayListDetail (ListID, ListTrackID, ContactRecordID, FileName) "
            "Select 1, RecordID, RecordID, PathName & FileName From tblContacts"_s);
    const QStringList before = files();
    // Two change places, one gets other capitals, one goes to another folder.
    rename(u"Abba/Arrival/Tiger.mp3"_s, u"Abba/Arrival/x"_s);
    addFile(u"Abba/Arrival/Extra.mp3"_s, u"Extra"_s, u"Abba"_s);
    rename(u"Abba/Arrival/Extra.mp3"_s, u"Abba/Arrival/Tiger.mp3"_s);
    rename(u"Abba/Arrival/x"_s, u"Abba/Arrival/TIGER 2.mp3"_s);
    rename(u"Abba/Arrival/Money.flac"_s, u"Abba/Arrival/money.flac"_s);
    rename(u"Björk/Jóga.ogg"_s, u"Björk/Homogenic/Jóga.ogg"_s);
    look();
    EXPECT_EQ(found(), (QStringList{u"x|Moved|Jóga|Björk|Path Name|…/|…/Homogenic/"_s,
                                    u"x|Moved|Money|Abba|File Name|Money.flac|money.flac"_s,
                                    u"x|Moved|Tiger|Abba|File Name|Tiger.mp3|TIGER 2.mp3"_s,
                                    u"x|New|Tiger.mp3|Abba/Arrival/Tiger.mp3"_s}));
    EXPECT_EQ(files(), before) << "nothing is written before";
    look();
    carryOut(u"Update from disk: 1 new, 3 moved."_s);
    const QStringList after{u"Abba/Arrival/TIGER 2.mp3"_s, u"Abba/Arrival/money.flac"_s,
                            u"Abba/Arrival/Queen.m4a"_s, u"Björk/Homogenic/Jóga.ogg"_s};
    QStringList inOrder = files();
    EXPECT_EQ(inOrder.takeLast(), u"Abba/Arrival/Tiger.mp3"_s);
    std::ranges::sort(inOrder);
    QStringList sorted = after;
    std::ranges::sort(sorted);
    EXPECT_EQ(inOrder, sorted);
    EXPECT_EQ(rows(u"Select PathName & tblContacts.FileName As File1 From tblContacts Inner Join "
                   "tblPlayListDetail On tblContacts.RecordID = tblPlayListDetail.ContactRecordID "
                   "Where PathName & tblContacts.FileName <> tblPlayListDetail.FileName"_s),
              QStringList());
    chooseMenu(screen(), u"mnuUndo"_s);
    EXPECT_EQ(files(), before) << "one change, taken back whole";
    lookAgain();
    EXPECT_EQ(found().size(), 4) << "and found again";
}

TEST_F(TheUpdate, FilesThatChangeNamesInARingAreTold)
{
    rename(u"Abba/Arrival/Tiger.mp3"_s, u"Abba/Arrival/x"_s);
    rename(u"Abba/Arrival/Money.flac"_s, u"Abba/Arrival/Tiger.mp3"_s);
    rename(u"Abba/Arrival/x"_s, u"Abba/Arrival/Money.flac"_s);
    look();
    ASSERT_EQ(found(), (QStringList{u"x|Moved|Money|Abba|File Name|Money.flac|Tiger.mp3"_s,
                                    u"x|Moved|Tiger|Abba|File Name|Tiger.mp3|Money.flac"_s}));
    // Only one of them: its new name is the other song's.
    child<QTableView>(*m_form, u"listRows"_s)->selectRow(0);
    key(child<QTableView>(*m_form, u"listRows"_s), Qt::Key_Space);
    carryOut(u"has that file already"_s);
    EXPECT_EQ(
        rows(u"Select FileName From tblContacts Where SongName In ('Tiger', 'Money') Order By SongName"_s),
        (QStringList{u"Money.flac"_s, u"Tiger.mp3"_s}));
    lookAgain();
    carryOut(u"Update from disk: 2 moved."_s);
    EXPECT_EQ(
        rows(u"Select FileName From tblContacts Where SongName In ('Tiger', 'Money') Order By SongName"_s),
        (QStringList{u"Tiger.mp3"_s, u"Money.flac"_s}));
}

TEST_F(TheUpdate, TakesChangedTagsButKeepsWhatTheUserWrote)
{
    execute(u"Update tblContacts Set Artist = 'ABBA!', AlbumName = 'Mine' Where SongName = 'Tiger'"_s);
    samples::SongTags tags;
    tags.title = u"Tiger, \"new\""_s;
    tags.artist = u"Abba"_s;
    tags.album = u"Theirs"_s;
    tags.year = 1976;
    tags.track = 2;
    m_maker.makeSong(music() + u"Abba/Arrival/Tiger.mp3"_s, tags);
    look();
    EXPECT_EQ(found(), (QStringList{u"-|Changed|Tiger|ABBA!|Album Name|Mine|Theirs|Changed here too"_s,
                                    u"x|Changed|Tiger|ABBA!|Song Name|Tiger|Tiger, \"new\""_s}));
    carryOut(u"Update from disk: 1 changed."_s);
    EXPECT_EQ(rows(u"Select SongName, Artist, AlbumName From tblContacts Where FileName = 'Tiger.mp3'"_s),
              QStringList{u"Tiger, \"new\"|ABBA!|Mine"_s});
    lookAgain();
    EXPECT_EQ(found(), QStringList()) << "what was seen is settled";
    // A file that changes between the look and the carrying out is left alone.
    tags.title = u"First"_s;
    m_maker.makeSong(music() + u"Abba/Arrival/Tiger.mp3"_s, tags);
    lookAgain();
    tags.title = u"And a longer one"_s;
    m_maker.makeSong(music() + u"Abba/Arrival/Tiger.mp3"_s, tags);
    carryOut(u"has changed again meanwhile"_s);
    lookAgain();
    EXPECT_EQ(found(),
              QStringList{u"x|Changed|Tiger, \"new\"|ABBA!|Song Name|Tiger, \"new\"|And a longer one"_s});
}

TEST_F(TheUpdate, AVolumeThatIsAwayTakesNoSongWithIt)
{
    rename({}, u"../elsewhere"_s);
    m_desktop.willAnswer(Answer::No, u"None of the 4 songs in this folder was found"_s);
    look();
    EXPECT_EQ(found(), QStringList());
    EXPECT_TRUE(child<QLabel>(*m_form, u"lblMessage"_s)->text().contains(u"4 songs in"_s));
    ASSERT_TRUE(QDir(music()).mkpath(u"."_s));
    m_desktop.willAnswer(Answer::No, u"None of the 4 songs"_s);
    lookAgain();
    EXPECT_EQ(found(), QStringList()) << "an empty mount point";
    m_desktop.willAnswer(Answer::Yes, u"None of the 4 songs"_s);
    lookAgain();
    ASSERT_EQ(found().size(), 4);
    EXPECT_FALSE(child<QPushButton>(*m_form, u"cmdUpdate"_s)->isEnabled()) << "gone songs have no tick";
    click(*m_form, u"cmdAll"_s);
    EXPECT_FALSE(child<QPushButton>(*m_form, u"cmdUpdate"_s)->isEnabled());
    click(*m_form, u"cmdShowGone"_s);
    settle();
    EXPECT_EQ(grid().model()->rowCount(), 4);
    m_desktop.willAnswer(Answer::Yes, u"None of the 4 songs"_s);
    look();
    click(*m_form, u"cmdKindGone"_s);
    click(*m_form, u"cmdAll"_s);
    m_desktop.willAnswer(Answer::No, u"4 songs whose files are gone will be deleted"_s);
    click(*m_form, u"cmdUpdate"_s);
    m_desktop.willAnswer(Answer::Yes, u"will be deleted"_s);
    carryOut(u"4 deleted"_s);
    settle();
    EXPECT_EQ(grid().model()->rowCount(), 0);
}

TEST_F(TheUpdate, TellsTwinsDamagedFilesAndOldCataloguesApart)
{
    // Nothing is known of the files, as in a catalogue of an earlier version, and one was written to since.
    execute(u"Delete * From tblFiles"_s);
    execute(u"Update tblContacts Set DateUpdated = #2001-01-01# Where SongName = 'Queen'"_s);
    execute(u"Update tblContacts Set SongName = 'My Queen' Where SongName = 'Queen'"_s);
    execute(u"Update tblContacts Set SongName = 'My Tiger' Where SongName = 'Tiger'"_s);
    look();
    EXPECT_EQ(found(), QStringList{u"-|Changed|My Queen|Abba|Song Name|My Queen|Queen|Changed in the file or "
                                   "here, nobody knows"_s});
    // The same sound in two places, without the times and inodes that tell more.
    ASSERT_TRUE(QFile::copy(music() + u"Björk/Jóga.ogg"_s, music() + u"Björk/1.ogg"_s));
    ASSERT_TRUE(QFile::copy(music() + u"Björk/Jóga.ogg"_s, music() + u"Björk/2.ogg"_s));
    ASSERT_TRUE(QFile::remove(music() + u"Björk/Jóga.ogg"_s));
    QFile damaged(music() + u"Abba/Arrival/Money.flac"_s);
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly | QIODevice::Truncate));
    damaged.close();
    lookAgain();
    const QStringList rows = found();
    EXPECT_TRUE(rows.contains(u"-|Unreadable|Money|Abba|Abba/Arrival/Money.flac|The file is empty"_s))
        << rows.join(u"\n"_s).toStdString();
    EXPECT_EQ(rows.filter(u"-|Moved|Jóga|Björk|File Name|Jóga.ogg|"_s).size(), 1)
        << rows.join(u"\n"_s).toStdString();
    EXPECT_EQ(rows.filter(u"One of several that are alike"_s).size(), 1) << rows.join(u"\n"_s).toStdString();
    EXPECT_EQ(rows.filter(u"x|New|"_s).size(), 1) << rows.join(u"\n"_s).toStdString();
}

/** Lines of the check that found something: how many, and what. */
QStringList findings(const QObject &check)
{
    const auto *list = child<QTreeWidget>(check, u"listFindings"_s);
    QStringList lines;
    for (int row = 0; row < list->topLevelItemCount(); ++row) {
        const QTreeWidgetItem &item = *list->topLevelItem(row);
        if (item.text(0) != "0"_L1)
            lines.append(item.text(0) + u' ' + item.text(1));
    }
    lines.sort();
    return lines;
}

TEST_F(TheUpdate, TheCheckFindsEachFaultAndLeadsToItsSongs)
{
    execute(
        u"Update tblContacts Set Artist = 'The ABBA', PicturePath1 = 'gone.jpg' Where SongName = 'Tiger'"_s);
    execute(u"Update tblContacts Set SongName = ' ' Where SongName = 'Queen'"_s);
    execute(u"Insert Into tblPlayListDetail (ListID, ListTrackID, ContactRecordID) Select 1, RecordID, "
            "RecordID + 1000 From tblContacts"_s);
    ASSERT_TRUE(QFile::remove(music() + u"Abba/Arrival/Money.flac"_s));
    rename(u"Björk/Jóga.ogg"_s, u"Björk/Joga.ogg"_s);
    QFile empty(music() + u"Abba/Arrival/Queen.m4a"_s);
    ASSERT_TRUE(empty.open(QIODevice::WriteOnly | QIODevice::Truncate));
    empty.close();
    chooseMenu(screen(), u"mnuCheckCatalogue"_s);
    QPointer<frmCheck> check = screen().findChild<frmCheck *>();
    ASSERT_TRUE(check);
    settle();
    EXPECT_EQ(findings(*check), (QStringList{u"1 Empty file, or one that can't be reached"_s,
                                             u"1 File missing, though its volume is there"_s,
                                             u"1 File moved or renamed"_s, u"1 No song name or no artist"_s,
                                             u"1 Picture missing"_s, u"3 Artists in two spellings"_s,
                                             u"4 Track of a play list whose song was deleted"_s}));
    auto *list = child<QTreeWidget>(*check, u"listFindings"_s);
    list->setCurrentItem(list->findItems(u"Track of"_s, Qt::MatchStartsWith, 1).value(0));
    m_desktop.willAnswer(Answer::Yes, u"4 tracks"_s);
    click(*check, u"cmdRepair"_s);
    EXPECT_EQ(findings(*check).size(), 6);
    list->setCurrentItem(list->findItems(u"Artists"_s, Qt::MatchStartsWith, 1).value(0));
    click(*check, u"cmdShow"_s);
    settle();
    EXPECT_EQ(grid().model()->rowCount(), 3);
}

TEST_F(TheUpdate, WhatIsDroppedIsAskedAboutAndAdded)
{
    const QString other = m_dir.filePath(u"other/"_s);
    QDir().mkpath(other);
    for (const QString &name : {u"a.mp3"_s, u"b.mp3"_s, u"c.mp3"_s})
        m_maker.makeSong(other + name, {});
    const auto drop = [&](const QStringList &paths) {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString &path : paths)
            urls.append(QUrl::fromLocalFile(path));
        data.setUrls(urls);
        QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&screen(), &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent event({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&screen(), &event);
        EXPECT_TRUE(QTest::qWaitFor([this] { return m_desktop.answersLeft() == 0; }));
        settle();
    };
    m_desktop.willAnswer(Answer::No, u"Add the folder %1 including"_s.arg(other));
    drop({other});
    EXPECT_EQ(grid().model()->rowCount(), 4);
    m_desktop.willAnswer(Answer::Yes, u"Add 2 music files"_s).willSee(u"songs added to database: 2"_s);
    drop({other + u"a.mp3"_s, other + u"b.mp3"_s, other + u"no.txt"_s});
    EXPECT_EQ(grid().model()->rowCount(), 6);
    drop({other + u"no.txt"_s});
}

} // namespace

} // namespace quaverly::test
