// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/UpdateCarrier.h"

#include "catalogue/Catalogue.h"
#include "catalogue/RenameNotes.h"
#include "desktop/FileHelpers.h"
#include "update/Aside.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

std::vector<const UpdateRow *> tickedRows(const UpdateList &list, UpdateKind kind)
{
    std::vector<const UpdateRow *> rows;
    for (const UpdateRow &row : list.rows) {
        if (row.kind == kind && row.isTicked)
            rows.push_back(&row);
    }
    return rows;
}

/** No name of a file: where a track waits while the names of two files change places. */
QString waitingName(qint64 recordId)
{
    return u"\x01%1"_s.arg(recordId);
}

} // namespace

QString UpdateOutcome::words() const
{
    const std::array<std::pair<int, QLatin1StringView>, 4> counts{
        {{added, "new"_L1}, {changed, "changed"_L1}, {moved, "moved"_L1}, {deleted, "deleted"_L1}}};
    QStringList parts;
    for (const auto &[count, word] : counts) {
        if (count > 0)
            parts.append(QString::number(count) + u' ' + word);
    }
    return parts.isEmpty() ? u"nothing"_s : parts.join(u", "_s);
}

UpdateCarrier::UpdateCarrier(const UpdateParts &parts, UpdateGoesOn goesOn)
    : m_parts(parts), m_database(*parts.services.catalogue.CatalogueDb), m_goesOn(std::move(goesOn)),
      m_facts(m_database), m_songs(m_database.OpenRecordset(u"tblContacts"_s, dao::RecordsetType::Table))
{
    m_songs->setIndex(u"PrimaryKey"_s);
}

std::optional<UpdateOutcome> UpdateCarrier::carryOut(const UpdateList &list)
{
    dao::Transaction transaction(m_database.workspace());
    // Songs that go make room for those that come to their names.
    remove(tickedRows(list, UpdateKind::Gone));
    move(tickedRows(list, UpdateKind::Moved));
    change(list, tickedRows(list, UpdateKind::Changed));
    if (!add(tickedRows(list, UpdateKind::New)))
        return {};
    m_database.describeChange(u"Update from disk: "_s + m_outcome.words());
    transaction.commit();
    return std::move(m_outcome);
}

bool UpdateCarrier::seek(qint64 recordId)
{
    m_songs->Seek(u"="_s, {recordId});
    return !m_songs->NoMatch();
}

bool UpdateCarrier::isAsFound(const DiskFile &file, const QString &path)
{
    const auto now = shell::stampOf(file.path());
    if (now && now->size == file.stamp.size && now->modified == file.stamp.modified)
        return true;
    tell(path, u"The file has changed again meanwhile"_s);
    return false;
}

void UpdateCarrier::remove(const std::vector<const UpdateRow *> &rows)
{
    for (const UpdateRow *row : rows) {
        if (shell::fileStateOf(row->file.path()) != shell::FileState::Gone) {
            tell(row->before, u"The file is there again"_s);
        } else if (seek(row->recordId)) {
            m_songs->Delete();
            ++m_outcome.deleted;
        }
    }
}

/**
 * Files may have changed names in a ring: so all leave their old names first. A name that a song bears which
 * does not move is refused.
 */
void UpdateCarrier::move(const std::vector<const UpdateRow *> &rows)
{
    RenameNotes tracks(m_parts.services.catalogue);
    std::vector<const UpdateRow *> leaving;
    for (const UpdateRow *row : rows) {
        if (!isAsFound(row->file, row->after) || !seek(row->recordId))
            continue;
        m_songs->Edit();
        m_songs->setValue(u"FileName"_s, QString());
        m_songs->Update();
        tracks.renameTracks(row->before, waitingName(row->recordId));
        leaving.push_back(row);
    }
    for (const UpdateRow *row : leaving) {
        const SongFile to = songFileOf(row->file);
        const auto bearer = songOfFile(m_database, to);
        if (bearer)
            tell(row->after, u"The song \"%1\" has that file already"_s.arg(bearer->SongName));
        // Back to its old name, when it may not have the new one.
        const SongFile from{folderOf(row->before), fileNameOf(row->before)};
        moveSong(*row, bearer ? from : to);
        tracks.renameTracks(waitingName(row->recordId), bearer ? row->before : row->after);
        m_outcome.moved += bearer ? 0 : 1;
    }
}

