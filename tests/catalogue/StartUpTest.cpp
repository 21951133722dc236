// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/StartUp.h"
#include "catalogue/CatalogueSchema.h"
#include "catalogue/DuplicateQueries.h"
#include "catalogue/RenameNotes.h"
#include "catalogue/ShutDown.h"
#include "platform/options/OptionsStore.h"
#include "platform/options/SingleInstance.h"
#include "support/QtPrinters.h"
#include "support/ScriptedDesktop.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

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

TEST_F(TheStart, EndsARenameThatWasCutOff)
{
    const QString file = makeCatalogue("data");
    QFile song(folder("elsewhere") + u"new.mp3"_s);
    ASSERT_TRUE(song.open(QIODevice::WriteOnly));
    Catalogue before;
    before.CatalogueDb = engine.OpenDatabase(file);
    before.CatalogueDb->Execute(
        u"Insert Into tblContacts (PathName, FileName) Values ('%1', 'old.mp3')"_s.arg(folder("elsewhere")));
    RenameNotes(before).keep(1, folder("elsewhere"), u"old.mp3"_s, folder("elsewhere"), u"new.mp3"_s);
    before.CatalogueDb.reset();
    ASSERT_EQ(start(), StartResult::Running);
    catalogue.ContactsTable->MoveFirst();
    EXPECT_EQ(catalogue.ContactsTable->text(u"FileName"_s), u"new.mp3"_s);
}

TEST_F(TheStart, WritesNothingToACatalogueThatIsWhole)
{
    const QString file = makeCatalogue("data");
    ASSERT_EQ(start(), StartResult::Running);
    ShutDown(catalogue).leaveMainScreen();
    ShutDown(catalogue).closeCatalogue();
    const auto contents = [&] {
        QFile f(file);
        EXPECT_TRUE(f.open(QIODevice::ReadOnly));
        return f.readAll();
    };
    const QByteArray before = contents();
    catalogue.DatabaseFile.clear();
    ASSERT_EQ(start(), StartResult::Running);
    catalogue.ContactsTable.reset();
    ShutDown(catalogue).closeCatalogue();
    EXPECT_TRUE(contents() == before);
}

TEST_F(TheStart, ReadsTheMachineAndTheOptions)
{
    makeCatalogue("elsewhere");
    saveOption(store, keys::Font, u"Carlito"_s);
    saveOption(store, keys::RptLinesPerPage, u"0"_s);
    saveOption(store, keys::DatabaseLocation, folder("elsewhere"));
    mouse = false;
    version = 10.0;
    ASSERT_EQ(start(), StartResult::Running);
    EXPECT_TRUE(options.TabletActive);
    EXPECT_EQ(options.ScreenFont, u"Carlito"_s);
    EXPECT_EQ(options.RptLinesPerPage, u"0"_s);
    EXPECT_EQ(catalogue.DatabaseFolder, folder("elsewhere"));
    // Only the first character of the version's text counts.
    EXPECT_EQ(options.WindowsVersionMajor, 1);
    EXPECT_TRUE(runsFromSource(u"/home/a/Source/bin/"_s));
    EXPECT_FALSE(runsFromSource(u"/usr/bin/"_s));
}

TEST_F(TheStart, FallsBackToTheCatalogueBesideTheProgram)
{
    const QString file = makeCatalogue("program");
    saveOption(store, keys::DatabaseLocation, folder("elsewhere"));
    ASSERT_EQ(start(), StartResult::Running);
    EXPECT_EQ(catalogue.DatabaseFile, file);
    EXPECT_EQ(catalogue.DatabaseFolder, folder("program"));
    EXPECT_EQ(stored(), folder("elsewhere"));
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
    EXPECT_EQ(desktop.calls().first().title, u"No database file found"_s);
    EXPECT_EQ(desktop.calls().first().icon, Icon::Stop);
    EXPECT_EQ(desktop.lastCall().title, u"Open database file"_s);
    EXPECT_EQ(desktop.lastCall().filter, u"Database files (*.mdb)|*.mdb"_s);
    EXPECT_EQ(catalogue.DatabaseFile, file);
    EXPECT_EQ(stored(), folder("elsewhere"));
}

