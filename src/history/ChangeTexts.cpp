// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/ChangeTexts.h"

#include "catalogue/SongFields.h"
#include "platform/text/Text.h"

#include <QLocale>
#include <QSet>

#include <algorithm>
#include <span>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

using Kind = dao::ChangedValue::Kind;

constexpr auto SongTable = "tblContacts"_L1;
/** What a change is about is seen from its first entries. */
constexpr qint64 EntriesLookedAt = 100;

/** A logged table: what one row is called, and several; which fields name a row. */
struct TableWords
{
    QLatin1StringView table;
    QLatin1StringView one;
    QLatin1StringView many;
    QLatin1StringView name;
    QLatin1StringView more;
};

constexpr TableWords Tables[] = {
    {"tblContacts"_L1, "song"_L1, "songs"_L1, "SongName"_L1, "Artist"_L1},
    {"tblCategoryDesc"_L1, "category"_L1, "categories"_L1, "CategoryDesc"_L1, {}},
    {"tblCategoryID"_L1, "song of a category"_L1, "songs of categories"_L1, "ID"_L1, {}},
    {"tblPlayListHeader"_L1, "play list"_L1, "play lists"_L1, "ListName"_L1, {}},
    {"tblPlayListDetail"_L1, "song of a play list"_L1, "songs of play lists"_L1, "SongTitle"_L1, {}},
    {"tblSettings"_L1, "filter or note"_L1, "filters and notes"_L1, "Name"_L1, {}},
};

constexpr TableWords Picture = {{}, "picture"_L1, "pictures"_L1, {}, {}};

const TableWords &wordsOf(const QString &table)
{
    const auto found =
        std::ranges::find_if(Tables, [&](const TableWords &words) { return words.table == table; });
    return found == std::end(Tables) ? Tables[0] : *found;
}

QString counted(qint64 rows, const TableWords &words)
{
    return QLocale().toString(rows) + u' ' + (rows == 1 ? words.one : words.many);
}

QStringList namingFields(const TableWords &words)
{
    return words.more.isEmpty() ? QStringList(words.name) : QStringList{words.name, words.more};
}

QString joined(const QStringList &texts)
{
    return texts.value(1).isEmpty() ? texts.value(0) : texts[0] + u", by "_s + texts[1];
}

QString shown(const QVariant &value)
{
    return value.typeId() == QMetaType::Double ? QLocale::c().toString(value.toDouble()) : value.toString();
}

} // namespace

QString ChangeTexts::sentence(const dao::Change &change) const
{
    if (!change.told.isEmpty())
        return change.told;
    if (!change.sentence.isEmpty() && change.rows < 0)
        return change.sentence;
    const std::optional<Subject> subject = subjectOf(change);
    if (!change.sentence.isEmpty())
        return change.sentence + (subject ? u": "_s + countedRows(change, *subject) : QString());
    return subject ? composed(change, *subject) : u"Change"_s;
}

QString ChangeTexts::countedRows(const dao::Change &change, const Subject &subject) const
{
    if (subject.value.key != 0)
        return counted(change.rows, wordsOf(subject.value.table));
    return counted(m_history.fileCount(change), Picture);
}

// A song's edit takes its tracks along, and a new song comes with its category: they are the song's change.
std::optional<ChangeTexts::Subject> ChangeTexts::subjectOf(const dao::Change &change) const
{
    std::optional<Subject> subject;
    QSet<qint64> songs;
    const qint64 all = dao::History::valueCount(change);
    bool filesMoved = false;
    bool pictureMoved = false;
    for (qint64 place = 0; place < std::min(all, EntriesLookedAt); ++place) {
        const auto value = m_history.valueAt(change, place);
        if (!value)
            continue;
        filesMoved = filesMoved || value->kind == Kind::FileMoved;
        pictureMoved = pictureMoved || value->kind == Kind::PictureMoved;
        const bool isSong = value->table == SongTable;
        if (isSong && value->key != 0)
            songs.insert(value->key);
        if (!subject || (isSong && value->key != 0 && subject->value.table != SongTable))
            subject = Subject{*value, place};
    }
    if (subject) {
        subject->alone = change.rows == 1 || (songs.size() == 1 && all <= EntriesLookedAt);
        subject->filesMoved = filesMoved;
        subject->pictureMoved = pictureMoved;
    }
    return subject;
}

QString ChangeTexts::composed(const dao::Change &change, const Subject &subject) const
{
    const dao::ChangedValue &first = subject.value;
    const TableWords &words = wordsOf(first.table);
    if (first.kind == Kind::RowsAdded)
        return u"Add music files: "_s + counted(change.rows, words);
    QString what = subject.alone ? recordOf(change, subject.place, first) : counted(change.rows, words);
    if (subject.filesMoved)
        what += u" (file renamed)"_s;
    if (subject.pictureMoved)
        what += u" (picture deleted)"_s;
    const QString kind = !subject.alone             ? u" "_s
                         : words.table == SongTable ? u": "_s
                                                    : u' ' + words.one + u' ';
    switch (first.kind) {
    case Kind::RowAdded:
        return u"Add"_s + kind + what;
    case Kind::RowDeleted:
        return u"Delete"_s + kind + what;
    default:
        return u"Edit"_s + kind + what;
    }
}

QString ChangeTexts::record(const QString &table, qint64 key) const
{
    const TableWords &words = wordsOf(table);
    const auto texts = m_history.presentTexts(table, key, namingFields(words));
    return texts ? joined(*texts) : words.one + u" number %1"_s.arg(key);
}

QString ChangeTexts::recordOf(const dao::Change &change, qint64 place, const dao::ChangedValue &value) const
{
    if (value.kind == Kind::RowAdded || value.kind == Kind::RowDeleted)
        return joined(m_history.rowTexts(change, place, namingFields(wordsOf(value.table))));
    return record(value.table, value.key);
}

ChangedRowTexts ChangeTexts::row(const dao::Change &change, qint64 place) const
{
    const auto value = m_history.valueAt(change, place);
    if (!value)
        return {};
    const TableWords &words = wordsOf(value->table);
    switch (value->kind) {
    case Kind::RowAdded:
        return {recordOf(change, place, *value), u"Added"_s, {}, words.one};
    case Kind::RowDeleted:
        return {recordOf(change, place, *value), u"Deleted"_s, words.one, {}};
    case Kind::RowsAdded:
        return {counted(value->after.toLongLong() - value->before.toLongLong() + 1, words),
                u"Added"_s,
                {},
                u"Record numbers %1 to %2"_s.arg(value->before.toLongLong()).arg(value->after.toLongLong())};
    case Kind::FileMoved:
    case Kind::PictureMoved:
        return {value->key == 0 ? QString() : record(value->table, value->key),
                value->kind == Kind::FileMoved ? u"File"_s : u"Picture"_s, shown(value->before),
                shown(value->after)};
    case Kind::Value:
        break;
    }
    const SongField *field = words.table == SongTable ? songField(value->field) : nullptr;
    const bool headed = field != nullptr && !field->heading.isEmpty();
    return {recordOf(change, place, *value), headed ? QString(field->heading) : value->field,
            shown(value->before), shown(value->after)};
}

qint64 ChangeTexts::song(const dao::Change &change) const
{
    const auto subject = subjectOf(change);
    const bool isSong =
        subject && subject->value.table == SongTable && subject->value.kind != Kind::RowsAdded;
    return isSong ? subject->value.key : 0;
}

} // namespace quaverly
