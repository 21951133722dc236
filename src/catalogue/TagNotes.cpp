// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/TagNotes.h"

#include "catalogue/Catalogue.h"
#include "desktop/FileHelpers.h"
#include "platform/shell/FileRemains.h"
#include "platform/shell/TagWriter.h"
#include "platform/store/History.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** Links are followed to where the copy is made. */
QString folderOfFile(const QString &path)
{
    const QString real = QFileInfo(path).canonicalFilePath();
    return folderOf(real.isEmpty() ? path : real);
}

bool wasMade(const dao::FileTagsChange &kept)
{
    const auto again = shell::FilePatch::unpacked(kept.again);
    return again && shell::stateFor(kept.path, *again) == shell::PatchState::IsApplied;
}

} // namespace

void TagNotes::write(qint64 song, const QString &path, shell::TagWriter &writer)
{
    dao::Database &database = *m_catalogue.CatalogueDb;
    const qint64 key =
        database.keepFileTags({0, song, path, writer.back().packed(), writer.again().packed()});
    try {
        writer.build();
        writer.takePlace();
    } catch (const dao::DaoError &) {
        database.dropFileTags(key);
        throw;
    }
    database.noteFileTags(key);
}

void TagNotes::apply(qint64 song, const QString &path, const shell::FilePatch &patch)
{
    dao::Database &database = *m_catalogue.CatalogueDb;
    const qint64 key = database.keepFileTags({0, song, path, {}, {}});
    try {
        shell::applyPatch(path, patch, {.splitLinks = true});
    } catch (const dao::DaoError &) {
        database.dropFileTags(key);
        throw;
    }
    database.dropFileTags(key);
}

void TagNotes::settle()
{
    dao::Database &database = *m_catalogue.CatalogueDb;
    for (const dao::FileTagsChange &kept : database.unfinishedFileTags()) {
        const QString folder = folderOfFile(kept.path);
        if (!FolderExists(folder))
            continue;
        shell::clearUnfinishedCopies(folder);
        if (wasMade(kept)) {
            database.describeChange(u"Edit tags"_s);
            database.noteFileTags(kept.key);
            database.endChange();
        } else {
            database.dropFileTags(kept.key);
        }
    }
}

} // namespace quaverly
