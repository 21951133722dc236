// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/ChangeSentence.h"

#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

using Kind = dao::ChangedValue::Kind;

constexpr qint64 LookedAtFirst = 100;
/** What a list holds goes before the list itself. */
constexpr qint64 LookedAtLast = 10;

constexpr TableWords Songs = {"tblContacts"_L1, "song"_L1, "songs"_L1, {}, {}};
constexpr TableWords Pictures = {{}, "picture"_L1, "pictures"_L1, {}, {}};
constexpr auto TrackTable = "tblPlayListDetail"_L1;

/** A song's edit takes its tracks along, a new one comes with its category: they are the song's change. */
enum class Rank { Song, List, Member };

Rank rankOf(const dao::ChangedValue &value)
{
    if (value.table == Songs.table)
        return Rank::Song;
    return value.table == TrackTable || value.table == "tblCategoryID"_L1 ? Rank::Member : Rank::List;
}

/** The lower, the more it says. A member that comes or goes has others renumbered. */
int weightOf(const dao::ChangedValue &value)
{
    const bool isPicture = value.kind == Kind::PictureMoved;
    return static_cast<int>(rankOf(value)) * 4 + (value.kind == Kind::Value ? 2 : 0) + (isPicture ? 3 : 0);
}

} // namespace

ChangeSentence::ChangeSentence(const dao::History &history, const dao::Change &change)
    : m_history(history), m_change(change), m_names(history)
{
    const qint64 all = dao::History::valueCount(change);
    look(0, std::min(all, LookedAtFirst));
    look(std::max(all - LookedAtLast, LookedAtFirst), all);
    m_lookedAtAll = all <= LookedAtFirst + LookedAtLast;
    chooseSubject();
}

void ChangeSentence::look(qint64 from, qint64 to)
{
    for (qint64 place = from; place < to; ++place) {
        if (const auto value = m_history.valueAt(m_change, place))
            m_entries.push_back({place, *value});
    }
}

void ChangeSentence::chooseSubject()
{
    const auto subject =
        std::ranges::min_element(m_entries, {}, [](const Entry &entry) { return weightOf(entry.value); });
    if (subject != m_entries.end())
        m_subject = &*subject;
}

qint64 ChangeSentence::count() const
{
    if (m_subject->value.kind == Kind::RowsAdded)
        return m_change.rows;
    if (!m_lookedAtAll)
        return m_history.rowCount(m_change, m_subject->value.table);
    QSet<qint64> keys;
    for (const Entry &entry : m_entries) {
        const bool sameKind = rankOf(entry.value) == Rank::Song || entry.value.kind == m_subject->value.kind;
        if (entry.value.table == m_subject->value.table && entry.value.key != 0 && sameKind)
            keys.insert(entry.value.key);
    }
    return keys.size();
}

bool ChangeSentence::isAlone() const
{
    const bool isList = rankOf(m_subject->value) == Rank::List;
    if (!m_lookedAtAll && !isList)
        return false;
    return std::ranges::none_of(m_entries, [&](const Entry &entry) {
        return entry.value.table == m_subject->value.table && entry.value.key != m_subject->value.key &&
               entry.value.kind == m_subject->value.kind;
    });
}

QString ChangeSentence::record() const
{
    return m_names.recordOf(m_change, m_subject->place, m_subject->value);
}

QString ChangeSentence::whatOf(const TableWords &words) const
{
    return isAlone() ? record() : counted(count(), words);
}

bool ChangeSentence::has(Kind kind) const
{
    return std::ranges::any_of(m_entries, [&](const Entry &entry) { return entry.value.kind == kind; });
}

QString ChangeSentence::verb() const
{
    switch (m_subject->value.kind) {
    case Kind::RowAdded:
        return u"Add"_s;
    case Kind::RowDeleted:
        return u"Delete"_s;
    default:
        return u"Edit"_s;
    }
}

QString ChangeSentence::text() const
{
    if (!m_change.sentence.isEmpty() && (m_change.rows < 0 || m_subject == nullptr))
        return m_change.sentence;
    if (m_subject == nullptr)
        return u"Change"_s;
    if (m_subject->value.kind == Kind::PictureMoved && m_subject->value.key == 0)
        return ofPictures();
    if (!m_change.sentence.isEmpty())
        return m_change.sentence + u": "_s + counted(count(), Songs);
    switch (rankOf(m_subject->value)) {
    case Rank::Song:
        return ofSongs();
    case Rank::List:
        return ofLists();
    case Rank::Member:
        break;
    }
    return ofMembers();
}

QString ChangeSentence::ofPictures() const
{
    return (m_change.sentence.isEmpty() ? u"Move pictures"_s : m_change.sentence) + u": "_s +
           counted(m_history.fileCount(m_change), Pictures);
}

QString ChangeSentence::ofSongs() const
{
    if (m_subject->value.kind == Kind::RowsAdded)
        return u"Add music files: "_s + counted(m_change.rows, Songs);
    QString text = verb() + (isAlone() ? u": "_s : u" "_s) + whatOf(Songs);
    if (has(Kind::FileMoved))
        text += u" (file renamed)"_s;
    if (has(Kind::PictureMoved))
        text += u" (picture deleted)"_s;
    return text;
}

QString ChangeSentence::ofLists() const
{
    const TableWords &words = wordsOf(m_subject->value.table);
    if (!isAlone())
        return verb() + u' ' + counted(count(), words);
    const QString kind = m_names.kindOf(m_change, m_subject->place, m_subject->value);
    const auto renamed = std::ranges::find_if(m_entries, [&](const Entry &entry) {
        return entry.value.kind == Kind::Value && entry.value.field == words.name;
    });
    if (m_subject->value.kind == Kind::Value && renamed != m_entries.end())
        return u"Rename %1 %2 to %3"_s.arg(kind, renamed->value.before.toString(),
                                           renamed->value.after.toString());
    return verb() + u' ' + kind + u' ' + record();
}

bool ChangeSentence::isReordering() const
{
    return std::ranges::all_of(m_entries, [](const Entry &entry) {
        return entry.value.field == "ListTrackID"_L1 || entry.value.field == "LastUpdated"_L1;
    });
}

QString ChangeSentence::ofMembers() const
{
    const bool isTrack = m_subject->value.table == TrackTable;
    const QString table = isTrack ? u"tblPlayListHeader"_s : u"tblCategoryDesc"_s;
    const QStringList number = m_names.texts(m_change, m_subject->place, m_subject->value,
                                             {isTrack ? u"ListID"_s : u"CategoryNumber"_s});
    const QString list = wordsOf(table).one + u' ' + m_names.record(table, number.value(0).toLongLong());
    if (isReordering())
        return u"Reorder "_s + list;
    switch (m_subject->value.kind) {
    case Kind::RowAdded:
        return (isTrack ? u"Add to "_s : u"Assign to "_s) + list + u": "_s + whatOf(Songs);
    case Kind::RowDeleted:
        return u"Remove from "_s + list + u": "_s + whatOf(Songs);
    default:
        return u"Edit "_s + list + u": "_s + whatOf(Songs);
    }
}

qint64 ChangeSentence::song() const
{
    const bool isSong = m_subject != nullptr && m_subject->value.table == Songs.table &&
                        m_subject->value.kind != Kind::RowsAdded;
    return isSong ? m_subject->value.key : 0;
}

} // namespace quaverly
