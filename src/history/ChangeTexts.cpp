// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/ChangeTexts.h"

#include "catalogue/SongFields.h"
#include "history/ChangeSentence.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

using Kind = dao::ChangedValue::Kind;

QString shown(const QVariant &value)
{
    return value.typeId() == QMetaType::Double ? QLocale::c().toString(value.toDouble()) : value.toString();
}

} // namespace

QString ChangeTexts::sentence(const dao::Change &change) const
{
    return change.told.isEmpty() ? ChangeSentence(m_history, change).text() : change.told;
}

QString ChangeTexts::record(const QString &table, qint64 key) const
{
    return m_names.record(table, key);
}

ChangedRowTexts ChangeTexts::row(const dao::Change &change, qint64 place) const
{
    const auto value = m_history.valueAt(change, place);
    if (!value)
        return {};
    const TableWords &words = wordsOf(value->table);
    switch (value->kind) {
    case Kind::RowAdded:
        return {
            m_names.recordOf(change, place, *value), u"Added"_s, {}, m_names.kindOf(change, place, *value)};
    case Kind::RowDeleted:
        return {
            m_names.recordOf(change, place, *value), u"Deleted"_s, m_names.kindOf(change, place, *value), {}};
    case Kind::RowsAdded:
        return {counted(value->after.toLongLong() - value->before.toLongLong() + 1, words),
                u"Added"_s,
                {},
                u"Record numbers %1 to %2"_s.arg(value->before.toLongLong()).arg(value->after.toLongLong())};
    case Kind::FileTags:
        return {record(value->table, value->key), u"Tags of the file"_s, {}, shown(value->before)};
    case Kind::FileMoved:
    case Kind::PictureMoved:
        return {value->key == 0 ? QString() : m_names.record(value->table, value->key),
                value->kind == Kind::FileMoved ? u"File"_s : u"Picture"_s, shown(value->before),
                shown(value->after)};
    case Kind::Value:
        break;
    }
    const SongField *field = value->table == "tblContacts"_L1 ? songField(value->field) : nullptr;
    const bool headed = field != nullptr && !field->heading.isEmpty();
    return {m_names.recordOf(change, place, *value), headed ? QString(field->heading) : value->field,
            shown(value->before), shown(value->after)};
}

qint64 ChangeTexts::song(const dao::Change &change) const
{
    return ChangeSentence(m_history, change).song();
}

} // namespace quaverly
