// SPDX-License-Identifier: GPL-3.0-or-later
#include "lists/PlayListStore.h"

#include "desktop/FileHelpers.h"
#include "lists/PlayListSql.h"
#include "platform/text/Text.h"
#include "songlist/ListTexts.h"

#include <algorithm>
#include <span>
#include <utility>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

void add(dao::Recordset &rows, qint64 listId, qint64 listTrackId, const Track &track, const QDateTime &now)
{
    rows.AddNew();
    rows.setValue(u"ListId"_s, listId);
    rows.setValue(u"ListTrackID"_s, listTrackId);
    rows.setValue(u"ContactRecordID"_s, track.ContactRecordID);
    rows.setValue(u"SongTitle"_s, track.SongTitle);
    rows.setValue(u"ArtistName"_s, track.ArtistName);
    rows.setValue(u"AlbumName"_s, track.AlbumName);
    rows.setValue(u"Track"_s, track.TrackText);
    rows.setValue(u"FileName"_s, track.FileName);
    rows.setValue(u"Duration"_s, track.Duration);
    rows.setValue(u"Year"_s, track.Year);
    rows.setValue(u"Rating"_s, track.Rating);
    rows.setValue(u"Notes"_s, track.Notes);
    rows.setValue(u"LastUpdated"_s, now);
    rows.Update();
}

/** Gives the rows at these positions the numbers from 1 on; those that bear theirs already stay untouched. */
void number(dao::Recordset &rows, const QList<qint64> &positions, const QDateTime &now)
{
    const int field = rows.fieldIndex(u"ListTrackID"_s);
    QList<qint64> numbers(rows.RecordCount());
    rows.forEachRow({field}, [&numbers](qint64 row, std::span<const QByteArrayView> texts) {
        numbers[row] = texts.front().toLongLong();
    });
    for (qsizetype place = 0; place < positions.size(); ++place) {
        const qint64 position = positions.at(place);
        if (numbers.at(position) == place + 1)
            continue;
        rows.setAbsolutePosition(position);
        rows.Edit();
        rows.setValue(u"ListTrackID"_s, place + 1);
        rows.setValue(u"LastUpdated"_s, now);
        rows.Update();
    }
}

} // namespace

QString singleQuotes(QString text)
{
    return text.replace(u'"', u'\'');
}

QString withoutTrailingBlanks(const QString &text)
{
    qsizetype length = text.size();
    while (length > 0 && text.at(length - 1) == u' ')
        --length;
    return text.first(length);
}

Track trackOfSong(const dao::Recordset &song)
{
    Track track;
    track.ContactRecordID = song.value(u"RecordID"_s);
    track.SongTitle = song.value(u"SongName"_s);
    if (!track.SongTitle.isNull())
        track.SongTitle = singleQuotes(track.SongTitle.toString());
    track.ArtistName = song.value(u"Artist"_s);
    track.AlbumName = song.value(u"AlbumName"_s);
    track.TrackText = song.value(u"TrackText"_s);
    track.FileName = song.text(u"PathName"_s) + song.text(u"FileName"_s);
    track.Duration = song.value(u"Duration"_s);
    track.Year = song.value(u"Year"_s);
    track.Rating = song.value(u"Rating"_s);
    return track;
}

PlayListStore::PlayListStore(Catalogue &catalogue, std::function<QDateTime()> now)
    : m_catalogue(catalogue), m_now(std::move(now))
{}

std::unique_ptr<dao::Recordset> PlayListStore::snapshot(const QString &sql) const
{
    return database().OpenRecordset(sql, dao::RecordsetType::Snapshot);
}

std::unique_ptr<dao::Recordset> PlayListStore::dynaset(const QString &sql) const
{
    return database().OpenRecordset(sql, dao::RecordsetType::Dynaset);
}

QList<PlayListName> PlayListStore::lists() const
{
    const auto rows = snapshot(playlistsql::listNames());
    QList<PlayListName> names;
    for (; !rows->atEOF(); rows->MoveNext())
        names.append({rows->text(u"ListName"_s), rows->value(u"ListID"_s).toLongLong()});
    return names;
}

bool PlayListStore::hasLists() const
{
    return !dynaset(playlistsql::allLists())->isEmpty();
}

std::optional<qint64> PlayListStore::ListID(const QString &listName) const
{
    const auto rows = snapshot(playlistsql::idOfName(listName));
    if (rows->isEmpty())
        return std::nullopt;
    return rows->value(u"ListID"_s).toLongLong();
}

bool PlayListStore::exists(qint64 listId) const
{
    return !snapshot(playlistsql::header(listId))->isEmpty();
}

std::optional<PlayListHeader> PlayListStore::headerOfName(const QString &listName, qint64 preferred) const
{
    const auto rows = snapshot(playlistsql::headerOfName(listName));
    if (rows->isEmpty())
        return std::nullopt;
    rows->FindFirst(u"ListID="_s + QString::number(preferred));
    return PlayListHeader{rows->value(u"ListID"_s).toLongLong(), rows->text(u"ListName"_s),
                          rows->text(u"Notes"_s)};
}

bool PlayListStore::isTaken(const QString &listName) const
{
    return !dynaset(playlistsql::headerOfName(listName))->isEmpty();
}

qint64 PlayListStore::addList(const QString &listName, const QString &notes)
{
    const auto rows = dynaset(playlistsql::headerOfName(listName));
    rows->AddNew();
    rows->setValue(u"ListName"_s, withoutTrailingBlanks(listName));
    rows->setValue(u"Notes"_s, notes);
    rows->setValue(u"LastUpdated"_s, m_now());
    rows->Update();
    return rows->LastModified().key;
}

void PlayListStore::addListWithTracks(const QString &listName, const QList<Track> &tracks)
{
    dao::Transaction transaction(database().workspace());
    addTracks(addList(listName, {}), tracks);
    transaction.commit();
}

