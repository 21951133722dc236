// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/PictureHousekeeping.h"

#include "catalogue/Catalogue.h"
#include "desktop/Desktop.h"
#include "desktop/FileHelpers.h"
#include "desktop/Guard.h"
#include "pictures/PictureErrors.h"
#include "pictures/PictureSql.h"
#include "platform/store/History.h"

#include <QFile>
#include <QSet>

#include <functional>
#include <optional>
#include <system_error>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace quaverly {

namespace {

using Files = std::vector<fs::path>;
using Action = std::function<void(const fs::path &, std::error_code &)>;

fs::path nativeOf(const QString &path)
{
    return QFile::encodeName(path).toStdString();
}

QString textOf(const fs::path &path)
{
    return QFile::decodeName(path.native().c_str());
}

/** Hidden files are somebody else's. */
template <typename Wanted> Files filesOf(const fs::path &folder, Wanted isWanted)
{
    Files files;
    std::error_code failed;
    for (fs::directory_iterator each(folder, failed), end; !failed && each != end; each.increment(failed)) {
        if (isWanted(*each) && !each->path().filename().native().starts_with('.'))
            files.push_back(each->path());
    }
    return files;
}

Files picturesOf(const QString &folder)
{
    return filesOf(nativeOf(folder), [](const fs::directory_entry &entry) {
        std::error_code unknown;
        return entry.is_regular_file(unknown);
    });
}

/** What may be deleted: of a link, only the link. */
Files deletableOf(const QString &folder)
{
    const fs::path path = nativeOf(folder);
    std::error_code failed;
    // The trailing separator would look through the link.
    if (fs::is_symlink(path.parent_path(), failed))
        return {};
    return filesOf(path, [](const fs::directory_entry &entry) {
        std::error_code unknown;
        const fs::file_status status = entry.symlink_status(unknown);
        return fs::is_regular_file(status) || fs::is_symlink(status);
    });
}

/** On every file; the first failure is told at the end. @throws dao::DaoError 75. */
void onEach(const Files &files, const Action &action)
{
    std::optional<dao::DaoError> first;
    for (const fs::path &file : files) {
        std::error_code failed;
        action(file, failed);
        // A file that is gone meanwhile is none to act upon.
        if (failed && failed != std::errc::no_such_file_or_directory && !first)
            first = accessError(textOf(file));
    }
    if (first)
        throw dao::DaoError(*first);
}

void remove(const fs::path &file, std::error_code &failed)
{
    fs::remove(file, failed);
}

/** Over a file of that name there; also onto another disk, where a whole copy comes first. */
void moveInto(const fs::path &folder, const fs::path &file, std::error_code &failed)
{
    const fs::path target = folder / file.filename();
    fs::rename(file, target, failed);
    if (failed != std::errc::cross_device_link)
        return;
    const fs::path part = target.native() + ".part";
    fs::copy_file(file, part, fs::copy_options::overwrite_existing, failed);
    if (!failed)
        fs::rename(part, target, failed);
    std::error_code ignored;
    fs::remove(failed ? part : file, ignored);
}

} // namespace

void deleteFilesOf(const QString &folder)
{
    onEach(deletableOf(folder), remove);
}

int countFilesOf(const QString &folder)
{
    return static_cast<int>(deletableOf(folder).size());
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

PictureHousekeeping::Files PictureHousekeeping::orphansOf(const Files &pictures) const
{
    // One walk over the songs leaves only names that are written otherwise, or not at all, to be asked for.
    QSet<QString> linked;
    const auto rows = m_catalogue.CatalogueDb->OpenRecordset(picturesql::allNames());
    for (; !rows->atEOF(); rows->MoveNext()) {
        for (int slot = 1; slot <= PictureCount; ++slot)
            linked.insert(rows->text(pictureField(slot)));
    }
    Files found;
    for (const fs::path &picture : pictures) {
        const QString name = textOf(picture.filename());
        // A name that is no valid text is nobody's.
        const bool isText = QFile::encodeName(name) == picture.filename().c_str();
        if (!isText || (!linked.contains(name) &&
                        m_catalogue.CatalogueDb->OpenRecordset(picturesql::recordsWith(name))->isEmpty()))
            found.push_back(picture);
    }
    return found;
}

void PictureHousekeeping::checkOrphans()
{
    Files orphans;
    {
        const Hourglass hourglass(m_desktop);
        const Files pictures = picturesOf(m_files.folder());
        if (pictures.empty()) {
            tell(u"No pictures exist."_s);
            return;
        }
        orphans = orphansOf(pictures);
    }
    if (orphans.empty())
        tell(u"No orphaned pictures found."_s);
    else
        removeOrphans(orphans);
}

void PictureHousekeeping::removeOrphans(const Files &orphans)
{
    const QStringList pieces{
        u"Number of orphaned pictures found: %1."_s.arg(orphans.size()),
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
        onEach(orphans, remove);
        tell(u"Orphaned pictures deleted."_s);
        return;
    }
    if (ask(u"Since you do not want to delete these orphaned pictures, would you like to move them to the "
            "Deleted Pictures folder within the Quaverly folder?"_s,
            u"File Move Confirmation"_s)) {
        m_files.makeDeletedFolder();
        const fs::path folder = nativeOf(m_files.deletedFolder());
        noteMoves(orphans);
        onEach(orphans,
               [&](const fs::path &file, std::error_code &failed) { moveInto(folder, file, failed); });
        tell(u"Orphaned pictures moved to the Quaverly Deleted Pictures folder."_s);
        return;
    }
    m_desktop.MessageBox(u"Orphaned pictures left in the Quaverly Pictures folder."_s,
                         u"Pictures not deleted."_s);
}

// First: a death in between leaves pictures that are where the journal would take them back to.
void PictureHousekeeping::noteMoves(const Files &orphans)
{
    dao::Database &database = *m_catalogue.CatalogueDb;
    database.describeChange(u"Move orphaned pictures"_s);
    dao::History history(database);
    dao::Transaction transaction(database.workspace());
    for (const fs::path &file : orphans) {
        const QString name = textOf(file.filename());
        // One with no valid text for a name couldn't be found again.
        if (QFile::encodeName(name) == file.filename().c_str())
            history.notePictureMoved(0, m_files.pathOf(name), m_files.deletedFolder() + name);
    }
    transaction.commit();
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
