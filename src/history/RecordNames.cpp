// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/RecordNames.h"

#include <QLocale>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

using Kind = dao::ChangedValue::Kind;

constexpr auto SettingsTable = "tblSettings"_L1;
constexpr auto AssignmentTable = "tblCategoryID"_L1;

constexpr TableWords Tables[] = {
    {"tblContacts"_L1, "song"_L1, "songs"_L1, "SongName"_L1, "Artist"_L1},
    {"tblCategoryDesc"_L1, "category"_L1, "categories"_L1, "CategoryDesc"_L1, {}},
    {AssignmentTable, "song of a category"_L1, "songs of categories"_L1, "ID"_L1, {}},
    {"tblPlayListHeader"_L1, "play list"_L1, "play lists"_L1, "ListName"_L1, {}},
    {"tblPlayListDetail"_L1, "song of a play list"_L1, "songs of play lists"_L1, "SongTitle"_L1, {}},
    {SettingsTable, "filter or note"_L1, "filters and notes"_L1, "Name"_L1, {}},
};

QStringList namingFields(const TableWords &words)
{
    return words.more.isEmpty() ? QStringList(words.name) : QStringList{words.name, words.more};
}

} // namespace

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

QString RecordNames::named(const QString &table, const QStringList &texts) const
{
    // An assignment names its song by the key.
    if (table == AssignmentTable)
        return record(Tables[0].table, texts.value(0).toLongLong());
    return texts.value(1).isEmpty() ? texts.value(0) : texts[0] + u", by "_s + texts[1];
}

QString RecordNames::record(const QString &table, qint64 key) const
{
    const TableWords &words = wordsOf(table);
    const auto texts = m_history.presentTexts(table, key, namingFields(words));
    return texts ? named(table, *texts) : words.one + u" number %1"_s.arg(key);
}

QString RecordNames::recordOf(const dao::Change &change, qint64 place, const dao::ChangedValue &value) const
{
    if (value.kind != Kind::RowAdded && value.kind != Kind::RowDeleted)
        return record(value.table, value.key);
    return named(value.table, m_history.rowTexts(change, place, namingFields(wordsOf(value.table))));
}

QString RecordNames::kindOf(const dao::Change &change, qint64 place, const dao::ChangedValue &value) const
{
    if (value.table == SettingsTable)
        return texts(change, place, value, {u"Type"_s}).value(0).toLower();
    return wordsOf(value.table).one;
}

QStringList RecordNames::texts(const dao::Change &change, qint64 place, const dao::ChangedValue &value,
                               const QStringList &fields) const
{
    if (value.kind == Kind::RowAdded || value.kind == Kind::RowDeleted)
        return m_history.rowTexts(change, place, fields);
    return m_history.presentTexts(value.table, value.key, fields).value_or(QStringList());
}

} // namespace quaverly
