// SPDX-License-Identifier: GPL-3.0-or-later
#include "maintenance/FileCopyCommands.h"

#include "desktop/Desktop.h"
#include "desktop/FileHelpers.h"
#include "desktop/Guard.h"
#include "desktop/MusicFolder.h"
#include "maintenance/ScreenAtRest.h"
#include "platform/shell/Columns.h"
#include "platform/shell/FileCopy.h"
#include "platform/store/DaoError.h"
#include "platform/text/Text.h"
#include "songlist/DisplayedSet.h"

#include <QSet>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

const auto Copying = u"Quaverly is copying files..."_s;
const auto CopyTitle = u"Copy Music Files"_s;

/** The file of one displayed record. */
struct SongFile
{
    QString pathName;
    QString fileName;

    [[nodiscard]] QString path() const { return pathName + fileName; }
};

/** Calls @p visit with each displayed record's file, in order, until it answers false. */
void forEachFile(dao::Recordset &rows, const std::function<bool(qint64 row, const SongFile &)> &visit)
{
    const int path = rows.fieldIndex(u"PathName"_s);
    const int name = rows.fieldIndex(u"FileName"_s);
    const qint64 count = rows.RecordCount();
    for (qint64 row = 0; row < count; ++row) {
        SongFile file;
        try {
            file = {rows.valueAt(row, path).toString(), rows.valueAt(row, name).toString()};
        } catch (const dao::DaoError &error) {
            // Its song was deleted elsewhere, and its file has no name any more.
            if (error.number != dao::RecordDeleted)
                throw;
        }
        if (!visit(row, file))
            return;
    }
}

void grow(WorkingWindow &wait, qint64 done, qint64 all)
{
    wait.setBar(static_cast<int>(done * FullBarTwips / std::max<qint64>(all, 1)));
}

} // namespace

FileCopyCommands::FileCopyCommands(const MaintenanceParts &parts, QString &copyFolder)
    : m_parts(parts), m_copyFolder(copyFolder)
{}

void FileCopyCommands::mnuFileCopy_Click()
{
    guarded(m_parts.services.desktop, CopyTitle, [this] { copyDisplayed(); });
}

void FileCopyCommands::mnuPopupCopyFile_Click()
{
    guarded(m_parts.services.desktop, u"Copy File"_s, [this] { copyCurrent(); });
}

void FileCopyCommands::copyDisplayed()
{
    if (!m_parts.set.Data1().hasRows()) {
        m_parts.services.desktop.MessageBox(u"No files to copy"_s, CopyTitle);
        return;
    }
    QString folder = browse(CopyTitle, u"Select a Folder"_s);
    if (folder.endsWith(QString(2, PathSeparator)))
        folder.chop(1);
    if (folder.isEmpty() || !isConfirmed(folder))
        return;
    Result result;
    {
        const ScreenAtRest atRest(m_parts.mainScreen, m_parts.busy);
        const Hourglass hourglass(m_parts.services.desktop);
        const auto wait = m_parts.services.desktop.ShowWorkingForm(Copying, u"Please wait..."_s, true);
        m_parts.services.desktop.letEventsRun();
        result.shortage = shortageIn(folder, *wait);
        if (wait->isClosed())
            return;
        if (result.shortage.isEmpty())
            copyAll(folder, *wait, result);
    }
    tell(result, folder);
}

QString FileCopyCommands::browse(const QString &prompt, const QString &title)
{
    const QString start = m_copyFolder.isEmpty() ? musicFolder() : m_copyFolder;
    QString folder = m_parts.services.desktop.BrowseForFolder(prompt, title, start);
    if (!folder.isEmpty())
        m_copyFolder = folder;
    return folder;
}

bool FileCopyCommands::isConfirmed(const QString &folder)
{
    const QString n = QString::number(m_parts.set.Data1().Recordset().RecordCount());
    return m_parts.services.desktop.MessageBox(
               u"This will copy all "_s + n + u" files displayed on the Grid to:\n"_s + folder +
                   u" except any duplicate file names will only be copied once.\n\nProceed?"_s,
               u"Confirmation.  Number of files to copy: "_s + n, Icon::Question,
               Buttons::YesNo) == Answer::Yes;
}

