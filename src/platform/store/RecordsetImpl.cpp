// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/RecordsetImpl.h"

#include "platform/store/StoredDate.h"
#include "platform/text/Text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace dao {

void EditBuffer::set(int field, const QVariant &stored)
{
    const auto place = std::ranges::find(m_values, field, &Value::field);
    if (place != m_values.end())
        place->stored = stored;
    else
        m_values.push_back({field, stored});
}

const QVariant *EditBuffer::find(int field) const
{
    const auto place = std::ranges::find(m_values, field, &Value::field);
    return place != m_values.end() ? &place->stored : nullptr;
}

RecordsetImpl::RecordsetImpl(DatabaseImpl &db, SelectPlan plan, RecordsetType recordsetType)
    : database(db), rows(db, std::move(plan), recordsetType), type(recordsetType)
{}

void RecordsetImpl::loadRows()
{
    rows.load();
    standAtStart();
}

void RecordsetImpl::adoptRows(RowSet read)
{
    rows.adopt(std::move(read));
    standAtStart();
}

void RecordsetImpl::standAtStart()
{
    m_loaded = true;
    m_looked = true;
    m_loadedChanges = database.connection().totalChanges();
    m_key.reset();
    deletedCurrent = false;
    mode = Mode::None;
    m_position = 0;
    place = rows.count() > 0 ? Place::Row : Place::Behind;
}

// A table recordset has no rows of its own until someone moves by position: it sees the table.
void RecordsetImpl::ensureRows()
{
    if (closed)
        throw DaoError(ObjectInvalid, u"Object invalid or no longer set."_s);
    const bool stale =
        type == RecordsetType::Table && m_loadedChanges != database.connection().totalChanges();
    if (m_loaded && !stale)
        return;
    const std::optional<qint64> key = m_key;
    const Place before = place;
    const bool looked = m_looked;
    const bool deleted = deletedCurrent;
    const qint64 position = m_position;
    const Mode editing = mode;
    loadRows();
    mode = editing;
    if (!looked)
        return;
    m_position = std::min(position, rows.count());
    place = before;
    if (key) {
        m_key = key;
        const qint64 found = rows.positionOf(*key);
        m_position = found < 0 ? m_position : found;
        deletedCurrent = found < 0;
    } else if (deleted) {
        deletedCurrent = true;
        const qint64 next = m_behind && *m_behind ? rows.positionOf(**m_behind) : -1;
        if (m_behind)
            m_position = next < 0 ? rows.count() : next;
        m_behind.reset();
    } else if (place == Place::Row && m_position >= rows.count()) {
        place = Place::Behind;
    }
}

qint64 RecordsetImpl::count()
{
    ensureRows();
    return rows.count();
}

bool RecordsetImpl::isAt(Place end)
{
    if (type != RecordsetType::Table || m_loaded || closed)
        return count() == 0 ? !deletedCurrent : place == end;
    if (m_looked)
        return place == end;
    return !database.connection()
                .scalar("SELECT EXISTS (SELECT 1 FROM " + quotedName(rows.plan().baseTable) + ")")
                .toBool();
}

void RecordsetImpl::goTo(qint64 target)
{
    ensureRows();
    cancelUpdate();
    deletedCurrent = false;
    m_looked = true;
    m_key.reset();
    m_position = std::clamp<qint64>(target, 0, std::max<qint64>(0, rows.count()));
    place = target < 0 ? Place::Before : target >= rows.count() ? Place::Behind : Place::Row;
    if (place == Place::Row && type == RecordsetType::Table)
        m_key = rows.keyAt(m_position);
}

qint64 RecordsetImpl::position()
{
    ensureRows();
    return m_position;
}

void RecordsetImpl::assertRow()
{
    if (type == RecordsetType::Table && m_key && place == Place::Row && !deletedCurrent)
        return;
    ensureRows();
    if (place != Place::Row || rows.count() == 0)
        throw DaoError(NoCurrentRecord, u"No current record."_s);
    if (deletedCurrent)
        throw DaoError(RecordDeleted, u"Record is deleted."_s);
}

qint64 RecordsetImpl::currentKey()
{
    assertRow();
    if (!rows.isKeyed())
        return m_position;
    return m_key ? *m_key : rows.keyAt(m_position);
}

int RecordsetImpl::requireField(const QString &name)
{
    const int field = rows.fieldIndex(name);
    if (field < 0)
        throw DaoError(ItemNotFound, u"Item not found in this collection: '%1'."_s.arg(name));
    return field;
}

