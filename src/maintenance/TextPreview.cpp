// SPDX-License-Identifier: GPL-3.0-or-later
#include "maintenance/TextPreview.h"

#include "catalogue/SongFields.h"
#include "platform/store/RowKeys.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr auto Songs = "tblContacts"_L1;
constexpr auto Folder = "PathName"_L1;

QString headingOf(const TextField &place)
{
    if (place.table != Songs)
        return u"File of a play list"_s;
    const SongField *field = songField(place.name());
    return field != nullptr && !field->heading.isEmpty() ? QString(field->heading) : place.name();
}

bool changesFolders(const TextChange &change)
{
    return change.place.table == Songs && change.place.name() == Folder;
}

/** Lets each song have its file, and sends back to its old one who comes to a file that is taken. */
class FileOwners final
{
public:
    struct Song
    {
        qint64 key = 0;
        QString before;
        QString after;
    };

    explicit FileOwners(std::vector<Song> songs) : m_songs(std::move(songs))
    {
        m_owners.reserve(static_cast<qsizetype>(m_songs.size()));
        for (std::size_t i = 0; i < m_songs.size(); ++i) {
            if (!isMoving(m_songs[i]))
                m_owners.insert(m_songs[i].before, i);
        }
        for (std::size_t i = 0; i < m_songs.size(); ++i) {
            if (!isMoving(m_songs[i]))
                continue;
            if (m_owners.contains(m_songs[i].after))
                sendBack(i);
            else
                m_owners.insert(m_songs[i].after, i);
        }
    }

    [[nodiscard]] const std::vector<FolderChange> &sentBack() const { return m_sentBack; }

private:
    static bool isMoving(const Song &song) { return song.before != song.after; }

    // Who has come to its old file meanwhile has to go back as well.
    void sendBack(std::size_t song)
    {
        std::optional<std::size_t> next = song;
        while (next) {
            Song &back = m_songs[*next];
            m_sentBack.push_back({back.key, back.after});
            const auto owner = m_owners.constFind(back.before);
            const auto inPlace = owner == m_owners.cend() ? std::nullopt : std::optional(owner.value());
            m_owners.insert(back.before, *next);
            back.after = back.before;
            next = inPlace && isMoving(m_songs[*inPlace]) ? inPlace : std::nullopt;
        }
    }

    std::vector<Song> m_songs;
    QHash<QString, std::size_t> m_owners;
    std::vector<FolderChange> m_sentBack;
};

} // namespace

std::vector<FolderChange> collisions(dao::Database &database, const std::vector<FolderChange> &changes)
{
    QHash<qint64, QString> folders;
    folders.reserve(static_cast<qsizetype>(changes.size()));
    for (const FolderChange &change : changes)
        folders.insert(change.song, change.folder);
    const auto rows = database.OpenRecordset(u"Select RecordID, PathName, FileName From tblContacts"_s,
                                             dao::RecordsetType::Snapshot);
    std::vector<FileOwners::Song> songs;
    songs.reserve(static_cast<std::size_t>(rows->RecordCount()));
    rows->forEachRow({0, 1, 2}, [&](qint64 /*position*/, std::span<const QByteArrayView> texts) {
        // Without a file name there is no file to be shared.
        if (texts[2].isEmpty())
            return;
        const qint64 key = texts[0].toLongLong();
        const QString file = QString::fromUtf8(texts[2]);
        const QString before = QString::fromUtf8(texts[1]);
        const auto folder = folders.constFind(key);
        songs.push_back({key, before + file, (folder == folders.cend() ? before : *folder) + file});
    });
    return FileOwners(std::move(songs)).sentBack();
}

/** A row that changes, and its key in the table of the change. */
struct TextPreview::Found
{
    PlannedChange row;
    Place place;
    bool isObstructed = false;
};

