// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/StartUp.h"

#include "catalogue/Backups.h"
#include "catalogue/CatalogueSchema.h"
#include "catalogue/DuplicateQueries.h"
#include "catalogue/RenameNotes.h"
#include "catalogue/RepairWords.h"
#include "catalogue/TagNotes.h"
#include "desktop/Desktop.h"
#include "desktop/FileHelpers.h"
#include "platform/options/OptionsStore.h"
#include "platform/options/SingleInstance.h"
#include "platform/text/Text.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int PasswordChances = 2;
constexpr qint16 VersionOfBuildFolder = 6;

qint16 firstDigit(double version)
{
    return static_cast<qint16>(QString::number(version, 'f', 2).at(0).digitValue());
}

} // namespace

bool runsFromSource(const QString &programFolder)
{
    return programFolder.contains("source"_L1, Qt::CaseInsensitive);
}

StartUp::StartUp(Catalogue &catalogue, Options &options, dao::DBEngine &engine, Desktop &desktop,
                 OptionsStore &store, SingleInstance &instance, StartContext context, StartHooks hooks)
    : m_catalogue(catalogue), m_options(options), m_engine(engine), m_desktop(desktop), m_store(store),
      m_instance(instance), m_context(std::move(context)), m_hooks(std::move(hooks)),
      m_search(m_catalogue, m_context.folders, m_desktop, m_store)
{}

StartResult StartUp::run()
{
    if (isGreaterThanBlank(m_catalogue.DatabaseFile)) {
        m_catalogue.SwitchingCatalogue = false;
        return openAndShow();
    }
    readOptions();
    m_search.takeStoredLocation();
    if (!obeyCommandLine())
        return StartResult::End;
    m_options.PlayerOnlyMode = false;
    locateCatalogue();
    if (m_instance.PrevInstance()) {
        // The running window stays where it is here; only a music file brings it to the front.
        tellAlreadyRunning();
        return StartResult::End;
    }
    return openAndShow();
}

void StartUp::readOptions()
{
    m_options.TabletActive = !m_context.mousePresent && m_context.tabletPc;
    m_options.WindowsVersionMajor = runsFromSource(m_context.folders.program)
                                        ? VersionOfBuildFolder
                                        : firstDigit(m_context.systemVersion);
    m_options.ScreenFont = option(m_store, keys::Font);
    if (m_options.ScreenFont.isEmpty())
        m_options.ScreenFont = m_options.WindowsVersionMajor >= 6 ? u"Arial"_s : u"MS Sans Serif"_s;
    m_options.RptLinesPerPage = option(m_store, keys::RptLinesPerPage);
    if (m_options.RptLinesPerPage.isEmpty())
        m_options.RptLinesPerPage = u"54"_s;
}

bool StartUp::obeyCommandLine()
{
    const CommandLine line = parseCommandLine(m_context.commandLine);
    switch (line.kind) {
    case CommandLine::Kind::Nothing:
        return true;
    case CommandLine::Kind::MusicFile:
        playOnly(QFileInfo(line.argument).absoluteFilePath());
        return false;
    case CommandLine::Kind::CatalogueFile:
        break;
    }
    if (FileExists(line.argument)) {
        // The folder stays: columns and pictures go on coming from where the options say.
        m_catalogue.DatabaseFile = QFileInfo(line.argument).absoluteFilePath();
        return true;
    }
    m_desktop.MessageBox(u"The database file name you supplied on the command line cannot be found.  "
                         "You specified file name "_s +
                             line.argument,
                         u"Data file name invalid"_s, Icon::Stop);
    return false;
}

void StartUp::playOnly(const QString &file)
{
    if (m_instance.PrevInstance()) {
        tellAlreadyRunning();
        m_instance.raiseOther();
        return;
    }
    m_options.PlayerOnlyMode = true;
    m_hooks.playFile(file);
}

void StartUp::locateCatalogue()
{
    try {
        m_search.locate();
    } catch (const dao::DaoError &error) {
        // The file was found; only its folder could not be remembered.
        tellError(error);
    }
}

StartResult StartUp::openAndShow()
{
    bool repairTried = false;
    for (;;) {
        try {
            if (openCatalogue() == Opened::GivenUp)
                return StartResult::End;
            prepareCatalogue();
            tellIfSlower();
            m_hooks.showNameList();
            return StartResult::Running;
        } catch (const dao::DaoError &error) {
            m_catalogue.ContactsTable.reset();
            m_catalogue.CatalogueDb.reset();
            if (!repairedAfter(error, repairTried))
                return StartResult::End;
        }
    }
}

