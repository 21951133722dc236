// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/RenameNotes.h"

#include "catalogue/Catalogue.h"
#include "desktop/FileHelpers.h"
#include "platform/shell/FileMove.h"
#include "platform/shell/FileRemains.h"
#include "platform/store/History.h"

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace quaverly {

struct RenameNotes::Note
{
    qint64 recordId = 0;
    SongFile from;
    SongFile to;

    Note(qint64 record, SongFile before, SongFile after)
        : recordId(record), from(std::move(before)), to(std::move(after))
    {}
    explicit Note(const dao::Recordset &row)
        : recordId(row.value(u"RecordID"_s).toLongLong()),
          from{row.text(u"PathName"_s), row.text(u"FileName"_s)}, to{row.text(u"NewPathName"_s),
                                                                     row.text(u"NewFileName"_s)}
    {}

    [[nodiscard]] bool isMoved() const
    {
        return FileExists(to.path()) &&
               (!FileExists(from.path()) || shell::isOwnNameInOtherCapitals(to.path(), from.path()));
    }
    /** A volume that isn't there now may come back with the file under its new name, or with half of it. */
    [[nodiscard]] bool isOutOfSight() const { return !FolderExists(to.PathName); }
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

void RenameNotes::keep(qint64 recordId, const SongFile &from, const SongFile &to)
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
    note->setValue(u"PathName"_s, from.PathName);
    note->setValue(u"FileName"_s, from.FileName);
    note->setValue(u"NewPathName"_s, to.PathName);
    note->setValue(u"NewFileName"_s, to.FileName);
    note->Update();
    // A note that still waited in a transaction would die with the process it is kept for.
    database.workspace().settle();
    // What the journal tells of the tracks belongs to the row that is written later.
    database.holdChange(true);
}

void RenameNotes::moveFile(qint64 recordId, const SongFile &from, const SongFile &to)
{
    // On the disk before the file moves: until the row is written, only the note knows both names.
    keep(recordId, from, to);
    try {
        shell::moveFile(from.path(), to.path());
    } catch (const dao::DaoError &) {
        // The file is where the row names it, so the next start has nothing to settle.
        drop(recordId);
        throw;
    }
}

void RenameNotes::rename(qint64 recordId, const SongFile &from, const SongFile &to)
{
    moveFile(recordId, from, to);
    try {
        dao::Transaction transaction(m_catalogue.CatalogueDb->workspace());
        renameTracks(from.path(), to.path());
        if (!renameRow(Note(recordId, from, to)))
            throw dao::DaoError(dao::ChangedByAnother,
                                u"The record names another file by now: another program has changed it."_s);
        rowWritten(recordId);
        transaction.commit();
    } catch (const dao::DaoError &error) {
        const QString left = giveUp(recordId);
        throw dao::DaoError(error.number,
                            left.isEmpty() ? error.description : error.description + u"\n\n"_s + left);
    }
}

void RenameNotes::rowWritten(qint64 recordId)
{
    if (const auto note = noteOf(recordId))
        m_catalogue.CatalogueDb->noteFileMoved(recordId, note->from.path(), note->to.path());
    drop(recordId);
}

void RenameNotes::drop(qint64 recordId)
{
    m_catalogue.CatalogueDb->holdChange(false);
    m_catalogue.CatalogueDb->Execute(u"Delete * from tblRenameNotes Where RecordID=%1"_s.arg(recordId));
}

std::optional<RenameNotes::Note> RenameNotes::noteOf(qint64 recordId)
{
    if (!m_catalogue.CatalogueDb->Updatable())
        return {};
    const auto row = rowOf(*m_catalogue.CatalogueDb, u"tblRenameNotes"_s, recordId);
    return row->isEmpty() ? std::nullopt : std::optional<Note>(*row);
}

bool RenameNotes::has(qint64 recordId)
{
    return noteOf(recordId).has_value();
}

SongFile RenameNotes::placeOf(qint64 recordId, const SongFile &row)
{
    const auto note = noteOf(recordId);
    return note && note->from == row && note->isMoved() ? note->to : row;
}

void RenameNotes::takeBack(qint64 recordId)
{
    if (const auto note = noteOf(recordId))
        takeBack(*note);
}

// The tracks go first: a death behind them leaves what a death behind the rename does, and is settled so.
void RenameNotes::takeBack(const Note &note)
{
    const auto bearer = bearerOf(note.to);
    if (note.isMoved() && (!bearer || bearer->RecordID != note.recordId)) {
        renameTracks(note.to.path(), note.from.path(), bearer ? bearer->RecordID : 0);
        try {
            shell::moveFile(note.to.path(), note.from.path());
        } catch (const dao::DaoError &) {
            renameTracks(note.from.path(), note.to.path());
            throw;
        }
    }
    drop(note.recordId);
}

QString RenameNotes::giveUp(qint64 recordId)
{
    const auto note = noteOf(recordId);
    m_catalogue.CatalogueDb->holdChange(false);
    if (!note)
        return {};
    try {
        takeBack(*note);
        return {};
    } catch (const dao::DaoError &) {
        return settle(*note);
    }
}

QStringList RenameNotes::settle()
{
    QStringList told;
    dao::Database &database = *m_catalogue.CatalogueDb;
    if (!database.Updatable())
        return told;
    std::vector<Note> notes;
    {
        const auto rows = database.OpenRecordset(u"tblRenameNotes"_s, dao::RecordsetType::Snapshot);
        for (; !rows->atEOF(); rows->MoveNext())
            notes.emplace_back(*rows);
    }
    if (notes.empty())
        return told;
    database.describeChange(u"Settle a renaming that was interrupted"_s);
    goOnWithInterrupted(notes);
    for (const Note &note : notes) {
        if (const QString sentences = settle(note); !sentences.isEmpty())
            told += sentences;
    }
    database.endChange();
    return told;
}

// The tracks that a save renamed before it died belong to the change that settles it.
void RenameNotes::goOnWithInterrupted(const std::vector<Note> &notes)
{
    try {
        dao::History history(*m_catalogue.CatalogueDb);
        const auto newest = history.undoable();
        bool isInterrupted = false;
        for (qint64 place = 0; newest && place < dao::History::valueCount(*newest); ++place) {
            const auto value = history.valueAt(*newest, place);
            if (!value)
                continue;
            if (value->table != u"tblPlayListDetail"_s || value->field != u"FileName"_s)
                return;
            const QString file = value->after.toString();
            isInterrupted = isInterrupted || std::ranges::any_of(notes, [&](const Note &note) {
                                return note.to.path() == file;
                            });
        }
        if (isInterrupted)
            history.goOnWith(*newest);
    } catch (const dao::DaoError &) { // NOLINT(bugprone-empty-catch)
        // A history that can't be read is no reason to refuse a start.
    }
}

QString RenameNotes::settle(const Note &note)
{
    try {
        clearRemains(note);
        if (note.isOutOfSight())
            return {};
        if (note.isMoved())
            return follow(note);
        drop(note.recordId);
        return {};
    } catch (const dao::DaoError &error) {
        if (error.number == dao::CannotOpenFile)
            throw;
        // The note waits; it is no reason to refuse a start.
        return note.isMoved() ? sentence(note, error.description,
                                         u"Quaverly tries again at its next start, and until then this song "
                                         "can't be played."_s)
                              : QString();
    }
}

QString RenameNotes::follow(const Note &note)
{
    try {
        dao::Transaction transaction(m_catalogue.CatalogueDb->workspace());
        renameTracks(note.from.path(), note.to.path());
        static_cast<void>(renameRow(note));
        rowWritten(note.recordId);
        transaction.commit();
        return {};
    } catch (const dao::DaoError &error) {
        // Another song bears that file already, or the name is too long: no later start would do better.
        if (error.number == dao::DuplicateKey) {
            const auto bearer = bearerOf(note.to);
            return putBack(
                note, u"the song \"%1\" has that file already."_s.arg(bearer ? bearer->SongName : QString()));
        }
        if (error.number == dao::FieldTooSmall)
            return putBack(note, error.description);
        throw;
    }
}

QString RenameNotes::putBack(const Note &note, const QString &why)
{
    try {
        takeBack(note);
        return sentence(note, why, u"The file has its old name again."_s);
    } catch (const dao::DaoError &error) {
        if (error.number == dao::CannotOpenFile)
            throw;
        return sentence(note, why,
                        u"It could not be given its old name again: "_s + error.description +
                            u"  Quaverly tries again at each start."_s);
    }
}

QString RenameNotes::sentence(const Note &note, const QString &why, const QString &end)
{
    const auto row = rowOf(*m_catalogue.CatalogueDb, u"tblContacts"_s, note.recordId);
    const QString song = row->isEmpty() ? QString() : row->text(u"SongName"_s);
    // In one go, since names may hold what looks like a place to fill.
    return u"The file of \"%1\" was renamed from \"%2\" to \"%3\", but its record could not follow: %4  %5"_s
        .arg(song, note.from.path(), note.to.path(), why, end);
}

void RenameNotes::clearRemains(const Note &note)
{
    shell::clearUnfinishedCopies(note.from.PathName);
    shell::clearUnfinishedCopies(note.to.PathName);
    const bool isOld = FileExists(note.from.path());
    const bool isNew = FileExists(note.to.path());
    if (!isOld && !isNew)
        shell::restoreSpelling(note.from.path());
    else if (isOld && isNew && !bearerOf(note.to))
        shell::clearSecondName(note.from.path(), note.to.path());
}

bool RenameNotes::renameRow(const Note &note)
{
    const auto row = rowOf(*m_catalogue.CatalogueDb, u"tblContacts"_s, note.recordId);
    if (row->isEmpty() || row->text(u"PathName"_s) != note.from.PathName ||
        row->text(u"FileName"_s) != note.from.FileName)
        return false;
    row->Edit();
    row->setValue(u"PathName"_s, note.to.PathName);
    row->setValue(u"FileName"_s, note.to.FileName);
    row->Update();
    return true;
}

std::optional<FiledSong> RenameNotes::bearerOf(const SongFile &file)
{
    return songOfFile(*m_catalogue.CatalogueDb, file);
}

void RenameNotes::renameTracks(const QString &from, const QString &to)
{
    renameTracks(from, to, 0);
}

void RenameNotes::renameTracks(const QString &from, const QString &to, qint64 exceptOf)
{
    dao::Transaction transaction(m_catalogue.CatalogueDb->workspace());
    const auto tracks = m_catalogue.CatalogueDb->OpenRecordset(
        u"Select FileName, ContactRecordID From tblPlayListDetail Where FileName="_s + quoted(from),
        dao::RecordsetType::Dynaset);
    for (; !tracks->atEOF(); tracks->MoveNext()) {
        // The store's comparison is blind to case, but here files are told apart by it.
        if (tracks->text(u"FileName"_s) != from ||
            (exceptOf != 0 && tracks->value(u"ContactRecordID"_s).toLongLong() == exceptOf))
            continue;
        tracks->Edit();
        tracks->setValue(u"FileName"_s, to);
        tracks->Update();
    }
    transaction.commit();
}

} // namespace quaverly
