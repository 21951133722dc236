// SPDX-License-Identifier: GPL-3.0-or-later
#include "maintenance/TextPreview.h"

#include "catalogue/SongFields.h"
#include "maintenance/FileCollisions.h"
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

} // namespace

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
    const auto possible =
        std::stable_partition(all.begin(), all.end(), [](const Found &each) { return each.isObstructed; });
    const auto obstructed = static_cast<std::size_t>(possible - all.begin());
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
        std::vector<PlaceOfFile> places;
        places.reserve(found.size());
        for (const Found &each : found)
            places.push_back({each.place.key, {each.row.after, {}}});
        for (const PlaceOfFile &collision : collisions(ground().database, places))
            taken.insert(collision.song, collision.file.path());
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
    std::vector<PlaceOfFile> places;
    for (int row = obstructed(); row < count(); ++row) {
        const Place &place = m_places[static_cast<std::size_t>(row)];
        if (isTicked(row) && changesFolders(m_changes[place.change]))
            places.push_back({place.key, {plan(row).after, {}}});
    }
    if (places.empty() || static_cast<int>(places.size()) == count() - obstructed())
        return {};
    const auto meeting = collisions(ground().database, places);
    return meeting.empty() ? QString()
                           : u"Two songs would have the same file, since one of them is not ticked and stays "
                             "where it is:\n"_s +
                                 meeting.front().file.path();
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