bool StartUp::repairedAfter(const dao::DaoError &error, bool &repairTried)
{
    if (error.number != dao::CannotOpenFile || repairTried) {
        tellError(error);
        return false;
    }
    const QString product = QString::fromUtf16(ProductName);
    if (m_desktop.MessageBox(u"Database may be corrupted.  Press the OK button if you want "_s + product +
                                 u" to attempt to repair it."_s,
                             u"Corrupt Database"_s, Icon::Exclamation, Buttons::OkCancel) != Answer::Ok)
        return false;
    repairTried = true;
    try {
        repair();
    } catch (const dao::DaoError &failure) {
        tellError(failure);
        return false;
    }
    return true;
}

void StartUp::repair()
{
    dao::RepairReport report;
    {
        const Hourglass hourglass(m_desktop);
        report = m_engine.RepairDatabase(m_catalogue.DatabaseFile);
    }
    m_desktop.MessageBox(repairWords(report), u"Database Repaired"_s, Icon::Information);
}

StartUp::Opened StartUp::openCatalogue()
{
    m_catalogue.ContactsTable.reset();
    m_catalogue.CatalogueDb.reset();
    QString connect;
    for (int chance = 0; chance < PasswordChances; ++chance) {
        if (const auto opened = tryOpen(connect))
            return *opened;
        const QString password = m_desktop.InputPrompt(
            u"Type your password.  You have two chances to get it right."_s, u"Password?"_s, {}, true);
        if (password.isEmpty())
            return Opened::GivenUp;
        connect = u";pwd="_s + password;
    }
    return open(connect);
}

StartUp::Opened StartUp::open(const QString &connect)
{
    if (!keepOlder(connect))
        return Opened::GivenUp;
    m_catalogue.CatalogueDb = m_engine.OpenDatabase(m_catalogue.DatabaseFile, connect);
    return Opened::Yes;
}

std::optional<StartUp::Opened> StartUp::tryOpen(const QString &connect)
{
    try {
        return open(connect);
    } catch (const dao::DaoError &error) {
        if (error.number == dao::InvalidPassword)
            return std::nullopt;
        throw;
    }
}

bool StartUp::keepOlder(const QString &connect)
{
    const int version = m_engine.versionOf(m_catalogue.DatabaseFile);
    if (version >= catalogueSchema().version())
        return true;
    dao::DBEngine engine(catalogueSchema(version));
    Catalogue before;
    before.DatabaseFile = m_catalogue.DatabaseFile;
    before.CatalogueDb = engine.OpenDatabase(before.DatabaseFile, connect);
    return Backups(m_desktop, before, engine, m_store).beforeBulkCommand(u"Update of the Database"_s);
}

void StartUp::prepareCatalogue()
{
    const Hourglass hourglass(m_desktop);
    ensureDuplicateQueries(*m_catalogue.CatalogueDb);
    TagNotes(m_catalogue).settle();
    const QStringList renamed = RenameNotes(m_catalogue).settle();
    if (!renamed.isEmpty())
        tellRenamed(renamed);
    m_catalogue.ContactsTable = m_catalogue.CatalogueDb->OpenRecordset(u"tblContacts"_s);
}

void StartUp::tellRenamed(const QStringList &sentences)
{
    constexpr qsizetype MostTold = 8;
    QStringList told = sentences.first(std::min(MostTold, sentences.size()));
    if (sentences.size() > MostTold)
        told += u"... and %1 more."_s.arg(sentences.size() - MostTold);
    m_desktop.MessageBox(told.join(u"\r\r"_s), u"Renamed files"_s, Icon::Exclamation);
}

void StartUp::tellIfSlower()
{
    if (m_catalogue.CatalogueDb->Updatable() && m_catalogue.CatalogueDb->lacksIndexes())
        m_desktop.MessageBox(u"The disk is full.  "_s + slowerText(), u"Disk full"_s, Icon::Exclamation);
}

void StartUp::tellError(const dao::DaoError &error)
{
    m_desktop.MessageBox(error.description + u"    Error number: "_s + QString::number(error.number),
                         u"Error"_s, Icon::Stop);
}

void StartUp::tellAlreadyRunning()
{
    m_desktop.MessageBox(
        u"Quaverly is already running!  Make sure both the Player window and the main Quaverly "
        "window are closed before starting Quaverly again."_s,
        QString::fromUtf16(ProductName), Icon::Exclamation);
}

} // namespace quaverly
