// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/DatabaseLocation.h"

#include "catalogue/Catalogue.h"
#include "catalogue/CatalogueSchema.h"
#include "catalogue/Options.h"
#include "desktop/Desktop.h"
#include "desktop/FileHelpers.h"

using namespace Qt::StringLiterals;

namespace quaverly {

DatabaseLocation::DatabaseLocation(Desktop &desktop, const Catalogue &catalogue, OptionsStore &store,
                                   QString &lastFolder)
    : m_desktop(desktop), m_catalogue(catalogue), m_store(store), m_lastFolder(lastFolder)
{}

QString DatabaseLocation::caution()
{
    return u"Caution!  This is the folder where "_s + QString::fromUtf16(ProductName) +
           u" always looks for your database file (the QVdata.mdb file) and any saved pictures.  If you "
           "change this location here, make sure the QVdata.mdb file is already located in the chosen "
           "folder, and you have moved any pictures into the Pictures sub-folder of this new folder.  For "
           "security reasons, those files will not be moved there automatically."_s;
}

QString DatabaseLocation::current() const
{
    return m_catalogue.DatabaseFolder;
}

QString DatabaseLocation::browse()
{
    QString folder =
        m_desktop.BrowseForFolder(u"Pick the folder where the database is located"_s, u"Select a Folder"_s,
                                  m_lastFolder.isEmpty() ? m_catalogue.DatabaseFolder : m_lastFolder);
    if (!folder.isEmpty())
        m_lastFolder = folder;
    return folder;
}

bool DatabaseLocation::save(const QString &typed)
{
    // The file's name is put right behind it, now and at the next start.
    const QString folder = typed.isEmpty() ? typed : EnsureBackslash(typed);
    if (!FolderExists(folder)) {
        m_desktop.MessageBox(u"Folder does not exist"_s, u"Folder not found"_s, Icon::Stop);
        return false;
    }
    if (!FileExists(folder + QString::fromUtf16(CatalogueFileName))) {
        m_desktop.MessageBox(u"Your QVdata.mdb database file does not exist within the chosen folder.  You "
                             "must first move it there."_s,
                             u"Database file not found"_s, Icon::Stop);
        return false;
    }
    if (folder == current())
        return true;
    saveOption(m_store, keys::DatabaseLocation, folder);
    m_desktop.MessageBox(u"Database Location Changed.  You must exit and restart "_s +
                             QString::fromUtf16(ProductName) + u" before this change will take effect."_s,
                         u"Location Changed"_s);
    return true;
}

} // namespace quaverly