QString FileCopyCommands::shortageIn(const QString &folder, const WorkingWindow &wait)
{
    qint64 needed = 0;
    QSet<QString> names;
    forEachFile(m_parts.set.Data1().Recordset(), [&](qint64 /*row*/, const SongFile &file) {
        if (!file.fileName.isEmpty() && !names.contains(file.fileName) &&
            !FileExists(folder + file.fileName)) {
            if (const auto size = shell::fileSize(file.path())) {
                names.insert(file.fileName);
                needed += *size;
            }
        }
        return goesOn(wait);
    });
    const auto room = shell::freeSpace(folder);
    if (!room || needed <= *room)
        return {};
    return u"These music files need "_s + shell::sizeText(needed) + u", but only "_s +
           shell::sizeText(*room) + u" are free in the folder\n"_s + folder + u"\nNo files were copied."_s;
}

void FileCopyCommands::copyAll(const QString &folder, WorkingWindow &wait, Result &result)
{
    dao::Recordset &rows = m_parts.set.Data1().Recordset();
    const qint64 all = rows.RecordCount();
    forEachFile(rows, [&](qint64 row, const SongFile &file) {
        grow(wait, row, all);
        result.isOver = result.isOver || !goesOn(wait);
        if (!result.isOver && !FileExists(folder + file.fileName) && FileExists(file.path()))
            copyOne(file.path(), folder + file.fileName, wait, result);
        return !result.isOver;
    });
}

void FileCopyCommands::copyOne(const QString &source, const QString &target, WorkingWindow &wait,
                               Result &result)
{
    try {
        if (shell::copyFile(source, target, {.progress = [&](qint64, qint64) { return goesOn(wait); }}))
            ++result.count;
        else
            result.isOver = true;
    } catch (const dao::DaoError &error) {
        result.failures.append(error.description);
        // A disk that is full or was pulled out takes none of the others either.
        result.isOver = error.number == dao::DiskFull || error.number == dao::PathNotFound;
    }
}

bool FileCopyCommands::goesOn(const WorkingWindow &wait)
{
    if (m_parts.services.desktop.inputWaiting())
        m_parts.services.desktop.letEventsRun();
    return !wait.isClosed();
}

void FileCopyCommands::tell(const Result &result, const QString &folder)
{
    if (!result.shortage.isEmpty()) {
        m_parts.services.desktop.MessageBox(result.shortage, u"Not enough room"_s, Icon::Exclamation);
        return;
    }
    if (!result.failures.isEmpty()) {
        m_parts.services.desktop.MessageBox(u"Number of files that could not be copied: "_s +
                                                QString::number(result.failures.size()) + u"\n"_s +
                                                result.failures.first(),
                                            CopyTitle, Icon::Exclamation);
    }
    m_parts.services.desktop.MessageBox(u"Number of files copied to folder\n"_s + folder + u" = "_s +
                                            QString::number(result.count),
                                        u"Done"_s);
}

void FileCopyCommands::copyCurrent()
{
    const DataControl &list = m_parts.set.Data1();
    const SongFile file{list.currentText(u"PathName"_s), list.currentText(u"FileName"_s)};
    if (!FileExists(file.path())) {
        m_parts.services.desktop.MessageBox(
            u"File not found to copy.  It may have been moved or deleted since last cataloged."_s,
            u"File does not exist"_s, Icon::Exclamation);
        return;
    }
    const QString folder = browse(u"Copy to:"_s, u"Select Destination Folder"_s);
    if (folder.isEmpty() || !mayReplace(file.fileName, folder))
        return;
    if (folder + file.fileName == file.path()) {
        m_parts.services.desktop.MessageBox(u"File can not be copied onto itself."_s,
                                            u"Source and destination folders are the same"_s,
                                            Icon::Exclamation);
        return;
    }
    {
        const ScreenAtRest atRest(m_parts.mainScreen, m_parts.busy);
        const Hourglass hourglass(m_parts.services.desktop);
        const auto wait = m_parts.services.desktop.ShowWorkingForm(Copying, u"Please wait..."_s, true);
        const auto show = [&](qint64 done, qint64 all) {
            grow(*wait, done, all);
            return goesOn(*wait);
        };
        if (!shell::copyFile(file.path(), folder + file.fileName, {.overwrite = true, .progress = show}))
            return;
    }
    m_parts.services.desktop.MessageBox(u"File "_s + file.fileName + u"\ncopied to folder\n"_s + folder,
                                        u"File Copied"_s);
}

bool FileCopyCommands::mayReplace(const QString &name, const QString &folder)
{
    return !FileExists(folder + name) ||
           m_parts.services.desktop.MessageBox(
               u"Copying to selected folder:\n"_s + folder +
                   u"\nA file with the same name already exists in the selected folder.\nOverwrite?"_s,
               u"Replace existing file?"_s, Icon::Information, Buttons::YesNo, Answer::No) == Answer::Yes;
}

} // namespace quaverly