QVariant RecordsetImpl::value(const QString &name)
{
    const int field = requireField(name);
    if (mode != Mode::None) {
        if (const QVariant *written = m_buffer.find(field))
            return RecordsetRows::typed(*written, rows.fields()[field].type);
        if (mode == Mode::Add)
            return {};
    }
    assertRow();
    if (type == RecordsetType::Table && m_key)
        return rows.storedValue(*m_key, field);
    return rows.value(position(), field);
}

void RecordsetImpl::edit()
{
    assertRow();
    if (!rows.isKeyed() || type == RecordsetType::Snapshot)
        throw DaoError(ReadOnly, u"Cannot update.  Database or object is read-only."_s);
    m_editedKey = currentKey();
    auto row = rows.freshRow(m_editedKey);
    if (!row)
        throw DaoError(RecordDeleted, u"Record is deleted."_s);
    m_original = std::move(*row);
    m_buffer.clear();
    mode = Mode::Edit;
}

void RecordsetImpl::addNew()
{
    if (closed)
        throw DaoError(ObjectInvalid, u"Object invalid or no longer set."_s);
    if (!rows.isKeyed() || type == RecordsetType::Snapshot)
        throw DaoError(ReadOnly, u"Cannot update.  Database or object is read-only."_s);
    m_buffer.clear();
    mode = Mode::Add;
}

QVariant RecordsetImpl::toStored(const Field &field, const QVariant &value) const
{
    if (value.isNull())
        return {};
    switch (field.type) {
    case FieldType::Date: {
        const QDateTime date = value.typeId() == QMetaType::QString
                                   ? quaverly::parseDate(value.toString()).value_or(QDateTime())
                                   : value.toDateTime();
        if (!date.isValid())
            throw DaoError(TypeMismatch,
                           u"Data type conversion error: '%1' is not a date."_s.arg(value.toString()));
        return storedDate(date);
    }
    case FieldType::Long:
    case FieldType::Double: {
        const bool isText = value.typeId() == QMetaType::QString;
        if (isText && !quaverly::IsNumeric(value.toString()))
            throw DaoError(TypeMismatch,
                           u"Data type conversion error: '%1' is not a number."_s.arg(value.toString()));
        const double number = isText ? quaverly::Val(value.toString().remove(u',')) : value.toDouble();
        return field.type == FieldType::Double ? QVariant(number)
               : isText                        ? QVariant(qRound64(number))
                                               : QVariant(value.toLongLong());
    }
    case FieldType::Text:
    case FieldType::Memo:
        break;
    }
    QString text = value.toString();
    if (field.size > 0 && text.size() > field.size)
        throw DaoError(
            FieldTooSmall,
            u"The field '%1' is too small to accept the amount of data you attempted to add."_s.arg(
                field.name));
    return text;
}

void RecordsetImpl::setValue(const QString &name, const QVariant &value)
{
    if (mode == Mode::None)
        throw DaoError(NoUpdateStarted, u"Update or CancelUpdate without AddNew or Edit."_s);
    const int place_ = requireField(name);
    const Field &field = rows.fields()[place_];
    if (field.sourceField.isEmpty())
        throw DaoError(ReadOnly, u"Cannot update.  The field '%1' is read-only."_s.arg(name));
    m_buffer.set(place_, toStored(field, value));
}

void RecordsetImpl::update()
{
    if (mode == Mode::None)
        throw DaoError(NoUpdateStarted, u"Update or CancelUpdate without AddNew or Edit."_s);
    if (mode == Mode::Add)
        insertRow();
    else
        updateRow();
    const bool added = mode == Mode::Add;
    QStringList changed;
    for (const EditBuffer::Value &value : m_buffer) {
        if (!added)
            changed.append(rows.fields()[value.field].sourceField);
    }
    cancelUpdate();
    if (!added)
        database.stamps().touched(rows.plan().baseTable, changed);
    else if (type != RecordsetType::Table)
        rows.appendKey(lastModified.key);
    if (added && place == Place::Behind && rows.count() == 1)
        m_position = 0;
}

const std::vector<int> &RecordsetImpl::writtenFields()
{
    m_writtenFields.clear();
    for (const EditBuffer::Value &value : m_buffer)
        m_writtenFields.push_back(value.field);
    return m_writtenFields;
}

