// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/PlayListStore.h"

#include "desktop/FileHelpers.h"
#include "platform/text/Text.h"
#include "player/PlayListSql.h"
#include "songlist/ListTexts.h"

#include <algorithm>
#include <set>
#include <span>
#include <unordered_map>

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

/** What FindFirst would find while numbers are rewritten, without asking the store for each. */
class NumbersInPlace final
{
public:
    explicit NumbersInPlace(const dao::Recordset &rows)
    {
        const int field = rows.fieldIndex(u"ListTrackID"_s);
        for (qint64 position = 0; position < rows.RecordCount(); ++position)
            m_positions[rows.valueAt(position, field).toLongLong()].insert(position);
    }

    /** The position of the first row with that number, which now bears the other one. */
    std::optional<qint64> renumber(qint64 from, qint64 to)
    {
        const auto found = m_positions.find(from);
        if (found == m_positions.end() || found->second.empty())
            return std::nullopt;
        const qint64 position = *found->second.begin();
        found->second.erase(found->second.begin());
        m_positions[to].insert(position);
        return position;
    }

private:
    std::unordered_map<qint64, std::set<qint64>> m_positions;
};

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

qint64 PlayListStore::highestTrack(qint64 listId) const
{
    const auto rows = dynaset(playlistsql::highestFirst(listId));
    return rows->isEmpty() ? 0 : rows->value(u"ListTrackID"_s).toLongLong();
}

void PlayListStore::addTrack(qint64 listId, qint64 listTrackId, const Track &track)
{
    add(*dynaset(playlistsql::tracks(listId)), listId, listTrackId, track, m_now());
}

void PlayListStore::addTracks(qint64 listId, qint64 firstTrackId, const QList<Track> &tracks)
{
    dao::Transaction transaction(database().workspace());
    const auto rows = dynaset(playlistsql::tracks(listId));
    const QDateTime now = m_now();
    for (const Track &track : tracks)
        add(*rows, listId, firstTrackId++, track, now);
    transaction.commit();
}

void PlayListStore::deleteTrack(qint64 listId, qint64 listTrackId)
{
    database().Execute(playlistsql::deleteTrack(listId, listTrackId));
}

void PlayListStore::deleteFile(qint64 listId, const QString &path)
{
    database().Execute(playlistsql::deleteFile(listId, path));
}

void PlayListStore::RenumberTracks(qint64 listId)
{
    dao::Transaction transaction(database().workspace());
    const auto rows = dynaset(playlistsql::renumber(listId));
    const QDateTime now = m_now();
    for (qint64 counter = 1; !rows->atEOF(); rows->MoveNext()) {
        rows->Edit();
        rows->setValue(u"ListTrackID"_s, counter++);
        rows->setValue(u"LastUpdated"_s, now);
        rows->Update();
    }
    transaction.commit();
}

std::optional<qsizetype> PlayListStore::reorder(qint64 listId, const QList<qint64> &numbers)
{
    dao::Transaction transaction(database().workspace());
    const auto rows = dynaset(playlistsql::reorder(listId));
    if (rows->isEmpty())
        return std::nullopt;
    NumbersInPlace inPlace(*rows);
    const QDateTime now = m_now();
    qsizetype given = 0;
    for (; given < numbers.size(); ++given) {
        const auto position = inPlace.renumber(numbers.at(given), given + 1);
        if (!position)
            break;
        rows->setAbsolutePosition(*position);
        rows->Edit();
        rows->setValue(u"ListTrackID"_s, given + 1);
        rows->setValue(u"LastUpdated"_s, now);
        rows->Update();
    }
    transaction.commit();
    return given;
}

QList<ShownTrack> PlayListStore::shownTracks(qint64 listId, qint64 most) const
{
    const auto rows = snapshot(playlistsql::shownTracks(listId));
    const qint64 count = std::min(rows->RecordCount(), most);
    QList<ShownTrack> tracks;
    tracks.reserve(count);
    rows->forEachRow({0, 1, 2}, [&](qint64 row, std::span<const QByteArrayView> texts) {
        if (row < count)
            tracks.append({QString::fromUtf8(texts[0]), QString::fromUtf8(texts[1]), texts[2].toLongLong()});
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

std::optional<TrackTexts> PlayListStore::oneTrack(qint64 listId, qint64 listTrackId) const
{
    const auto rows = snapshot(playlistsql::oneTrack(listId, listTrackId));
    if (rows->isEmpty())
        return std::nullopt;
    return TrackTexts{rows->text(u"SongTitle"_s), rows->text(u"ArtistName"_s), rows->text(u"FileName"_s),
                      rows->text(u"Notes"_s)};
}

bool PlayListStore::editTrack(qint64 listId, qint64 listTrackId, const TrackTexts &texts)
{
    const auto rows = dynaset(playlistsql::oneTrack(listId, listTrackId));
    if (rows->isEmpty())
        return false;
    rows->Edit();
    rows->setValue(u"ListId"_s, listId);
    rows->setValue(u"SongTitle"_s, texts.SongTitle);
    rows->setValue(u"FileName"_s, texts.FileName);
    rows->setValue(u"ArtistName"_s, texts.ArtistName);
    rows->setValue(u"Notes"_s, texts.Notes);
    rows->setValue(u"LastUpdated"_s, m_now());
    rows->Update();
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
