// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/CatalogueCommands.h"
#include "catalogue/CatalogueSchema.h"
#include "catalogue/Options.h"
#include "catalogue/StartUp.h"
#include "platform/options/OptionsStore.h"
#include "platform/options/SingleInstance.h"
#include "support/Files.h"
#include "support/Limits.h"
#include "support/ScriptedDesktop.h"
#include "support/store/StoreFixture.h"

#include <QLocale>

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

/** A program without widgets around the commands, started on a catalogue with one song. */
class TheCatalogue : public ::testing::Test
{
protected:
    TheCatalogue()
    {
        QDir(data.folder()).mkdir(u"other"_s);
        mark(data.addSong(Song(u"SOS"_s, u"Abba"_s)));
        EXPECT_EQ(startUp.run(), StartResult::Running);
        acts.clear();
    }
    ~TheCatalogue() override { data.close(); }
    CatalogueHooks hooks()
    {
        return {[this] { does(u"show all"_s); },
                [this] { return screens; },
                [this] { does(u"unload player"_s); },
                [this](bool compacting) { unloadMainScreen(compacting); },
                [this] { does(u"forget lists"_s); },
                [this] { return startUp.run() == StartResult::Running; },
                [this] { does(u"end"_s); }};
    }
    void does(const QString &act)
    {
        if (act == failing)
            throw dao::DaoError(dao::Internal, u"Out of order."_s);
        acts.append(act);
    }
    void unloadMainScreen(bool compacting)
    {
        does(compacting ? u"unload compacting"_s : u"unload"_s);
        ShutDown shutDown(data.catalogue());
        shutDown.leaveMainScreen();
        if (whenUnloaded)
            whenUnloaded();
        if (!shutDown.endsProcess(compacting))
            return;
        shutDown.closeCatalogue();
        does(u"end"_s);
    }
    void mark(qint64 song)
    {
        data.db().Execute(u"Update tblContacts Set Selected='x' Where RecordID=%1"_s.arg(song));
    }
    QString makeOther(const QString &name = u"QVdata.mdb"_s)
    {
        const QString path = data.path(u"other/"_s + name);
        data.engine().CreateEmpty(path);
        return path;
    }
    QStringList songs() { return data.column(u"Select SongName from tblContacts"_s); }
    QStringList filesLeft() { return QDir(data.folder()).entryList(QDir::Files, QDir::Name); }
    /** The catalogue of the start is open, with its main screen, and closes to one file. */
    void expectOldCatalogue(const QStringList &done)
    {
        EXPECT_EQ(acts, done + QStringList(u"show "_s + file));
        EXPECT_EQ(data.catalogue().DatabaseFolder, data.folder());
        EXPECT_FALSE(data.catalogue().SwitchingCatalogue);
        EXPECT_EQ(data.db().Name(), file);
        EXPECT_TRUE(songs().contains(u"SOS"_s));
        EXPECT_FALSE(desktop.isHourglassOn());
        acts.clear();
    }

    StoreFixture data;
    const QString file = data.catalogue().DatabaseFile;
    ScriptedDesktop desktop;
    OptionsStore store{data.path(u"options.ini"_s)};
    SingleInstance instance{data.path(u"other/"_s)};
    Options options;
    QStringList acts;
    QString failing;
    int screens = 1;
    std::function<void()> whenUnloaded;
    StartUp startUp{data.catalogue(),
                    options,
                    data.engine(),
                    desktop,
                    store,
                    instance,
                    {},
                    {[this] { does(u"show "_s + data.catalogue().DatabaseFile); }, {}}};
    CatalogueCommands commands{desktop, data.catalogue(), data.engine(), store, hooks()};
};

const QStringList Changed = {u"show all"_s, u"forget lists"_s, u"unload player"_s, u"unload"_s};

TEST_F(TheCatalogue, StaysWhenNoOtherIsChosenOrTheListCannotBeShown)
{
    desktop.willOpen(std::nullopt);
    commands.OpenDatabase_Click();
    failing = u"show all"_s;
    desktop.willOpen(makeOther()).willSee(u"Out of order."_s);
    commands.OpenDatabase_Click();
    EXPECT_EQ(acts, QStringList());
    EXPECT_EQ(data.catalogue().DatabaseFile, file);
    EXPECT_FALSE(data.catalogue().SwitchingCatalogue);
    EXPECT_EQ(songs(), QStringList(u"SOS"_s));
}

