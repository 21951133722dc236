// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/Backups.h"
#include "catalogue/BackupLimit.h"
#include "catalogue/CatalogueSchema.h"
#include "catalogue/frmRestoreBackup.h"
#include "platform/options/OptionsStore.h"
#include "support/Files.h"
#include "support/Limits.h"
#include "support/ScriptedDesktop.h"
#include "support/UserActs.h"
#include "support/store/StoreFixture.h"

#include <QTreeWidget>

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

/** A catalogue of a few songs whose copies are looked at. */
class TheCopies : public testing::Test
{
protected:
    TheCopies()
    {
        for (int i = 0; i < 5; ++i)
            data.addSong(Song(u"Song %1"_s.arg(i)).with(u"Notes"_s, QString(100'000, u'x')));
    }
    [[nodiscard]] QString at(const QString &name) const { return data.path(u"Backups/"_s + name); }
    [[nodiscard]] QStringList names() const
    {
        return QDir(at({})).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }
    void fake(const QString &date) { writeFile(at(u"QVdata %1.mdb"_s.arg(date)), {}); }
    static void damage(const QString &path)
    {
        writeFile(path, bytesOf(path).replace(20'000, 40'000, QByteArray(40'000, 'x')));
    }

    StoreFixture data;
    ScriptedDesktop desktop;
    OptionsStore options{data.path(u"options.ini"_s)};
    Backups backups{desktop, data.catalogue(), data.engine(), options};
};

TEST_F(TheCopies, HoldWhatTheCatalogueHeld)
{
    // Pending in the log, not yet in the file.
    data.addSong(Song(u"the last"_s));
    ASSERT_TRUE(backups.beforeBulkCommand(u"Find and Replace Text"_s));
    data.db().Execute(u"Delete * from tblContacts"_s);
    ASSERT_TRUE(backups.beforeBulkCommand(u"Find and Replace Text"_s));
    const std::vector<Backup> list = backups.list();
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0].command, u"Find and Replace Text"_s);
    EXPECT_EQ(list[0].songs, 0);
    EXPECT_EQ(list[1].songs, 6);
    EXPECT_LE(list[1].made.secsTo(QDateTime::currentDateTime()), 60);
    EXPECT_EQ(list[1].bytes, QFileInfo(list[1].path).size());
    for (const Backup &backup : list)
        EXPECT_TRUE(backups.check(backup));
    EXPECT_EQ(names().size(), 2) << "nothing beside them";
    dao::DBEngine elsewhere(catalogueSchema());
    EXPECT_EQ(elsewhere.OpenDatabase(list[1].path)->OpenRecordset(u"tblContacts"_s)->RecordCount(), 6);
}

TEST_F(TheCopies, AreThinnedToTenAndTheFirstOfEachDay)
{
    for (const auto &date : {u"2020-02-01 08.00.00"_s, u"2020-02-01 08.00.00 (2)"_s, u"2020-02-01 23.59.59"_s,
                             u"2020-02-03 10.00.00"_s, u"2020-02-03 09.00.00"_s, u"2020-02-03 11.00.00"_s})
        fake(date);
    for (int hour = 10; hour < 19; ++hour)
        fake(u"2020-02-03 %1.30.00"_s.arg(hour));
    for (const auto *other : {"QVdata 2020-02-01 25.00.00.mdb", "QVdata b 2020-02-01 09.00.00.mdb", "notes"})
        fake(QString::fromLatin1(other));
    for (const auto &ending : {u""_s, u"-journal"_s})
        writeFile(at(u"QVdata 2020-02-03 08.00.00.mdb.part"_s + ending));
    const qsizetype before = names().size();
    // From 11.00 on there are the ten newest.
    ASSERT_TRUE(backups.beforeBulkCommand(u"Test"_s, at(u"QVdata 2020-02-01 23.59.59.mdb"_s)));
    const QStringList left = names();
    EXPECT_EQ(left.size(), before + 1 - 5);
    for (const auto &gone :
         {u"2020-02-01 08.00.00 (2).mdb"_s, u"2020-02-03 10.00.00.mdb"_s, u"2020-02-03 10.30.00.mdb"_s,
          u"2020-02-03 08.00.00.mdb.part"_s, u"2020-02-03 08.00.00.mdb.part-journal"_s})
        EXPECT_FALSE(left.contains(u"QVdata "_s + gone)) << qPrintable(gone);
    EXPECT_TRUE(left.contains(u"QVdata 2020-02-01 23.59.59.mdb"_s)) << "spared";
    ASSERT_TRUE(backups.beforeBulkCommand(u"Find and Replace Text"_s));
    EXPECT_FALSE(names().contains(u"QVdata 2020-02-01 23.59.59.mdb"_s));
    EXPECT_EQ(backups.list().size(), 12U);
}

TEST_F(TheCopies, TakeNoMoreRoomThanTheyMayButTheLastOneStays)
{
    data.addSong(Song(u"large"_s).with(u"Notes"_s, QString(2'000'000, u'x')));
    ASSERT_TRUE(backups.beforeBulkCommand(u"Test"_s));
    const qint64 size = backups.list()[0].bytes;
    QFile::remove(backups.list()[0].path);
    EXPECT_EQ(BackupLimit(options).bytes(1000, 200'000), 10'000);
    EXPECT_EQ(BackupLimit(options).bytes(1000, 20'000), 2'000);
    for (const QString &wrong : {u"-1"_s, u"1.5"_s, u"many"_s}) {
        desktop.willType(wrong).willSee(u"Type a whole number of megabytes."_s);
        askForBackupLimit(desktop, options, backups);
    }
    const QString old = u"2020-02-0%1 10.00.00"_s;
    for (int day = 1; day <= 4; ++day)
        writeFile(at(u"QVdata %1.mdb"_s.arg(old.arg(day))), QByteArray(size, 'x'));
    // Two old ones and the new one fit.
    const qint64 megabytes = 3 * size / (1024 * 1024) + 1;
    ASSERT_LT(megabytes * 1024 * 1024, 4 * size);
    desktop.willType(QString::number(megabytes));
    askForBackupLimit(desktop, options, backups);
    EXPECT_TRUE(desktop.lastCall().text.contains(u"There are 4 copies"_s))
        << qPrintable(desktop.lastCall().text);
    EXPECT_EQ(names().size(), 4) << "none goes before there is a new one";
    ASSERT_TRUE(backups.beforeBulkCommand(u"Test"_s));
    EXPECT_EQ(names().size(), 3);
    EXPECT_FALSE(names().contains(u"QVdata %1.mdb"_s.arg(old.arg(2))));
    data.addSong(Song(u"larger"_s).with(u"Notes"_s, QString(megabytes * 1024 * 1024, u'x')));
    ASSERT_TRUE(backups.beforeBulkCommand(u"Test"_s));
    ASSERT_EQ(backups.list().size(), 1U);
    EXPECT_EQ(backups.list()[0].songs, 7);
    desktop.willType(u"0"_s);
    askForBackupLimit(desktop, options, backups);
    EXPECT_EQ(BackupLimit(options).chosenMegabytes(), 0);
}

TEST_F(TheCopies, AreAskedForWhenTheyCannotBeMade)
{
    const auto expectQuestion = [this](const QString &why) {
        for (const Answer answer : {Answer::No, Answer::Yes}) {
            desktop.willAnswer(answer, why);
            EXPECT_EQ(backups.beforeBulkCommand(u"Find and Replace Text"_s), answer == Answer::Yes);
            EXPECT_TRUE(desktop.lastCall().text.startsWith(u"No copy of the database could be made"_s));
            EXPECT_EQ(desktop.lastCall().defaultAnswer, Answer::No);
            EXPECT_FALSE(desktop.isHourglassOn());
        }
    };
    {
        const FullDisk disk(300'000);
        expectQuestion(u"The disk is full."_s);
        EXPECT_EQ(names(), QStringList());
    }
    ASSERT_TRUE(QDir(data.folder()).rmdir(u"Backups"_s));
    writeFile(data.path(u"Backups"_s));
    expectQuestion(u"Path/File access error"_s);
    QFile::remove(data.path(u"Backups"_s));
    for (const int tick : {1, 3})
        desktop.atEvents(desktop.eventsRun() + tick, [this] { desktop.closeWorkingForm(); });
    expectQuestion(u"The window was closed before the copy was complete."_s);
    EXPECT_EQ(names(), QStringList());

    data.close();
    const LockedFolder locked(data.catalogue().DatabaseFile, data.folder(), QFile::ReadOwner);
    data.open();
    EXPECT_TRUE(backups.beforeBulkCommand(u"Find and Replace Text"_s)) << "nothing will change in it";
    EXPECT_EQ(names(), QStringList());
}

TEST_F(TheCopies, AreListedForTheUserToChooseASoundOne)
{
    frmRestoreBackup none(desktop, RestoreBackup(desktop, backups), true);
    EXPECT_TRUE(child<QLabel>(none, u"lblMessage"_s)->text().startsWith(u"There are no copies"_s));
    ASSERT_TRUE(backups.beforeBulkCommand(u"Find and Replace Text"_s));
    ASSERT_TRUE(backups.beforeBulkCommand(u"Find and Replace Text"_s));
    damage(backups.list()[0].path);
    fake(u"2020-02-03 10.00.00"_s);
    QList<Backup> wanted;
    frmRestoreBackup screen(desktop, RestoreBackup(desktop, backups), false);
    QObject::connect(&screen, &frmRestoreBackup::restoreWanted,
                     [&](const Backup &backup) { wanted.append(backup); });
    screen.show();
    auto *list = child<QTreeWidget>(screen, u"listBackups"_s);
    auto *restore = child<QWidget>(screen, u"cmdRestore"_s);
    ASSERT_EQ(list->topLevelItemCount(), 3);
    EXPECT_EQ(list->topLevelItem(1)->text(1), u"Find and Replace Text"_s);
    EXPECT_EQ(list->topLevelItem(1)->text(2), u"5"_s);
    EXPECT_EQ(list->topLevelItem(2)->text(1), QString());
    EXPECT_EQ(list->topLevelItem(2)->text(2), u"cannot be read"_s);
    for (const int bad : {0, 2}) {
        list->setCurrentItem(list->topLevelItem(bad));
        desktop.willSee(u"This copy cannot be restored."_s);
        click(restore);
        EXPECT_TRUE(screen.isVisible());
    }
    key(list, Qt::Key_Up);
    desktop.willAnswer(Answer::No, u", with 5 songs."_s);
    click(restore);
    EXPECT_EQ(desktop.lastCall().defaultAnswer, Answer::No);
    EXPECT_TRUE(screen.isVisible() && wanted.isEmpty());
    desktop.willAnswer(Answer::Yes);
    key(list, Qt::Key_Return);
    ASSERT_EQ(wanted.size(), 1);
    EXPECT_EQ(wanted[0].path, backups.list()[1].path);
    EXPECT_FALSE(screen.isVisible());
    EXPECT_EQ(names().size(), 3) << "looking left nothing";
}

} // namespace
