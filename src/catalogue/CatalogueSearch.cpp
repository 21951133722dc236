// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/CatalogueSearch.h"

#include "catalogue/CatalogueSchema.h"
#include "catalogue/Options.h"
#include "desktop/Desktop.h"
#include "desktop/FileHelpers.h"
#include "platform/options/OptionsStore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

QString inFolder(const QString &folder)
{
    return folder + QString::fromUtf16(CatalogueFileName);
}

} // namespace

StartFolders startFolders(const QString &program, const QString &defaultData)
{
    return {program, defaultData, QFileInfo(program).isWritable()};
}

CatalogueSearch::CatalogueSearch(Catalogue &catalogue, const StartFolders &folders, Desktop &desktop,
                                 OptionsStore &store)
    : m_catalogue(catalogue), m_folders(folders), m_desktop(desktop), m_store(store)
{}

void CatalogueSearch::takeStoredLocation()
{
    const QString stored = option(m_store, keys::DatabaseLocation);
    m_catalogue.DatabaseFolder = stored.isEmpty() ? m_folders.defaultData : stored;
    m_catalogue.DatabaseFile = inFolder(m_catalogue.DatabaseFolder);
}

void CatalogueSearch::locate()
{
    if (!FileExists(m_catalogue.DatabaseFile) && !inDatabaseFolder() && !besideProgram())
        ask();
}

bool CatalogueSearch::inDatabaseFolder()
{
    const QString file = inFolder(m_catalogue.DatabaseFolder);
    if (!FileExists(file))
        return false;
    m_catalogue.DatabaseFile = file;
    return true;
}

bool CatalogueSearch::besideProgram()
{
    const QString file = inFolder(m_folders.program);
    if (!FileExists(file))
        return false;
    if (!m_folders.programIsWritable)
        return copyForNewUser(file);
    m_catalogue.DatabaseFolder = m_folders.program;
    m_catalogue.DatabaseFile = file;
    return true;
}

bool CatalogueSearch::copyForNewUser(const QString &shipped)
{
    if (!option(m_store, keys::DatabaseLocation).isEmpty() || !QDir().mkpath(m_folders.defaultData))
        return false;
    const QString target = inFolder(m_folders.defaultData);
    if (!QFile::copy(shipped, target))
        return false;
    QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    return true;
}

void CatalogueSearch::ask()
{
    m_desktop.MessageBox(u"Database file "_s + m_catalogue.DatabaseFile + u" not found."_s,
                         u"No database file found"_s, Icon::Stop);
    const auto file = m_desktop.ShowOpenDialog(
        {u"Open database file"_s, u"Database files (*.mdb)|*.mdb"_s, m_catalogue.DatabaseFolder, {}});
    if (!file)
        return;
    m_catalogue.DatabaseFile = *file;
    m_catalogue.DatabaseFolder = folderOf(*file);
    saveOption(m_store, keys::DatabaseLocation, m_catalogue.DatabaseFolder);
}

} // namespace quaverly
