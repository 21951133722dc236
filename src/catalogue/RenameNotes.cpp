// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/RenameNotes.h"

#include "catalogue/Catalogue.h"
#include "desktop/FileHelpers.h"

#include <vector>

using namespace Qt::StringLiterals;

namespace quaverly {

struct RenameNotes::Note
{
    qint64 recordId = 0;
    QString pathName;
    QString fileName;
    QString newPathName;
    QString newFileName;

    explicit Note(const dao::Recordset &row)
        : recordId(row.value(u"RecordID"_s).toLongLong()), pathName(row.text(u"PathName"_s)),
          fileName(row.text(u"FileName"_s)), newPathName(row.text(u"NewPathName"_s)),
          newFileName(row.text(u"NewFileName"_s))
    {}

    [[nodiscard]] bool isMoved() const
    {
        return !FileExists(pathName + fileName) && FileExists(newPathName + newFileName);
    }
    /** A volume that isn't there now may come back with the file under its new name. */
    [[nodiscard]] bool isOutOfSight() const
    {
        return !FileExists(pathName + fileName) && !FolderExists(newPathName);
    }
};

namespace {

std::unique_ptr<dao::Recordset> rowOf(dao::Database &database, const QString &table, qint64 recordId)
{
    return database.OpenRecordset(u"Select * from %1 Where RecordID=%2"_s.arg(table).arg(recordId),
                                  dao::RecordsetType::Dynaset);
}

QString quoted(QString text)
{
    return u'"' + text.replace(u'"', u"\"\""_s) + u'"';
}

} // namespace

void RenameNotes::keep(qint64 recordId, const QString &pathName, const QString &fileName,
                       const QString &newPathName, const QString &newFileName)
{
    dao::Database &database = *m_catalogue.CatalogueDb;
    // One from before this table came can be open too, but only for reading.
    if (!database.Updatable())
        throw dao::DaoError(dao::ReadOnly, u"Cannot update.  Database or object is read-only."_s);
    const auto note = rowOf(database, u"tblRenameNotes"_s, recordId);
    if (note->isEmpty())
        note->AddNew();
    else
        note->Edit();
    note->setValue(u"RecordID"_s, recordId);
    note->setValue(u"PathName"_s, pathName);
    note->setValue(u"FileName"_s, fileName);
    note->setValue(u"NewPathName"_s, newPathName);
    note->setValue(u"NewFileName"_s, newFileName);
    note->Update();
    database.workspace().settle();
}

void RenameNotes::drop(qint64 recordId)
{
    m_catalogue.CatalogueDb->Execute(u"Delete * from tblRenameNotes Where RecordID=%1"_s.arg(recordId));
}

void RenameNotes::settle()
{
    dao::Database &database = *m_catalogue.CatalogueDb;
    if (!database.Updatable())
        return;
    std::vector<Note> notes;
    const auto rows = database.OpenRecordset(u"tblRenameNotes"_s, dao::RecordsetType::Snapshot);
    for (; !rows->atEOF(); rows->MoveNext())
        notes.emplace_back(*rows);
    for (const Note &note : notes) {
        try {
            dao::Transaction transaction(database.workspace());
            settle(note);
            transaction.commit();
        } catch (const dao::DaoError &error) {
            // The note waits for the next start; it is no reason to refuse this one.
            if (error.number == dao::CannotOpenFile)
                throw;
        }
    }
}

void RenameNotes::settle(const Note &note)
{
    if (note.isMoved()) {
        renameTracks(note.pathName + note.fileName, note.newPathName + note.newFileName);
        renameRow(note);
    } else if (note.isOutOfSight()) {
        return;
    }
    drop(note.recordId);
}

void RenameNotes::renameRow(const Note &note)
{
    const auto row = rowOf(*m_catalogue.CatalogueDb, u"tblContacts"_s, note.recordId);
    if (row->isEmpty() || row->text(u"PathName"_s) != note.pathName ||
        row->text(u"FileName"_s) != note.fileName)
        return;
    row->Edit();
    try {
        row->setValue(u"PathName"_s, note.newPathName);
        row->setValue(u"FileName"_s, note.newFileName);
        row->Update();
    } catch (const dao::DaoError &error) {
        // Another song bears that file already, or the name is too long: no later start would do better.
        if (error.number != dao::DuplicateKey && error.number != dao::FieldTooSmall)
            throw;
    }
}

void RenameNotes::renameTracks(const QString &from, const QString &to)
{
    dao::Transaction transaction(m_catalogue.CatalogueDb->workspace());
    const auto tracks = m_catalogue.CatalogueDb->OpenRecordset(
        u"Select FileName From tblPlayListDetail Where FileName="_s + quoted(from),
        dao::RecordsetType::Dynaset);
    for (; !tracks->atEOF(); tracks->MoveNext()) {
        // The store's comparison is blind to case, but here files are told apart by it.
        if (tracks->text(u"FileName"_s) != from)
            continue;
        tracks->Edit();
        tracks->setValue(u"FileName"_s, to);
        tracks->Update();
    }
    transaction.commit();
}

} // namespace quaverly