TEST_F(TheCatalogue, ComesBackWhenTheOtherCannotBeOpened)
{
    const QString text = data.path(u"other/notes.txt"_s);
    writeFile(text, "no catalogue");
    dao::Schema schema = catalogueSchema();
    schema.migrations.append(u"CREATE TABLE more (x);"_s);
    const QString newer = data.path(u"other/newer.mdb"_s);
    dao::DBEngine(schema).CreateEmpty(newer);
    const QString damaged = makeOther(u"damaged.mdb"_s);
    writeFile(damaged, bytesOf(damaged).left(9000));
    const QString locked = makeOther(u"locked.mdb"_s);
    data.engine().OpenDatabase(locked)->NewPassword({}, u"abba"_s);

    const auto expectRefusal = [&](const QString &other, const std::function<void()> &script) {
        SCOPED_TRACE(other.toStdString());
        const QByteArray before = bytesOf(other);
        desktop.willOpen(other);
        script();
        commands.OpenDatabase_Click();
        expectOldCatalogue(Changed);
        EXPECT_EQ(bytesOf(other), before);
    };
    expectRefusal(text, [&] { desktop.willSee(u"Error number: 3343"_s); });
    expectRefusal(newer, [&] { desktop.willSee(u"newer version"_s); });
    expectRefusal(data.path(u"other/gone.mdb"_s), [&] { desktop.willSee(u"Error number: 3024"_s); });
    expectRefusal(damaged, [&] { desktop.willAnswer(Answer::Cancel, u"Database may be corrupted."_s); });
    expectRefusal(locked, [&] { desktop.willType({}); });
    expectRefusal(locked,
                  [&] { desktop.willType(u"x"_s).willType(u"y"_s).willSee(u"Error number: 3031"_s); });
    failing = u"unload player"_s;
    desktop.willOpen(text).willSee(u"Out of order."_s).willSee(u"Error number: 3343"_s);
    commands.OpenDatabase_Click();
    expectOldCatalogue({u"show all"_s, u"forget lists"_s});
}

TEST_F(TheCatalogue, EndsTheProcessWhenNeitherCanBeOpened)
{
    whenUnloaded = [&] {
        data.catalogue().CatalogueDb.reset();
        QFile::remove(file);
    };
    desktop.willOpen(data.path(u"gone.mdb"_s)).willSee(u"gone.mdb"_s).willSee(u"QVdata.mdb"_s);
    commands.OpenDatabase_Click();
    EXPECT_EQ(acts, Changed + QStringList(u"end"_s));
    EXPECT_FALSE(data.catalogue().CatalogueDb);
}

TEST_F(TheCatalogue, IsNotCompactedUnlessTheUserWantsItAndThePlayerIsClosed)
{
    desktop.willAnswer(Answer::No, u"This will reclaim ununsed space from deleted records"_s);
    commands.mnuCompactDatabase_Click();
    EXPECT_EQ(desktop.lastCall().defaultAnswer, Answer::No);
    screens = 2;
    desktop.willAnswer(Answer::Yes).willSee(u"Make sure the Music Player is closed before running"_s);
    commands.mnuCompactDatabase_Click();
    EXPECT_EQ(acts, QStringList());
}

