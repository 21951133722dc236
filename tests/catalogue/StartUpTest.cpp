// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/StartUp.h"
#include "catalogue/CatalogueSchema.h"
#include "catalogue/DuplicateQueries.h"
#include "catalogue/RenameNotes.h"
#include "catalogue/ShutDown.h"
#include "platform/options/OptionsStore.h"
#include "platform/options/SingleInstance.h"
#include "platform/store/History.h"
#include "support/Files.h"
#include "support/ScriptedDesktop.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

/** A machine with the program in one folder and the user's data in another; start() starts it. */
class TheStart : public ::testing::Test
{
protected:
    TheStart()
    {
        for (const auto *name : {"program", "data", "elsewhere", "run"})
            QDir(m_root.path()).mkdir(QString::fromLatin1(name));
    }
    QString folder(const char *name) const { return m_root.filePath(QString::fromLatin1(name)) + u'/'; }
    QString makeCatalogue(const char *name)
    {
        const QString file = folder(name) + u"QVdata.mdb"_s;
        engine.CreateEmpty(file);
        return file;
    }
    StartResult start(const QString &commandLine = {})
    {
        instance.emplace(folder("run"));
        StartContext context;
        context.commandLine = commandLine;
        context.folders = {folder("program"), folder("data"), programIsWritable};
        context.systemVersion = version;
        context.mousePresent = mouse;
        context.tabletPc = true;
        StartUp startUp(catalogue, options, engine, desktop, store, *instance, context,
                        {[this] {
                             ++shown;
                             if (failWhenShown)
                                 throw dao::DaoError(*failWhenShown, u"Out of order."_s);
                         },
                         [this](const QString &file) { played.append(file); }});
        return startUp.run();
    }
    QString stored() const { return store.GetSetting(u"Options"_s, u"Database Location"_s); }
    void expectEnd(StartResult result)
    {
        EXPECT_EQ(result, StartResult::End);
        EXPECT_EQ(shown, 0);
        EXPECT_FALSE(catalogue.CatalogueDb);
    }

    QTemporaryDir m_root;
    dao::DBEngine engine{catalogueSchema()};
    ScriptedDesktop desktop;
    OptionsStore store{m_root.filePath(u"options.ini"_s)};
    std::optional<SingleInstance> instance;
    Catalogue catalogue;
    Options options;
    double version = 6.02;
    bool mouse = true;
    bool programIsWritable = true;
    std::optional<int> failWhenShown;
    int shown = 0;
    QStringList played;
};

TEST_F(TheStart, OpensTheCatalogueOfTheDefaultFolderAndCompletesIt)
{
    const QString file = makeCatalogue("data");
    ASSERT_EQ(start(), StartResult::Running);
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(catalogue.DatabaseFile, file);
    EXPECT_EQ(catalogue.DatabaseFolder, folder("data"));
    EXPECT_TRUE(catalogue.ContactsTable->atBOF() && catalogue.ContactsTable->atEOF());
    for (const DuplicateQuery &query : duplicateQueries())
        EXPECT_EQ(catalogue.CatalogueDb->QueryDefs(query.name).SQL, QString(query.sql));
    EXPECT_EQ(options.ScreenFont, u"Arial"_s);
    EXPECT_EQ(options.RptLinesPerPage, u"54"_s);
    EXPECT_FALSE(options.TabletActive);
    EXPECT_EQ(stored(), QString());
}

TEST_F(TheStart, CopiesAnOlderCatalogueBeforeItBringsItUpToDate)
{
    const QString file = folder("data") + u"QVdata.mdb"_s;
    dao::DBEngine older(catalogueSchema(2));
    older.CreateEmpty(file);
    older.OpenDatabase(file)->Execute(u"Insert Into tblContacts (SongName) Values ('SOS')"_s);
    const QByteArray before = bytesOf(file);

    const QDir copies(folder("data") + u"Backups"_s);
    writeFile(copies.path());
    desktop.willAnswer(Answer::No, u"No copy of the database could be made"_s);
    expectEnd(start());
    EXPECT_EQ(bytesOf(file), before);
    QFile::remove(copies.path());

    ASSERT_EQ(start(), StartResult::Running);
    ASSERT_EQ(copies.entryList(QDir::Files).size(), 1);
    const QString copy = copies.filePath(copies.entryList(QDir::Files).front());
    EXPECT_TRUE(copy.endsWith("before Update of the Database.mdb"_L1));
    EXPECT_EQ(older.OpenDatabase(copy)->OpenRecordset(u"tblContacts"_s)->text(u"SongName"_s), u"SOS"_s);

    // What the new fields get is kept in the journal as that of the others is.
    dao::Database &present = *catalogue.CatalogueDb;
    present.Execute(u"Update tblContacts Set AlbumArtist='Abba', Disc='2', DateAdded=#2020-02-29#"_s);
    present.endChange();
    present.Execute(u"Delete * From tblContacts"_s);
    present.endChange();
    dao::History history(present);
    const auto song = [&present] {
        const auto rows =
            present.OpenRecordset(u"Select AlbumArtist & Disc & Year(DateAdded) From tblContacts"_s);
        return rows->isEmpty() ? QString() : rows->text(rows->Fields().front().name);
    };
    for (const QString &expected : {u"Abba22020"_s, QString()}) {
        EXPECT_TRUE(history.takeBack(*history.undoable()).empty());
        EXPECT_EQ(song(), expected);
    }
}

