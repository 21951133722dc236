// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/CatalogueCommands.h"

#include "catalogue/BackupLimit.h"
#include "catalogue/Compaction.h"
#include "desktop/Desktop.h"
#include "desktop/FileHelpers.h"
#include "desktop/Guard.h"
#include "platform/shell/FileCopy.h"
#include "platform/text/Text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

const auto OpenTitle = u"Open Database"_s;
const auto CompactErrorTitle = u"Database Compact Error"_s;
const auto RestoreTitle = u"Restore From Backup"_s;

QString compactQuestion()
{
    return u"This will reclaim ununsed space from deleted records in your database, and often reduces the "
           "size of your database file.  This should be done periodically.  Make sure no one else is using "
           "the database before proceeding, and that the Player is closed and not playing any songs.\n\n"
           "Proceed?"_s;
}

QString compactedMessage(const CompactedSizes &sizes)
{
    return u"Database compacted.\n\nOld file size: "_s + groupedNumber(sizes.oldSize) +
           u" bytes\nNew file size: "_s + groupedNumber(sizes.newSize) + u" bytes"_s;
}

} // namespace

CatalogueCommands::CatalogueCommands(Desktop &desktop, Catalogue &catalogue, dao::DBEngine &engine,
                                     OptionsStore &options, CatalogueHooks hooks)
    : m_desktop(desktop), m_catalogue(catalogue), m_engine(engine), m_options(options),
      m_hooks(std::move(hooks)), m_shutDown(catalogue), m_backups(desktop, catalogue, engine, options)
{}

void CatalogueCommands::OpenDatabase_Click()
{
    guarded(m_desktop, OpenTitle, [this] {
        const auto file = m_desktop.ShowOpenDialog({u"Open database file"_s,
                                                    u"Database files (*.mdb)|*.mdb|All Files (*.*)|*.*"_s,
                                                    m_catalogue.DatabaseFolder,
                                                    {}});
        if (file)
            changeTo(*file);
    });
}

void CatalogueCommands::changeTo(const QString &file)
{
    const QString oldFile = m_catalogue.DatabaseFile;
    const QString oldFolder = m_catalogue.DatabaseFolder;
    m_hooks.showAll();
    // Not kept in the options: the next start goes back to the stored place.
    m_catalogue.DatabaseFile = file;
    m_catalogue.DatabaseFolder = folderOf(file);
    m_catalogue.SwitchingCatalogue = true;
    guarded(m_desktop, OpenTitle, [this] {
        m_hooks.forgetPlayLists();
        m_hooks.unloadPlayForm();
        m_hooks.unloadMainScreen(false);
        closeCatalogue();
    });
    if (startUp())
        return;
    // What was wrong with that file has been said.
    m_catalogue.DatabaseFile = oldFile;
    m_catalogue.DatabaseFolder = oldFolder;
    startUpOrEnd();
}

void CatalogueCommands::mnuCompactDatabase_Click()
{
    guarded(m_desktop, CompactErrorTitle, [this] {
        if (mayCompact() && m_backups.beforeBulkCommand(u"Compact Database"_s))
            compact();
    });
}

bool CatalogueCommands::mayCompact()
{
    if (m_desktop.MessageBox(compactQuestion(), u"Compact Database Confirmation"_s, Icon::Question,
                             Buttons::YesNo, Answer::No) != Answer::Yes)
        return false;
    if (m_hooks.openScreens() > 1) {
        m_desktop.MessageBox(u"Make sure the Music Player is closed before running the Compact process."_s,
                             u"Player is open"_s, Icon::Exclamation);
        return false;
    }
    // Said before anything is closed.
    assertUpdatable();
    return true;
}

void CatalogueCommands::assertUpdatable() const
{
    if (!m_catalogue.CatalogueDb->Updatable())
        throw dao::DaoError(dao::ReadOnly, u"Cannot update.  Database or object is read-only."_s);
}

void CatalogueCommands::compact()
{
    guarded(m_desktop, CompactErrorTitle, [this] {
        CompactedSizes sizes;
        {
            const Hourglass hourglass(m_desktop);
            m_hooks.unloadMainScreen(true);
            closeCatalogue();
            const auto wait = m_desktop.ShowWorkingForm(u"Compacting Database"_s, u"Please wait..."_s, false);
            m_desktop.letEventsRun();
            sizes = compactCatalogue(m_engine, m_catalogue.DatabaseFile);
        }
        m_desktop.MessageBox(compactedMessage(sizes), u"Compact Database"_s);
    });
    startUpOrEnd();
}