Statement &RecordsetImpl::insertStatement()
{
    Statement &statement = m_inserts[writtenFields()];
    if (statement)
        return statement;
    QByteArrayList names;
    QByteArrayList marks;
    for (const int field : m_writtenFields) {
        names.append(quotedName(rows.fields()[field].sourceField));
        marks.append("?" + QByteArray::number(marks.size() + 1));
    }
    const QByteArray values = names.isEmpty()
                                  ? QByteArray(" DEFAULT VALUES")
                                  : " (" + names.join(", ") + ") VALUES (" + marks.join(", ") + ")";
    statement =
        database.connection().prepare("INSERT INTO " + quotedName(rows.plan().baseTable) + values, true);
    return statement;
}

void RecordsetImpl::insertRow()
{
    database.change([this] {
        Statement &insert = insertStatement();
        int parameter = 1;
        for (const EditBuffer::Value &value : m_buffer)
            insert.bind(parameter++, value.stored);
        insert.step();
        insert.reset();
        lastModified = {database.connection().lastInsertKey()};
    });
}

Statement &RecordsetImpl::updateStatement()
{
    Statement &statement = m_updates[writtenFields()];
    if (statement)
        return statement;
    const TableInfo *table = database.table(rows.plan().baseTable);
    QByteArray assignments;
    for (const int field : m_writtenFields)
        assignments +=
            (assignments.isEmpty() ? "" : ", ") + quotedName(rows.fields()[field].sourceField) + " = ?";
    statement = database.connection().prepare("UPDATE " + quotedName(table->name) + " SET " + assignments +
                                                  " WHERE " + quotedName(table->keyColumn) + " = ?",
                                              true);
    return statement;
}

void RecordsetImpl::updateRow()
{
    database.change([this] {
        if (rows.freshRow(m_editedKey) != std::optional(m_original))
            throw DaoError(ChangedByAnother,
                           u"The database engine stopped the process because you and another user "
                           "are attempting to change the same data at the same time."_s);
        if (writtenFields().empty())
            return;
        Statement &change = updateStatement();
        int parameter = 1;
        for (const EditBuffer::Value &value : m_buffer)
            change.bind(parameter++, value.stored);
        change.bind(parameter, m_editedKey);
        change.step();
        change.reset();
    });
    lastModified = {m_editedKey};
}

void RecordsetImpl::cancelUpdate()
{
    mode = Mode::None;
    m_buffer.clear();
}

void RecordsetImpl::remove()
{
    const qint64 key = currentKey();
    if (!rows.isKeyed() || type == RecordsetType::Snapshot)
        throw DaoError(ReadOnly, u"Cannot update.  Database or object is read-only."_s);
    // A sought row goes without the table being walked for its place.
    const bool sought = type == RecordsetType::Table && m_key && !m_loaded;
    const qint64 at = sought ? 0 : position();
    if (sought)
        m_behind = rows.keyBehind(key, m_indexColumns);
    const TableInfo *table = database.table(rows.plan().baseTable);
    database.change([&] {
        Statement removal = database.connection().prepare("DELETE FROM " + quotedName(table->name) +
                                                          " WHERE " + quotedName(table->keyColumn) + " = ?1");
        removal.bind(1, key);
        removal.step();
    });
    cancelUpdate();
    if (!sought) {
        rows.remove(at);
        m_loadedChanges = database.connection().totalChanges();
    }
    m_key.reset();
    deletedCurrent = true;
}

void RecordsetImpl::find(const QString &criteria, int direction, bool fromEnd)
{
    ensureRows();
    cancelUpdate();
    const bool firstOnly = fromEnd && direction > 0;
    const std::vector<qint64> hits = rows.find(criteria, firstOnly);
    std::optional<qint64> target;
    if (fromEnd) {
        if (!hits.empty())
            target = direction > 0 ? hits.front() : hits.back();
    } else if (direction > 0) {
        const qint64 from = place == Place::Before ? -1 : m_position - (deletedCurrent ? 1 : 0);
        const auto next = std::ranges::upper_bound(hits, from);
        if (next != hits.end() && place != Place::Behind)
            target = *next;
    } else {
        const qint64 from = place == Place::Behind ? rows.count() : m_position;
        const auto next = std::ranges::lower_bound(hits, from);
        if (next != hits.begin() && place != Place::Before)
            target = *std::prev(next);
    }
    noMatch = !target.has_value();
    if (target)
        goTo(*target);
}

} // namespace dao