TEST_F(TheStart, EndsARenameThatWasCutOffAndTellsWhatItCouldNot)
{
    const QString file = makeCatalogue("data");
    const QString there = folder("elsewhere");
    writeFile(there + u"new.mp3"_s);
    writeFile(there + u"taken.mp3"_s, "mine");
    Catalogue before;
    before.CatalogueDb = engine.OpenDatabase(file);
    for (const auto &name : {u"old.mp3"_s, u"mine.mp3"_s, u"taken.mp3"_s})
        before.CatalogueDb->Execute(
            u"Insert Into tblContacts (SongName, PathName, FileName) Values ('%2', '%1', '%2')"_s.arg(there,
                                                                                                      name));
    RenameNotes(before).keep(1, {there, u"old.mp3"_s}, {there, u"new.mp3"_s});
    RenameNotes(before).keep(2, {there, u"mine.mp3"_s}, {there, u"taken.mp3"_s});
    before.CatalogueDb.reset();
    desktop.willSee(u"The file of \"mine.mp3\" was renamed"_s);
    ASSERT_EQ(start(), StartResult::Running);
    catalogue.ContactsTable->MoveFirst();
    EXPECT_EQ(catalogue.ContactsTable->text(u"FileName"_s), u"new.mp3"_s);
    EXPECT_EQ(bytesOf(there + u"mine.mp3"_s), "mine");
}

TEST_F(TheStart, WritesNothingToACatalogueThatIsWhole)
{
    const QString file = makeCatalogue("data");
    ASSERT_EQ(start(), StartResult::Running);
    ShutDown(catalogue).leaveMainScreen();
    ShutDown(catalogue).closeCatalogue();
    const QByteArray before = bytesOf(file);
    catalogue.DatabaseFile.clear();
    ASSERT_EQ(start(), StartResult::Running);
    catalogue.ContactsTable.reset();
    ShutDown(catalogue).closeCatalogue();
    EXPECT_TRUE(bytesOf(file) == before);
}

TEST_F(TheStart, ReadsTheMachineAndTheOptions)
{
    const QString besideTheProgram = makeCatalogue("program");
    saveOption(store, keys::Font, u"Carlito"_s);
    saveOption(store, keys::DatabaseLocation, folder("elsewhere"));
    ASSERT_EQ(start(), StartResult::Running);
    EXPECT_EQ(catalogue.DatabaseFile, besideTheProgram);
    EXPECT_EQ(catalogue.DatabaseFolder, folder("program"));
    EXPECT_EQ(stored(), folder("elsewhere"));

    ShutDown(catalogue).closeCatalogue();
    catalogue = {};
    makeCatalogue("elsewhere");
    mouse = false;
    version = 10.0;
    ASSERT_EQ(start(), StartResult::Running);
    EXPECT_TRUE(options.TabletActive);
    EXPECT_EQ(options.ScreenFont, u"Carlito"_s);
    EXPECT_EQ(catalogue.DatabaseFolder, folder("elsewhere"));
    // Only the first character of the version's text counts.
    EXPECT_EQ(options.WindowsVersionMajor, 1);
    EXPECT_TRUE(runsFromSource(u"/home/a/Source/bin/"_s));
    EXPECT_FALSE(runsFromSource(u"/usr/bin/"_s));
}

TEST_F(TheStart, AnInstalledProgramGivesANewUserAnEmptyCatalogue)
{
    QFile::setPermissions(makeCatalogue("program"), QFile::ReadOwner);
    QDir(folder("data")).removeRecursively();
    programIsWritable = false;
    ASSERT_EQ(start(), StartResult::Running);
    EXPECT_EQ(catalogue.DatabaseFile, folder("data") + u"QVdata.mdb"_s);
    EXPECT_EQ(catalogue.DatabaseFolder, folder("data"));
    EXPECT_TRUE(catalogue.CatalogueDb->Updatable());
    EXPECT_TRUE(QFileInfo(catalogue.DatabaseFile).permissions() & QFile::WriteOwner);
    EXPECT_EQ(stored(), QString());
}