TextPreview::TextPreview(const Ground &ground, const QString &sentence, std::vector<TextChange> changes)
    : SongPreview(ground), m_changes(std::move(changes))
{
    std::vector<Found> all;
    for (std::size_t change = 0; change < m_changes.size(); ++change) {
        std::vector<Found> found = rowsOf(change);
        markObstructed(change, found);
        std::ranges::move(found, std::back_inserter(all));
    }
    const auto possible = std::ranges::stable_partition(all, &Found::isObstructed);
    const std::size_t obstructed = all.size() - possible.size();
    std::vector<PlannedChange> rows;
    rows.reserve(all.size());
    m_places.reserve(all.size());
    for (Found &each : all) {
        rows.push_back(std::move(each.row));
        m_places.push_back(each.place);
    }
    setPlan(sentence, std::move(rows), obstructed);
}

std::vector<TextPreview::Found> TextPreview::rowsOf(std::size_t number) const
{
    const TextChange &change = m_changes[number];
    const bool isSong = change.place.table == Songs;
    const auto rows = ground().database.OpenRecordset(u"Select * From "_s + change.place.table +
                                                          u" Where "_s + change.condition,
                                                      dao::RecordsetType::Dynaset);
    const QString heading = headingOf(change.place);
    const QList<int> fields{rows->fieldIndex(change.place.name()),
                            rows->fieldIndex(isSong ? u"RecordID"_s : u"ContactRecordID"_s),
                            rows->fieldIndex(isSong ? u"SongName"_s : u"SongTitle"_s)};
    std::vector<Found> found;
    rows->forEachRow(fields, [&](qint64 position, std::span<const QByteArrayView> texts) {
        const QString before = QString::fromUtf8(texts[0]);
        const QString after = change.changed(before);
        if (before != after)
            found.push_back({{texts[1].toLongLong(), isSong ? QString() : QString::fromUtf8(texts[2]),
                              heading, before, after},
                             {number, position}});
    });
    for (Found &each : found)
        each.place.key = rows->bookmarkAt(each.place.key).key;
    return found;
}

void TextPreview::markObstructed(std::size_t number, std::vector<Found> &found) const
{
    const TextChange &change = m_changes[number];
    const std::vector<qint64> tooLong = rowsWithoutRoom(ground().database, change);
    QHash<qint64, QString> taken;
    if (changesFolders(change)) {
        std::vector<FolderChange> folders;
        for (const Found &each : found)
            folders.push_back({each.place.key, each.row.after});
        for (const FolderChange &collision : collisions(ground().database, folders))
            taken.insert(collision.song, collision.folder);
    }
    for (Found &each : found) {
        const auto file = taken.constFind(each.place.key);
        if (std::ranges::binary_search(tooLong, each.place.key))
            each.row.after.prepend(u"Too long for this field: "_s);
        else if (file != taken.cend())
            each.row.after = u"Another song has this file: "_s + *file;
        else
            continue;
        each.isObstructed = true;
    }
}

QString TextPreview::objection() const
{
    std::vector<FolderChange> folders;
    for (int row = obstructed(); row < count(); ++row) {
        const Place &place = m_places[static_cast<std::size_t>(row)];
        if (isTicked(row) && changesFolders(m_changes[place.change]))
            folders.push_back({place.key, plan(row).after});
    }
    if (folders.empty() || static_cast<int>(folders.size()) == count() - obstructed())
        return {};
    const auto meeting = collisions(ground().database, folders);
    return meeting.empty() ? QString()
                           : u"Two songs would have the same file, since one of them is not ticked and stays "
                             "where it is:\n"_s +
                                 meeting.front().folder;
}

std::vector<TextChange> TextPreview::chosen() const
{
    std::vector<TextChange> changes = m_changes;
    for (int row = 0; row < count(); ++row) {
        const Place &place = m_places[static_cast<std::size_t>(row)];
        if (!isTicked(row))
            changes[place.change].leftOut.push_back(place.key);
    }
    for (TextChange &change : changes)
        std::ranges::sort(change.leftOut);
    return changes;
}

} // namespace quaverly