/** A catalogue with much deleted from it, half a megabyte or more, and a copy left by a crash. */
class TheLooseCatalogue : public TheCatalogue
{
protected:
    TheLooseCatalogue()
    {
        dao::Transaction adding(data.db().workspace());
        for (int i = 0; i < 300; ++i)
            data.addSong(Song(u"Song %1"_s.arg(i)).with(u"Notes"_s, QString::number(i).repeated(1000)));
        adding.commit();
        data.db().ExecuteUnlogged(u"Delete * from tblContacts Where RecordID > 20 and RecordID < 200"_s,
                                  u"Delete some"_s);
        data.reopen();
        writeFile(file + u".temp"_s, "half a copy");
        writeFile(file + u".temp-journal"_s, "half a journal");
        desktop.willAnswer(Answer::Yes);
    }
    void expectFailure(const QString &said)
    {
        const QStringList present = songs();
        desktop.willSee(said);
        commands.mnuCompactDatabase_Click();
        expectOldCatalogue({u"unload compacting"_s});
        EXPECT_EQ(songs(), present);
    }
    /** What the tables hold, the songs in full. */
    QStringList contents()
    {
        QStringList all = data.column(u"Select SongName & Notes & Selected from tblContacts"_s);
        for (const auto &table : {u"tblCategoryID"_s, u"tblPlayListDetail"_s, u"tblSettings"_s})
            all += data.valueOf(u"Select Count(*) from "_s + table).toString();
        return all;
    }
    /** A compacted catalogue and a second copy of it, beside the one that compacting kept. */
    void compactAndCopy()
    {
        desktop.willSee(u"Database compacted."_s);
        commands.mnuCompactDatabase_Click();
        ASSERT_TRUE(commands.backups().beforeBulkCommand(u"Test"_s));
        acts.clear();
    }
};

