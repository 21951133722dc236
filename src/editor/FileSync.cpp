// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/FileSync.h"

#include "catalogue/Catalogue.h"
#include "desktop/FileHelpers.h"
#include "editor/FieldChecks.h"
#include "platform/shell/FileMove.h"
#include "songlist/ListTexts.h"

using namespace Qt::StringLiterals;

namespace quaverly {

bool FileSync::canFollow(const SongFile &row, const SongFile &typed)
{
    return !row.FileName.isEmpty() && !typed.FileName.isEmpty() && FileExists(row.path()) &&
           FolderExists(typed.PathName) && isAcceptedFileName(typed.FileName, row.FileName);
}

void FileSync::follow(qint64 recordId, const SongFile &row, const SongFile &typed)
{
    if (FileExists(typed.path()) && !shell::isOwnNameInOtherCapitals(row.path(), typed.path()))
        return;
    rename(recordId, row, typed);
    renameTracks(row.path(), typed.path());
}

void FileSync::rename(qint64 recordId, const SongFile &row, const SongFile &typed)
{
    m_notes.keep(recordId, row.PathName, row.FileName, typed.PathName, typed.FileName);
    try {
        shell::moveFile(row.path(), typed.path());
    } catch (const dao::DaoError &) {
        m_notes.drop(recordId);
        throw;
    }
}

// The store compares blind to case; another file's name may differ in nothing else.
void FileSync::renameTracks(const QString &from, const QString &to)
{
    dao::Transaction transaction(m_catalogue.CatalogueDb->workspace());
    const auto tracks = m_catalogue.CatalogueDb->OpenRecordset(
        u"Select FileName From tblPlayListDetail Where FileName="_s + quoted(from),
        dao::RecordsetType::Dynaset);
    for (; !tracks->atEOF(); tracks->MoveNext()) {
        if (tracks->text(u"FileName"_s) != from)
            continue;
        tracks->Edit();
        tracks->setValue(u"FileName"_s, to);
        tracks->Update();
    }
    transaction.commit();
}

} // namespace quaverly
