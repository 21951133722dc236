// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/PictureHousekeeping.h"

#include "catalogue/Catalogue.h"
#include "desktop/Desktop.h"
#include "desktop/FileHelpers.h"
#include "desktop/Guard.h"
#include "pictures/PictureErrors.h"
#include "pictures/PictureSql.h"

#include <QFile>
#include <QSet>

#include <filesystem>
#include <vector>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace quaverly {

namespace {

/** The paths as the file system has them: their names may be no valid text. */
std::vector<fs::path> filesOf(const QString &folder)
{
    std::vector<fs::path> files;
    const fs::path path(QFile::encodeName(folder).toStdString());
    std::error_code failed;
    // The trailing separator would look through the link.
    if (fs::is_symlink(path.parent_path(), failed))
        return files;
    for (fs::directory_iterator each(path, failed), end; !failed && each != end; each.increment(failed)) {
        std::error_code unknown;
        const fs::file_status status = each->symlink_status(unknown);
        if ((fs::is_regular_file(status) || fs::is_symlink(status)) &&
            !each->path().filename().native().starts_with('.'))
            files.push_back(each->path());
    }
    return files;
}

} // namespace

void deleteFilesOf(const QString &folder)
{
    std::optional<dao::DaoError> first;
    for (const fs::path &file : filesOf(folder)) {
        std::error_code failed;
        fs::remove(file, failed);
        if (failed && !first)
            first = accessError(QFile::decodeName(file.native().c_str()));
    }
    if (first)
        throw dao::DaoError(*first);
}

int countFilesOf(const QString &folder)
{
    return static_cast<int>(filesOf(folder).size());
}

void PictureHousekeeping::tell(const QString &text)
{
    m_desktop.MessageBox(text, QString::fromUtf16(ProductName));
}

bool PictureHousekeeping::ask(const QString &text, const QString &title)
{
    return m_desktop.MessageBox(text, title, Icon::Information, Buttons::YesNo, Answer::No) == Answer::Yes;
}

void PictureHousekeeping::OphanedPictures_Click()
{
    guarded(m_desktop, QString::fromUtf16(ProductName), [this] { checkOrphans(); });
}

QStringList PictureHousekeeping::orphans(const QStringList &names) const
{
    // One walk over the songs leaves only names that are written otherwise, or not at all, to be asked for.
    QSet<QString> linked;
    const auto rows = m_catalogue.CatalogueDb->OpenRecordset(picturesql::allNames());
    for (; !rows->atEOF(); rows->MoveNext()) {
        for (int slot = 1; slot <= PictureCount; ++slot)
            linked.insert(rows->text(pictureField(slot)));
    }
    QStringList found;
    for (const QString &name : names) {
        if (!linked.contains(name) &&
            m_catalogue.CatalogueDb->OpenRecordset(picturesql::recordsWith(name))->isEmpty())
            found += name;
    }
    return found;
}

void PictureHousekeeping::checkOrphans()
{
    QStringList found;
    {
        const Hourglass hourglass(m_desktop);
        const QStringList names = m_files.names();
        if (names.isEmpty()) {
            tell(u"No pictures exist."_s);
            return;
        }
        found = orphans(names);
    }
    if (found.isEmpty())
        tell(u"No orphaned pictures found."_s);
    else
        removeOrphans(found);
}

void PictureHousekeeping::removeOrphans(const QStringList &found)
{
    const QStringList pieces{
        u"Number of orphaned pictures found: %1."_s.arg(found.size()),
        u"These are pictures not assigned to any songs in your database.  Two reasons why they exist are "
        "because you changed the picture for a song without first deleting the old picture in Quaverly, or "
        "because you changed the file name of a picture (displayed in blue text below each picture button on "
        "the Edit screen) to the file name of a different picture."_s,
        u"This is normal, and those orphaned pictures should be deleted periodically.  They do no harm if "
        "you do not delete them.  They just take up disk space."_s,
        u"If you reply NO, you will then be given the option of moving these files to the Quaverly Deleted "
        "Pictures folder."_s,
        u"Would you like to DELETE these pictures from the Quaverly Pictures folder now?"_s};
    if (ask(pieces.join(u"\r\n"_s), u"Clean-up Confirmation"_s)) {
        for (const QString &name : found)
            m_files.remove(name);
        tell(u"Orphaned pictures deleted."_s);
        return;
    }
    if (ask(u"Since you do not want to delete these orphaned pictures, would you like to move them to the "
            "Deleted Pictures folder within the Quaverly folder?"_s,
            u"File Move Confirmation"_s)) {
        m_files.makeDeletedFolder();
        for (const QString &name : found) {
            if (m_files.exists(name))
                m_files.retireOver(name);
        }
        tell(u"Orphaned pictures moved to the Quaverly Deleted Pictures folder."_s);
        return;
    }
    m_desktop.MessageBox(u"Orphaned pictures left in the Quaverly Pictures folder."_s,
                         u"Pictures not deleted."_s);
}

void PictureHousekeeping::EmptyDeletedPicturesFolder_Click()
{
    guarded(m_desktop, QString::fromUtf16(ProductName), [this] { emptyDeleted(); });
}

void PictureHousekeeping::emptyDeleted()
{
    const QString folder = m_files.deletedFolder();
    if (!FolderExists(folder) || countFilesOf(folder) == 0) {
        tell(u"No Deleted Pictures exist."_s);
        return;
    }
    const Answer answer = m_desktop.MessageBox(
        u"Are you sure you want to delete all files from the \r\n"_s + folder + u" folder?"_s,
        u"Delete Confirmation"_s, Icon::Question, Buttons::YesNo, Answer::No);
    if (answer != Answer::Yes)
        return;
    deleteFilesOf(folder);
    tell(u"Files deleted."_s);
}

} // namespace quaverly
