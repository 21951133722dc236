// SPDX-License-Identifier: GPL-3.0-or-later
#include "maintenance/FileRenames.h"

#include "catalogue/Catalogue.h"
#include "catalogue/Options.h"
#include "catalogue/RenameNotes.h"
#include "desktop/Desktop.h"
#include "desktop/FileHelpers.h"
#include "maintenance/ScreenAtRest.h"
#include "platform/store/RowKeys.h"
#include "songlist/DisplayedSet.h"

#include <QDir>

#include <algorithm>
#include <cerrno>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

const QString Title = u"Rename Files"_s;

/** A folder with those above it that are missing; those that it made go again unless they are kept. */
class NewFolders final
{
public:
    explicit NewFolders(const QString &folder)
    {
        for (QString missing = folder; !missing.isEmpty() && !FolderExists(missing);
             missing = folderOf(missing.chopped(1)))
            m_made.prepend(missing);
        if (m_made.isEmpty() || QDir().mkpath(folder))
            return;
        const bool isFull = errno == ENOSPC;
        removeAll();
        throw dao::DaoError(
            isFull ? dao::DiskFull : dao::PathFileAccess,
            u"The folder \"%1\" can't be made%2"_s.arg(folder, isFull ? u": the disk is full."_s : u"."_s));
    }
    ~NewFolders() { removeAll(); }
    NewFolders(const NewFolders &) = delete;
    NewFolders &operator=(const NewFolders &) = delete;
    void keep() { m_made.clear(); }

private:
    // Only empty ones can be removed so.
    void removeAll()
    {
        while (!m_made.isEmpty())
            QDir().rmdir(m_made.takeLast());
    }

    QStringList m_made;
};

} // namespace

dao::Database &FileRenames::database() const
{
    return *m_parts.services.catalogue.CatalogueDb;
}

bool FileRenames::isOfMarked() const
{
    return m_parts.set.SelectedCount() > 0;
}

std::vector<qint64> FileRenames::songs()
{
    if (!isOfMarked())
        return m_parts.set.Data1().hasRows() ? dao::keysOf(m_parts.set.Data1().Recordset())
                                             : std::vector<qint64>();
    const auto marked = database().OpenRecordset(u"Select RecordID From tblContacts Where Selected = 'x'"_s,
                                                 dao::RecordsetType::Dynaset);
    return dao::keysOf(*marked);
}

bool FileRenames::run(const RenamePattern &pattern, const QString &root)
{
    Desktop &desktop = m_parts.services.desktop;
    auto renames = plan(pattern, root);
    if (!renames)
        return false;
    if (renames->empty()) {
        desktop.MessageBox(u"All these files have the names of the pattern already."_s, Title);
        return false;
    }
    const auto wanted = chosen(std::move(*renames));
    if (!wanted)
        return false;
    const auto result = carryOut(*wanted);
    if (!result)
        return false;
    tell(*result, wanted->size());
    return result->count > 0;
}

std::optional<FileRenames::Result> FileRenames::carryOut(const std::vector<PlannedRename> &renames)
{
    const ScreenAtRest atRest(m_parts.mainScreen, m_parts.busy);
    if (!m_parts.beforeBulk(Title))
        return std::nullopt;
    Result result = renameAll(renames);
    try {
        const KeepRow row(m_parts.set.Data1());
        m_parts.set.Data1().Refresh();
    } catch (const dao::DaoError &) {
        // What came of the files is the one thing to tell.
    }
    return result;
}

dao::GoesOn FileRenames::goesOn(WorkingWindow &wait)
{
    return [this, &wait](qint64 done, qint64 all) {
        wait.setBar(static_cast<int>(done * FullBarTwips / std::max<qint64>(all, 1)));
        if (m_parts.services.desktop.inputWaiting())
            m_parts.services.desktop.letEventsRun();
        return !wait.isClosed();
    };
}

std::optional<std::vector<PlannedRename>> FileRenames::plan(const RenamePattern &pattern, const QString &root)
{
    const ScreenAtRest atRest(m_parts.mainScreen, m_parts.busy);
    const Hourglass hourglass(m_parts.services.desktop);
    const auto wait = m_parts.services.desktop.ShowWorkingForm(Title, u"Looking at the files..."_s, true);
    wait->offerCancel();
    m_parts.services.desktop.letEventsRun();
    return RenamePlanner(database(), pattern, root).plan(songs(), goesOn(*wait));
}

std::optional<std::vector<PlannedRename>> FileRenames::chosen(std::vector<PlannedRename> renames)
{
    RenamePreview preview({database(), m_parts.set.Data1()}, std::move(renames));
    return m_parts.services.desktop.ShowPreview(preview) ? std::optional(preview.chosen()) : std::nullopt;
}

FileRenames::Result FileRenames::renameAll(const std::vector<PlannedRename> &renames)
{
    Result result;
    const Hourglass hourglass(m_parts.services.desktop);
    const auto wait = m_parts.services.desktop.ShowWorkingForm(Title, u"Please wait..."_s, true);
    wait->offerCancel();
    m_parts.services.desktop.letEventsRun();
    database().describeChange(Title);
    const dao::GoesOn mayGoOn = goesOn(*wait);
    for (const PlannedRename &rename : renames) {
        result.isStopped = !mayGoOn(result.count, static_cast<qint64>(renames.size()));
        if (result.isStopped)
            break;
        try {
            renameOne(rename);
            ++result.count;
        } catch (const dao::DaoError &error) {
            result.failure = rename.from.path() + u"\n\n"_s + error.description;
            break;
        }
    }
    return result;
}

void FileRenames::renameOne(const PlannedRename &rename)
{
    NewFolders folders(rename.to.PathName);
    RenameNotes(m_parts.services.catalogue).rename(rename.song, rename.from, rename.to);
    folders.keep();
}

void FileRenames::tell(const Result &result, std::size_t all)
{
    QString text = u"Number of files renamed: "_s + QString::number(result.count);
    if (result.isStopped)
        text += u".\n\nThe command was stopped.  The other files keep their names."_s;
    else if (!result.failure.isEmpty())
        text += u" of %1.\n\nThis file could not be renamed, and it and those behind it keep their names:\n"_s
                    .arg(all) +
                result.failure;
    if (result.count > 0)
        text += u"\n\nUndo in the Edit menu gives the renamed files their old names."_s;
    m_parts.services.desktop.MessageBox(text, Title,
                                        result.failure.isEmpty() ? Icon::None : Icon::Exclamation);
}

} // namespace quaverly