TEST_F(TheStart, EndsWithAnErrorWhenTheUserShowsNoCatalogue)
{
    desktop.willSee().willOpen(std::nullopt).willSee(u"    Error number: 3024"_s);
    expectEnd(start());
    EXPECT_EQ(desktop.lastCall().title, u"Error"_s);
    EXPECT_EQ(desktop.lastCall().icon, Icon::Stop);
    EXPECT_EQ(stored(), QString());
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

TEST_F(TheStart, RefusesACommandLineThatNamesNoFile)
{
    makeCatalogue("data");
    desktop.willSee(u"cannot be found.  You specified file name /m/x.mp4"_s);
    expectEnd(start(u"\"/m/x.mp4\""_s));
    EXPECT_EQ(desktop.lastCall().title, u"Data file name invalid"_s);
    EXPECT_TRUE(played.isEmpty());
}

TEST_F(TheStart, PlaysAMusicFileWithoutTheCatalogue)
{
    expectEnd(start(u"\"/my music/a.FLAC\""_s));
    EXPECT_EQ(played, QStringList(u"/my music/a.FLAC"_s));
    EXPECT_TRUE(options.PlayerOnlyMode);
}

TEST_F(TheStart, AMusicFileBringsTheRunningProgramToTheFront)
{
    SingleInstance running(folder("run"));
    QSignalSpy raised(&running, &SingleInstance::raiseRequested);
    desktop.willSee(u"Quaverly is already running!  Make sure both"_s);
    expectEnd(start(u"/m/a.mp3"_s));
    EXPECT_EQ(desktop.lastCall().icon, Icon::Exclamation);
    EXPECT_TRUE(played.isEmpty());
    EXPECT_TRUE(QTest::qWaitFor([&] { return raised.count() == 1; }));
}

TEST_F(TheStart, ASecondStartEndsAfterItHasFoundTheCatalogue)
{
    SingleInstance running(folder("run"));
    QSignalSpy raised(&running, &SingleInstance::raiseRequested);
    const QString file = makeCatalogue("elsewhere");
    desktop.willSee(u"not found."_s).willOpen(file).willSee(u"already running!"_s);
    expectEnd(start());
    EXPECT_EQ(stored(), folder("elsewhere"));
    QCoreApplication::processEvents();
    EXPECT_EQ(raised.count(), 0);
}

/** A start whose catalogue asks for the password "abba". */
class TheLockedStart : public TheStart
{
protected:
    TheLockedStart() { engine.OpenDatabase(makeCatalogue("data"))->NewPassword({}, u"abba"_s); }
};

TEST_F(TheLockedStart, GivesTwoChances)
{
    desktop.willType(u"Abba!"_s).willType(u"abba"_s);
    ASSERT_EQ(start(), StartResult::Running);
    for (const DesktopCall &call : desktop.calls()) {
        EXPECT_EQ(call.title, u"Password?"_s);
        EXPECT_EQ(call.text, u"Type your password.  You have two chances to get it right."_s);
        EXPECT_TRUE(call.password);
    }
}

TEST_F(TheLockedStart, EndsWithTheErrorAfterTwoWrongOnes)
{
    desktop.willType(u"x"_s).willType(u"y"_s).willSee(u"    Error number: 3031"_s);
    expectEnd(start());
}

TEST_F(TheLockedStart, EndsSilentlyWithoutAnAnswer)
{
    desktop.willType(u"x"_s).willType({});
    expectEnd(start());
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
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        const qsizetype place = file.readAll().indexOf(text);
        ASSERT_GE(place, 0);
        ASSERT_TRUE(file.seek(place - place % PageSize));
        ASSERT_EQ(file.write(QByteArray(Damage, 'Q')), Damage);
    }

    static constexpr qsizetype PageSize = 4096;
    static constexpr qsizetype Damage = 3000;
};

TEST_F(TheDamagedStart, IsRepairedOnRequest)
{
    desktop.willAnswer(Answer::Ok, u"Press the OK button if you want Quaverly to attempt to repair it."_s);
    ASSERT_EQ(start(), StartResult::Running);
    EXPECT_EQ(desktop.lastCall().title, u"Corrupt Database"_s);
    EXPECT_EQ(desktop.lastCall().buttons, Buttons::OkCancel);
    EXPECT_EQ(desktop.lastCall().icon, Icon::Exclamation);
    EXPECT_EQ(catalogue.ContactsTable->text(u"SongName"_s), u"SOS"_s);
    EXPECT_EQ(QDir(folder("data")).entryList({u"*damaged *.mdb"_s}, QDir::Files).size(), 1);
}

TEST_F(TheDamagedStart, EndsSilentlyWhenTheRepairIsDeclined)
{
    desktop.willAnswer(Answer::Cancel, u"Database may be corrupted."_s);
    expectEnd(start());
    EXPECT_EQ(QDir(folder("data")).entryList({u"*.mdb"_s}, QDir::Files), QStringList(u"QVdata.mdb"_s));
}

TEST_F(TheDamagedStart, OffersTheRepairOnce)
{
    failWhenShown = dao::CannotOpenFile;
    desktop.willAnswer(Answer::Ok, u"Database may be corrupted."_s)
        .willSee(u"Out of order.    Error number: 3049"_s);
    EXPECT_EQ(start(), StartResult::End);
    EXPECT_EQ(shown, 1);
    EXPECT_FALSE(desktop.isHourglassOn());
}

TEST_F(TheDamagedStart, SaysSoWhenTheRepairFails)
{
    // A folder stands where the repaired file is to be written.
    QDir(folder("data")).mkdir(u"QVdata.mdb.repair"_s);
    desktop.willAnswer(Answer::Ok, u"Database may be corrupted."_s).willSee(u"    Error number: "_s);
    expectEnd(start());
    EXPECT_EQ(desktop.lastCall().title, u"Error"_s);
    EXPECT_EQ(desktop.lastCall().icon, Icon::Stop);
    EXPECT_EQ(QDir(folder("data")).entryList({u"*.mdb"_s}, QDir::Files), QStringList(u"QVdata.mdb"_s));
}

TEST_F(TheStart, AFileOfAnotherKindIsNoCaseForRepair)
{
    QFile other(folder("data") + u"QVdata.mdb"_s);
    ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    other.write("Standard text file, and no catalogue at all. ");
    other.close();
    desktop.willSee(u"    Error number: "_s);
    expectEnd(start());
    EXPECT_EQ(desktop.lastCall().buttons, Buttons::Ok);
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