TEST_F(TheStart, AnInstalledProgramAsksAUserWhoseCatalogueIsAway)
{
    makeCatalogue("program");
    programIsWritable = false;
    saveOption(store, keys::DatabaseLocation, folder("elsewhere"));
    desktop.willSee(folder("elsewhere")).willOpen(std::nullopt).willSee(u"3024"_s);
    expectEnd(start());
    EXPECT_FALSE(QFile::exists(folder("data") + u"QVdata.mdb"_s));
}

TEST_F(TheStart, AsksForTheCatalogueAndKeepsItsFolder)
{
    const QString file = makeCatalogue("elsewhere");
    desktop.willSee(u"Database file %1QVdata.mdb not found."_s.arg(folder("data"))).willOpen(file);
    ASSERT_EQ(start(), StartResult::Running);
    EXPECT_EQ(catalogue.DatabaseFile, file);
    EXPECT_EQ(stored(), folder("elsewhere"));
}

TEST_F(TheStart, OpensACatalogueNamedOnTheCommandLine)
{
    makeCatalogue("data");
    QDir(folder("elsewhere")).mkdir(u"my songs"_s);
    const QString file = folder("elsewhere") + u"my songs/QVdata.mdb"_s;
    engine.CreateEmpty(file);
    ASSERT_EQ(start(u" \""_s + file + u"\" "_s), StartResult::Running);
    EXPECT_EQ(catalogue.DatabaseFile, file);
    EXPECT_EQ(catalogue.DatabaseFolder, folder("data"));
}

TEST_F(TheStart, PlaysAMusicFileWithoutTheCatalogueAndRefusesWhatIsNoFile)
{
    desktop.willSee(u"cannot be found.  You specified file name /m/x.mp4"_s);
    expectEnd(start(u"\"/m/x.mp4\""_s));
    EXPECT_TRUE(played.isEmpty());
    catalogue = {};
    expectEnd(start(u"\"/my music/a.FLAC\""_s));
    EXPECT_EQ(played, QStringList(u"/my music/a.FLAC"_s));
    EXPECT_TRUE(options.PlayerOnlyMode);
}

TEST_F(TheStart, ASecondOneEndsAndAMusicFileBringsTheFirstToTheFront)
{
    SingleInstance running(folder("run"));
    QSignalSpy raised(&running, &SingleInstance::raiseRequested);
    const QString file = makeCatalogue("elsewhere");
    desktop.willSee(u"not found."_s).willOpen(file).willSee(u"already running!"_s);
    expectEnd(start());
    EXPECT_EQ(stored(), folder("elsewhere")) << "it found the catalogue first";
    QCoreApplication::processEvents();
    EXPECT_EQ(raised.count(), 0);
    catalogue = {};
    desktop.willSee(u"Quaverly is already running!  Make sure both"_s);
    expectEnd(start(u"/m/a.mp3"_s));
    EXPECT_TRUE(played.isEmpty());
    EXPECT_TRUE(QTest::qWaitFor([&] { return raised.count() == 1; }));
}

TEST_F(TheStart, WithAPasswordGivesTwoChancesAndEndsWithTheErrorOrSilently)
{
    engine.OpenDatabase(makeCatalogue("data"))->NewPassword({}, u"abba"_s);
    desktop.willType(u"x"_s).willType({});
    expectEnd(start());
    desktop.willType(u"x"_s).willType(u"y"_s).willSee(u"    Error number: 3031"_s);
    expectEnd(start());
    desktop.willType(u"Abba!"_s).willType(u"abba"_s);
    ASSERT_EQ(start(), StartResult::Running);
    EXPECT_EQ(desktop.lastCall().text, u"Type your password.  You have two chances to get it right."_s);
    EXPECT_TRUE(desktop.lastCall().password);
}

/** A start whose catalogue holds a song, and has lost the page with its stored queries. */
class TheDamagedStart : public TheStart
{
protected:
    TheDamagedStart()
    {
        const QString file = makeCatalogue("data");
        {
            const auto db = engine.OpenDatabase(file);
            const auto songs = db->OpenRecordset(u"tblContacts"_s);
            songs->AddNew();
            songs->setValue(u"SongName"_s, u"SOS"_s);
            songs->Update();
        }
        losePageWith("SELECT tblContacts.*", file);
    }
    static void losePageWith(const char *text, const QString &path)
    {
        QByteArray bytes = bytesOf(path);
        const qsizetype place = bytes.indexOf(text);
        ASSERT_GE(place, 0);
        writeFile(path, bytes.replace(place - place % PageSize, Damage, QByteArray(Damage, 'Q')));
    }
    QStringList catalogues() { return QDir(folder("data")).entryList({u"*.mdb"_s}, QDir::Files, QDir::Name); }