TEST_F(TheLooseCatalogue, IsCompactedInPlace)
{
    const QString link = data.path(u"other/link.mdb"_s);
    ASSERT_TRUE(QFile::link(file, link));
    data.close();
    data.catalogue().DatabaseFile = link;
    ASSERT_EQ(startUp.run(), StartResult::Running);
    acts.clear();
    const auto rights = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
    ASSERT_TRUE(QFile::setPermissions(file, rights));
    const QStringList before = songs();
    const qint64 oldSize = QFileInfo(file).size();
    ASSERT_GT(oldSize, 500'000);

    desktop.willSee(u"Database compacted.\n\nOld file size: "_s);
    commands.mnuCompactDatabase_Click();
    const qint64 newSize = QFileInfo(file).size();
    EXPECT_LT(newSize, oldSize - 100'000);
    QLocale locale;
    locale.setNumberOptions({});
    EXPECT_EQ(desktop.lastCall().text,
              u"Database compacted.\n\nOld file size: %1 bytes\nNew file size: %2 bytes"_s.arg(
                  locale.toString(oldSize), locale.toString(newSize)));
    EXPECT_EQ(acts, (QStringList{u"unload compacting"_s, u"show "_s + link}));
    EXPECT_EQ(songs(), before);
    EXPECT_TRUE(data.db().Updatable());
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_EQ(QFile::permissions(file), rights);
    data.close();
    EXPECT_EQ(filesLeft(), QStringList(u"QVdata.mdb"_s));
}

TEST_F(TheLooseCatalogue, IsKeptWhenItCannotBeCompacted)
{
    {
        const FullDisk disk(200'000);
        desktop.willAnswer(Answer::Yes, u"No copy of the database could be made"_s);
        expectFailure(u"full"_s);
    }
    QFile::remove(file + u".temp"_s);
    // A folder stands where the compacted file is to be written.
    QDir(data.folder()).mkdir(file + u".temp"_s);
    desktop.willAnswer(Answer::Yes);
    expectFailure(u"already exists"_s);
    QDir(data.folder()).rmdir(file + u".temp"_s);

    dao::DBEngine elsewhere(catalogueSchema());
    const auto open = elsewhere.OpenDatabase(file);
    desktop.willAnswer(Answer::Yes);
    expectFailure(u"in use by another program"_s);
    EXPECT_FALSE(QFileInfo::exists(file + u".temp"_s));
    open->Execute(u"Update tblContacts Set Artist='Abba' Where RecordID=2"_s);
    EXPECT_EQ(data.songValue(2, u"Artist"_s), u"Abba"_s);
}

TEST_F(TheLooseCatalogue, IsKeptWithoutRights)
{
    QFile::remove(file + u".temp"_s);
    std::optional<LockedFolder> locked;
    whenUnloaded = [&] { locked.emplace(data.folder(), data.folder()); };
    expectFailure(u"can't be opened"_s);

    // Open for reading now: nothing is closed for a compaction that can't be.
    desktop.willAnswer(Answer::Yes).willSee(u"read-only"_s);
    commands.mnuCompactDatabase_Click();
    EXPECT_EQ(acts, QStringList());
}

TEST_F(TheCatalogue, IsEmptiedAfterTwoQuestionsAndTheProcessEnds)
{
    data.addCategory(u"Jazz"_s, {1});
    data.addPlayList(u"Mix"_s, {1});
    desktop.willAnswer(Answer::No, u"This will DELETE ALL the records in your database."_s);
    commands.mnuDeleteAll_Click();
    desktop.willAnswer(Answer::Yes).willAnswer(Answer::No, u"WIPE OUT ALL YOUR DATA"_s);
    commands.mnuDeleteAll_Click();
    EXPECT_EQ(songs(), QStringList(u"SOS"_s));
    EXPECT_EQ(acts, QStringList());

    screens = 2; // the player is open, and nobody asks
    desktop.willAnswer(Answer::Yes).willAnswer(Answer::Yes);
    commands.mnuDeleteAll_Click();
    for (const DesktopCall &call : desktop.calls())
        EXPECT_EQ(call.defaultAnswer, Answer::No);
    EXPECT_EQ(acts, (QStringList{u"unload"_s, u"end"_s}));
    EXPECT_FALSE(data.catalogue().CatalogueDb);
    EXPECT_EQ(commands.backups().list().at(0).songs, 1);
    data.open();
    EXPECT_EQ(songs(), QStringList());
    EXPECT_EQ(data.valueOf(u"Select count(*) from tblCategoryID"_s), 1);
    EXPECT_EQ(data.valueOf(u"Select count(*) from tblPlayListDetail"_s), 1);
}

TEST_F(TheCatalogue, IsLeftAloneWhenItCannotBeEmptied)
{
    data.close();
    const LockedFolder locked(file, data.folder(), QFile::ReadOwner);
    ASSERT_EQ(startUp.run(), StartResult::Running);
    acts.clear();
    desktop.willAnswer(Answer::Yes).willAnswer(Answer::Yes).willSee(u"read-only"_s);
    commands.mnuDeleteAll_Click();
    EXPECT_EQ(acts, QStringList());
    EXPECT_EQ(songs(), QStringList(u"SOS"_s));
}

TEST_F(TheLooseCatalogue, GoesBackToACopyAndForthAgain)
{
    compactAndCopy();
    const QStringList before = contents();
    data.db().Execute(u"Delete * from tblContacts Where RecordID > 5"_s);
    data.addCategory(u"Jazz"_s, {1});
    const QStringList after = contents();

    desktop.willSee(u"Database restored.\n\nIt is again as it was on "_s);
    commands.restoreBackup(commands.backups().list().at(0));
    expectOldCatalogue({u"forget lists"_s, u"unload player"_s, u"unload compacting"_s});
    EXPECT_EQ(contents(), before);
    // The compaction kept one copy, the test another, the restoring the third.
    ASSERT_EQ(commands.backups().list().size(), 3U);
    desktop.willSee(u"Database restored."_s);
    commands.restoreBackup(commands.backups().list().at(0));
    EXPECT_EQ(contents(), after);
    data.close();
    EXPECT_EQ(filesLeft(), QStringList(u"QVdata.mdb"_s));
}

TEST_F(TheLooseCatalogue, StaysWhenItCannotGoBack)
{
    compactAndCopy();
    const QStringList before = contents();
    const Backup copy = commands.backups().list().at(0);
    const QStringList closed = {u"forget lists"_s, u"unload player"_s, u"unload compacting"_s};
    {
        const FullDisk disk(200'000);
        desktop.willAnswer(Answer::No, u"No copy of the database could be made"_s);
        commands.restoreBackup(copy);
        EXPECT_EQ(acts, QStringList());
        desktop.willAnswer(Answer::Yes, u"No copy of the database could be made"_s).willSee(u"full"_s);
        commands.restoreBackup(copy);
        expectOldCatalogue(closed);
    }
    {
        dao::DBEngine elsewhere(catalogueSchema());
        const auto open = elsewhere.OpenDatabase(file);
        desktop.willSee(u"in use by another program"_s);
        commands.restoreBackup(copy);
        expectOldCatalogue(closed);
    }
    whenUnloaded = [&] { QFile::remove(copy.path); };
    desktop.willSee(u"File not found"_s);
    commands.restoreBackup(copy);
    expectOldCatalogue(closed);
    EXPECT_EQ(contents(), before);
    data.close();
    EXPECT_EQ(filesLeft(), QStringList(u"QVdata.mdb"_s));
}

} // namespace