void CatalogueCommands::mnuDeleteAll_Click()
{
    guarded(m_desktop, u"Delete All Records in Database"_s, [this] {
        if (!confirmsDeleteAll())
            return;
        // With no songs in it, nothing will change.
        if (isEmpty() || m_backups.beforeBulkCommand(u"Delete All Records"_s))
            deleteAll();
    });
}

bool CatalogueCommands::confirmsDeleteAll()
{
    const auto confirms = [this](const QString &text, const QString &title) {
        return m_desktop.MessageBox(text, title, Icon::Exclamation, Buttons::YesNo, Answer::No) ==
               Answer::Yes;
    };
    return confirms(u"This will DELETE ALL the records in your database.  This will not delete the actual "
                    "music and will not delete your playlists.\n\n"
                    "Are you SURE you want to delete all your song data from this database?"_s,
                    u"Delete ALL Confirmation"_s) &&
           confirms(u"Have to ask one more time:\n\n"
                    "Are you SURE you want to WIPE OUT ALL YOUR DATA so you can start fresh with an empty "
                    "database?"_s,
                    u"Are you REALLY sure?"_s);
}

bool CatalogueCommands::isEmpty() const
{
    return m_catalogue.CatalogueDb->OpenRecordset(u"tblContacts"_s)->isEmpty();
}

void CatalogueCommands::deleteAll()
{
    const Hourglass hourglass(m_desktop);
    const auto wait =
        m_desktop.ShowWorkingForm(u"Deleting Data and Compacting Database"_s, u"Please wait..."_s, false);
    m_desktop.letEventsRun();
    // The copy that was made before stands in for a million rows in the journal.
    m_catalogue.CatalogueDb->ExecuteUnlogged(u"Delete * from tblContacts"_s,
                                             u"Delete all records in the database"_s);
    // The unload ends the process, and that is meant: the user meets the empty catalogue at the next start.
    m_hooks.unloadMainScreen(false);
}

void CatalogueCommands::mnuBackupRoom_Click()
{
    guarded(m_desktop, u"Room for Backups"_s, [this] { askForBackupLimit(m_desktop, m_options, m_backups); });
}

void CatalogueCommands::restoreBackup(const Backup &backup)
{
    guarded(m_desktop, RestoreTitle, [&] {
        assertUpdatable();
        // The present catalogue becomes one more copy, and the one to be restored is not thinned out for it.
        if (m_backups.beforeBulkCommand(RestoreTitle, backup.path))
            restore(backup);
    });
}

void CatalogueCommands::restore(const Backup &backup)
{
    guarded(m_desktop, RestoreTitle, [&] {
        {
            const Hourglass hourglass(m_desktop);
            m_hooks.forgetPlayLists();
            m_hooks.unloadPlayForm();
            m_hooks.unloadMainScreen(true);
            closeCatalogue();
            const auto wait = m_desktop.ShowWorkingForm(u"Restoring Database"_s, u"Please wait..."_s, true);
            exchangeCatalogue(m_catalogue.DatabaseFile, [&](const QString &path) {
                const auto show = [&](qint64 done, qint64 all) {
                    wait->setBar(static_cast<int>(done * FullBarTwips / std::max<qint64>(all, 1)));
                    m_desktop.letEventsRun();
                    return true;
                };
                static_cast<void>(shell::copyFile(backup.path, path, {false, show}));
            });
        }
        m_desktop.MessageBox(u"Database restored.\n\nIt is again as it was on "_s + shortDate(backup.made) +
                                 u'.',
                             RestoreTitle);
    });
    startUpOrEnd();
}

void CatalogueCommands::closeCatalogue()
{
    m_catalogue.ContactsTable.reset();
    try {
        m_shutDown.closeCatalogue();
    } catch (...) {
        m_catalogue.CatalogueDb.reset();
        throw;
    }
}

bool CatalogueCommands::startUp()
{
    bool runs = false;
    const bool ended = guarded(m_desktop, QString::fromUtf16(ProductName), [&] { runs = m_hooks.startUp(); });
    return ended && runs;
}

void CatalogueCommands::startUpOrEnd()
{
    if (!startUp())
        m_hooks.endProcess();
}

} // namespace quaverly