    static constexpr qsizetype PageSize = 4096;
    static constexpr qsizetype Damage = 3000;
};

TEST_F(TheDamagedStart, IsRepairedOnRequest)
{
    const QStringList before = catalogues();
    desktop.willAnswer(Answer::Cancel, u"Database may be corrupted."_s);
    expectEnd(start());
    // A folder stands where the repaired file is to be written.
    QDir(folder("data")).mkdir(u"QVdata.mdb.repair"_s);
    desktop.willAnswer(Answer::Ok, u"Database may be corrupted."_s).willSee(u"    Error number: "_s);
    expectEnd(start());
    EXPECT_EQ(catalogues(), before);
    QDir(folder("data")).rmdir(u"QVdata.mdb.repair"_s);

    desktop.willAnswer(Answer::Ok, u"Press the OK button if you want Quaverly to attempt to repair it."_s)
        .willSee(u"The database was repaired"_s);
    ASSERT_EQ(start(), StartResult::Running);
    const QString told = desktop.lastCall().text;
    EXPECT_TRUE(told.contains(u"\nSongs: 1 of 1 saved, 0 lost\n"_s)) << qPrintable(told);
    EXPECT_TRUE(told.contains(u"The damaged file is kept as:\n"_s + folder("data") + u"QVdata damaged "_s))
        << qPrintable(told);
    EXPECT_EQ(catalogue.ContactsTable->text(u"SongName"_s), u"SOS"_s);
    ASSERT_EQ(catalogues().size(), 2);
    EXPECT_TRUE(catalogues().filter(u"damaged "_s).size() == 1);
}

TEST_F(TheDamagedStart, OffersTheRepairOnce)
{
    failWhenShown = dao::CannotOpenFile;
    desktop.willAnswer(Answer::Ok, u"Database may be corrupted."_s)
        .willSee(u"The database was repaired"_s)
        .willSee(u"Out of order.    Error number: 3049"_s);
    EXPECT_EQ(start(), StartResult::End);
    EXPECT_EQ(shown, 1);
    EXPECT_FALSE(desktop.isHourglassOn());
}

TEST_F(TheStart, AFileOfAnotherKindIsNoCaseForRepair)
{
    writeFile(folder("data") + u"QVdata.mdb"_s, "Standard text file, and no catalogue at all. ");
    desktop.willSee(u"    Error number: "_s);
    expectEnd(start());
}

TEST_F(TheStart, ReenteredOpensTheFileThatWasSetAndLooksAtNothingElse)
{
    makeCatalogue("data");
    ASSERT_EQ(start(), StartResult::Running);
    catalogue.ContactsTable->AddNew();
    catalogue.ContactsTable->setValue(u"Selected"_s, u"x"_s);
    catalogue.ContactsTable->Update();
    const QString first = catalogue.DatabaseFile;

    const QString second = makeCatalogue("elsewhere");
    ShutDown shutDown(catalogue);
    EXPECT_TRUE(shutDown.endsProcess(false));
    EXPECT_FALSE(shutDown.endsProcess(true));
    catalogue.DatabaseFile = second;
    catalogue.DatabaseFolder = folder("elsewhere");
    catalogue.SwitchingCatalogue = true;
    EXPECT_FALSE(shutDown.endsProcess(false));
    shutDown.leaveMainScreen();
    shutDown.closeCatalogue();
    saveOption(store, keys::Font, u"Carlito"_s);
    ASSERT_EQ(start(u"/m/nowhere.mp3"_s), StartResult::Running);
    EXPECT_EQ(catalogue.CatalogueDb->Name(), second);
    EXPECT_FALSE(catalogue.SwitchingCatalogue);
    EXPECT_EQ(options.ScreenFont, u"Arial"_s);
    EXPECT_EQ(shown, 2);
    EXPECT_EQ(stored(), QString());

    const auto left = engine.OpenDatabase(first);
    EXPECT_EQ(left->OpenRecordset(u"Select * from tblContacts Where Selected='x'"_s)->RecordCount(), 0);
    EXPECT_EQ(left->OpenRecordset(u"Select * from tblContacts Where Selected=' '"_s)->RecordCount(), 1);
}

} // namespace
