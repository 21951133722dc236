// SPDX-License-Identifier: GPL-3.0-or-later
#include "maintenance/DuplicatePreview.h"

#include "platform/store/Dao.h"
#include "platform/text/Text.h"

#include <QHash>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

enum Rule { Lowest, BitRate, OwnName, Rated, InPlayLists };

/** "Song (1).mp3" is a copy of "Song.mp3". */
bool isNameOfCopy(const QString &file)
{
    static const QRegularExpression numbered(uR"(\(\d{1,2}\)(\.[^.]*)?$)"_s);
    return numbered.match(file).hasMatch();
}

} // namespace

DuplicatePreview::DuplicatePreview(const Ground &ground, const QString &groups) : SongPreview(ground)
{
    readMembers(groups);
    countPlayLists();
    std::vector<PlannedChange> plans;
    plans.reserve(m_members.size());
    int number = 0;
    for (std::size_t i = 0; i < m_members.size(); ++i) {
        number += i == 0 || m_members[i].group != m_members[i - 1].group ? 1 : 0;
        plans.push_back({.song = m_members[i].key, .field = u"Group %1"_s.arg(number)});
    }
    const qint64 songs = static_cast<qint64>(plans.size());
    setPlan(u"Delete duplicates: %1 in %2 groups, of each of which one stays.  No music file is touched."_s
                .arg(countedSongs(songs))
                .arg(number),
            std::move(plans));
    follow(Lowest);
}

void DuplicatePreview::readMembers(const QString &groups)
{
    const auto rows = ground().database.OpenRecordset(groups, dao::RecordsetType::Dynaset);
    QList<int> fields;
    for (const QString &field : {u"RecordID"_s, u"FirstRecordID"_s, u"BitRate"_s, u"FileName"_s, u"Rating"_s})
        fields.append(rows->fieldIndex(field));
    rows->forEachRow(fields, [&](qint64 /*position*/, std::span<const QByteArrayView> texts) {
        m_members.push_back({.key = texts[0].toLongLong(),
                             .group = texts[1].toLongLong(),
                             .bitRate = Val(QString::fromUtf8(texts[2])),
                             .isCopy = isNameOfCopy(QString::fromUtf8(texts[3])),
                             .isRated = !texts[4].trimmed().isEmpty()});
    });
    // Equal names in another case may stand between those of a group.
    std::ranges::stable_sort(m_members, {}, &Member::group);
}

void DuplicatePreview::countPlayLists()
{
    const auto rows = ground().database.OpenRecordset(
        u"Select ContactRecordID, Count(*) As Tracks From tblPlayListDetail Group By ContactRecordID"_s,
        dao::RecordsetType::Snapshot);
    QHash<qint64, qint64> tracks;
    rows->forEachRow({0, 1}, [&](qint64 /*position*/, std::span<const QByteArrayView> texts) {
        tracks.insert(texts[0].toLongLong(), texts[1].toLongLong());
    });
    for (Member &each : m_members)
        each.playLists = tracks.value(each.key);
}

ChangedRowTexts DuplicatePreview::row(int row) const
{
    ChangedRowTexts texts = SongPreview::row(row);
    const Member &song = member(row);
    texts.before = fileOfSong(ground().database, song.key);
    if (song.bitRate > 0)
        texts.field += u", %1 kbps"_s.arg(song.bitRate);
    if (song.isRated)
        texts.field += u", rated"_s;
    if (song.playLists > 0)
        texts.field += u", in play lists"_s;
    texts.after = isTicked(row) ? u"Deleted"_s : u"Stays"_s;
    return texts;
}

QStringList DuplicatePreview::headings() const
{
    return {u"Record"_s, u"Group"_s, u"File"_s, u"After"_s};
}

QStringList DuplicatePreview::rules() const
{
    return {u"The lowest record number"_s, u"The highest bit rate"_s, u"A file name without \"(1)\""_s,
            u"A rated song"_s, u"A song in play lists"_s};
}

// Those that are alike in what the rule looks at are told apart by their numbers.
bool DuplicatePreview::isBetter(const Member &one, const Member &other, int rule)
{
    switch (rule) {
    case BitRate:
        return one.bitRate > other.bitRate;
    case OwnName:
        return !one.isCopy && other.isCopy;
    case Rated:
        return one.isRated && !other.isRated;
    case InPlayLists:
        return one.playLists > other.playLists;
    default:
        return one.key == one.group;
    }
}

std::vector<int> DuplicatePreview::groupStarts() const
{
    std::vector<int> starts;
    for (int row = 0; row < count(); ++row) {
        if (row == 0 || member(row).group != member(row - 1).group)
            starts.push_back(row);
    }
    starts.push_back(count());
    return starts;
}

void DuplicatePreview::follow(int rule)
{
    const std::vector<int> starts = groupStarts();
    for (std::size_t group = 0; group + 1 < starts.size(); ++group) {
        int stays = starts[group];
        for (int row = starts[group]; row < starts[group + 1]; ++row) {
            if (isBetter(member(row), member(stays), rule) ||
                (!isBetter(member(stays), member(row), rule) && member(row).key < member(stays).key))
                stays = row;
        }
        for (int row = starts[group]; row < starts[group + 1]; ++row)
            tick(row, row != stays);
    }
}

QString DuplicatePreview::objection() const
{
    const std::vector<int> starts = groupStarts();
    for (std::size_t group = 0; group + 1 < starts.size(); ++group) {
        bool stays = false;
        for (int row = starts[group]; row < starts[group + 1]; ++row)
            stays = stays || !isTicked(row);
        if (!stays)
            return u"All songs of a group are ticked, and none of them would be left.  Untick the one that "
                   "stays:\n\n"_s +
                   plan(starts[group]).field + u": "_s +
                   songAndArtist(ground().database, member(starts[group]).key);
    }
    return {};
}

} // namespace quaverly