bool PlayListStore::editList(qint64 listId, const QString &listName, const QString &notes)
{
    const auto rows = dynaset(playlistsql::header(listId));
    if (rows->isEmpty())
        return false;
    rows->Edit();
    rows->setValue(u"ListName"_s, withoutTrailingBlanks(listName));
    rows->setValue(u"Notes"_s, notes);
    rows->setValue(u"LastUpdated"_s, m_now());
    rows->Update();
    return true;
}

void PlayListStore::deleteList(qint64 listId)
{
    dao::Transaction transaction(database().workspace());
    database().Execute(playlistsql::deleteTracks(listId));
    database().Execute(playlistsql::deleteHeader(listId));
    transaction.commit();
}

std::unique_ptr<dao::Recordset> PlayListStore::track(qint64 listId, qint64 key) const
{
    auto rows = dynaset(playlistsql::tracks(listId));
    const qint64 position = rows->positionOf({key});
    if (position < 0)
        return nullptr;
    rows->setAbsolutePosition(position);
    return rows;
}

qint64 PlayListStore::countTracks(qint64 listId) const
{
    return snapshot(playlistsql::countTracks(listId))->value(u"RowCount"_s).toLongLong();
}

void PlayListStore::addTracks(qint64 listId, const QList<Track> &tracks)
{
    dao::Transaction transaction(database().workspace());
    RenumberTracks(listId);
    qint64 last = countTracks(listId);
    const auto rows = dynaset(playlistsql::noTracks(listId));
    const QDateTime now = m_now();
    for (const Track &track : tracks)
        add(*rows, listId, ++last, track, now);
    transaction.commit();
}

void PlayListStore::deleteTrack(qint64 listId, qint64 key)
{
    dao::Transaction transaction(database().workspace());
    if (const auto rows = track(listId, key))
        rows->Delete();
    RenumberTracks(listId);
    transaction.commit();
}

void PlayListStore::deleteFile(qint64 listId, const QString &path)
{
    dao::Transaction transaction(database().workspace());
    database().Execute(playlistsql::deleteFile(listId, path));
    RenumberTracks(listId);
    transaction.commit();
}

void PlayListStore::RenumberTracks(qint64 listId)
{
    reorder(listId, {});
}

std::optional<qsizetype> PlayListStore::reorder(qint64 listId, const QList<qint64> &keys)
{
    dao::Transaction transaction(database().workspace());
    const auto rows = dynaset(playlistsql::reorder(listId));
    QList<bool> isPlaced(rows->RecordCount());
    QList<qint64> positions;
    positions.reserve(rows->RecordCount());
    const auto place = [&](qint64 position) {
        if (!std::exchange(isPlaced[position], true))
            positions.append(position);
    };
    std::optional<qsizetype> missing;
    for (qsizetype i = 0; i < keys.size(); ++i) {
        if (const qint64 position = rows->positionOf({keys.at(i)}); position >= 0)
            place(position);
        else if (!missing)
            missing = i;
    }
    for (qint64 position = 0; position < rows->RecordCount(); ++position)
        place(position);
    number(*rows, positions, m_now());
    transaction.commit();
    return missing;
}

QList<ShownTrack> PlayListStore::shownTracks(qint64 listId, qint64 most) const
{
    const auto rows = snapshot(playlistsql::shownTracks(listId));
    const qint64 count = std::min(rows->RecordCount(), most);
    QList<ShownTrack> tracks;
    tracks.reserve(count);
    rows->forEachRow({0, 1}, [&](qint64 row, std::span<const QByteArrayView> texts) {
        if (row < count)
            tracks.append(
                {QString::fromUtf8(texts[0]), QString::fromUtf8(texts[1]), rows->bookmarkAt(row).key});
    });
    return tracks;
}

QList<FiledTrack> PlayListStore::tracksWithFile(qint64 listId) const
{
    const auto rows = snapshot(playlistsql::tracksWithFile(listId));
    QList<FiledTrack> tracks;
    tracks.reserve(rows->RecordCount());
    for (qint64 row = 0; row < rows->RecordCount(); ++row)
        tracks.append({rows->valueAt(row, 0).toString(), rows->valueAt(row, 1).toString(),
                       rows->valueAt(row, 2).toString()});
    return tracks;
}

std::optional<TrackTexts> PlayListStore::oneTrack(qint64 listId, qint64 key) const
{
    const auto row = track(listId, key);
    if (!row)
        return std::nullopt;
    return TrackTexts{row->text(u"SongTitle"_s), row->text(u"ArtistName"_s), row->text(u"FileName"_s),
                      row->text(u"Notes"_s)};
}

bool PlayListStore::editTrack(qint64 listId, qint64 key, const TrackTexts &texts)
{
    dao::Transaction transaction(database().workspace());
    const auto row = track(listId, key);
    if (!row)
        return false;
    row->Edit();
    row->setValue(u"SongTitle"_s, texts.SongTitle);
    row->setValue(u"FileName"_s, texts.FileName);
    row->setValue(u"ArtistName"_s, texts.ArtistName);
    row->setValue(u"Notes"_s, texts.Notes);
    row->setValue(u"LastUpdated"_s, m_now());
    row->Update();
    RenumberTracks(listId);
    transaction.commit();
    return true;
}

std::optional<qint64> PlayListStore::songOfFile(const QString &path) const
{
    const auto rows = snapshot(u"select RecordID from tblContacts Where PathName="_s +
                               quoted(folderOf(path)) + u" and FileName="_s + quoted(fileNameOf(path)));
    if (rows->isEmpty())
        return std::nullopt;
    return rows->value(u"RecordID"_s).toLongLong();
}

} // namespace quaverly