void UpdateCarrier::moveSong(const UpdateRow &row, const SongFile &to)
{
    if (!seek(row.recordId))
        return;
    m_songs->Edit();
    m_songs->setValue(u"PathName"_s, to.PathName);
    m_songs->setValue(u"FileName"_s, to.FileName);
    m_songs->setValue(u"DateUpdated"_s, m_parts.now());
    m_songs->Update();
    // The tags are those of then; where they were read again, the fact comes with them.
    if (auto fact = m_facts.of(row.recordId); fact && fact->stamp.modified == row.file.stamp.modified) {
        fact->stamp = row.file.stamp;
        m_facts.put(*fact);
    }
}

void UpdateCarrier::change(const UpdateList &list, const std::vector<const UpdateRow *> &rows)
{
    for (auto first = rows.begin(); first != rows.end();) {
        const qint64 song = (*first)->recordId;
        const auto end =
            std::find_if(first, rows.end(), [&](const UpdateRow *row) { return row->recordId != song; });
        const auto read = list.read.constFind(song);
        if (read != list.read.cend() && isAsFound({read->file.folder, read->file.name, *read->stamp},
                                                  QString::fromUtf8(read->file.path())))
            changeSong(song, *read, {first, end});
        first = end;
    }
}

void UpdateCarrier::changeSong(qint64 recordId, const SongOnDisk &read,
                               const std::vector<const UpdateRow *> &rows)
{
    if (!seek(recordId))
        return;
    // A file under another name is this song's only once that is carried out too.
    if (m_songs->text(u"FileName"_s) != QString::fromUtf8(read.file.name))
        return tell(QString::fromUtf8(read.file.path()), u"The song has another file"_s);
    m_songs->Edit();
    for (const UpdateRow *row : rows) {
        m_songs->setValue(row->field, row->after);
        if (row->field == "TrackText"_L1)
            m_songs->setValue(u"TrackNum"_s, read.song.value(u"TrackNum"_s));
    }
    for (const QString &field : {u"FileSize"_s, u"FileSizeNum"_s})
        m_songs->setValue(field, read.song.value(field));
    m_songs->setValue(u"DateUpdated"_s, m_parts.now());
    m_songs->Update();
    m_facts.put({recordId, *read.stamp, read.sound, tagsOf(read.song)});
    ++m_outcome.changed;
}

bool UpdateCarrier::add(const std::vector<const UpdateRow *> &rows)
{
    std::vector<DiskFile> files;
    files.reserve(rows.size());
    for (const UpdateRow *row : rows)
        files.push_back(row->file);
    return readInPortions(std::move(files), m_goesOn, u"Adding new songs..."_s,
                          [this](const SongOnDisk &read) { addSong(read); });
}

void UpdateCarrier::addSong(const SongOnDisk &read)
{
    const QString path = QString::fromUtf8(read.file.path());
    if (!read.stamp)
        return tell(path, u"The file is gone"_s);
    try {
        m_songs->AddNew();
        for (const auto &[field, value] : read.song)
            m_songs->setValue(field, value);
        m_songs->setValue(u"DateUpdated"_s, m_parts.now());
        m_songs->setValue(u"DateAdded"_s, m_parts.now());
        m_songs->Update();
    } catch (const dao::DaoError &error) {
        if (m_songs->editing())
            m_songs->CancelUpdate();
        if (error.number != dao::DuplicateKey && error.number != dao::FieldTooSmall)
            throw;
        return tell(path, error.description);
    }
    m_facts.add({m_songs->LastModified().key, *read.stamp, read.sound, tagsOf(read.song)});
    ++m_outcome.added;
    if (!read.failure.isEmpty())
        tell(path, read.failure);
}

} // namespace quaverly
