// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/RecordsetImpl.h"

#include "platform/store/StoredDate.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace dao {

namespace {

/** A large table's list opens with so many keys: more than a screen shows. */
constexpr qint64 FirstKeys = 1000;

} // namespace

RecordsetRows::RecordsetRows(DatabaseImpl &database, SelectPlan plan, RecordsetType type)
    : m_database(database), m_plan(std::move(plan)), m_type(type)
{
    for (const Output &output : m_plan.outputs) {
        Field field{output.column.name, output.column.type, output.column.size, {}};
        if (m_plan.isBaseField(output))
            field.sourceField = output.column.field;
        m_indexOfExact.insert(field.name, static_cast<int>(m_fields.size()));
        m_indexOf.insert(field.name.toLower(), static_cast<int>(m_fields.size()));
        m_fields.append(field);
    }
    chooseColumns();
}

int RecordsetRows::fieldIndex(const QString &name) const
{
    // Nearly everyone writes a field as the table does.
    const auto exact = m_indexOfExact.constFind(name);
    return exact != m_indexOfExact.cend() ? *exact : m_indexOf.value(name.toLower(), -1);
}

// A snapshot reads through a connection that stays at its moment; without one it holds every value.
void RecordsetRows::chooseColumns()
{
    m_places.clear();
    m_baseFields.clear();
    m_heldOutputs.clear();
    for (int i = 0; i < m_fields.size(); ++i) {
        if (!m_fields[i].sourceField.isEmpty() && !m_holdAll) {
            m_places.append(static_cast<int>(m_baseFields.size()));
            m_baseFields.append(m_fields[i].sourceField);
        } else {
            m_places.append(-1 - static_cast<int>(m_heldOutputs.size()));
            m_heldOutputs.append(i);
        }
    }
}

void RecordsetRows::forgetRows()
{
    m_fetch = Statement();
    m_reader.reset();
    m_walk.reset();
    m_set = {};
    m_cache.clear();
    m_openedAt = m_database.stamps().now();
}

void RecordsetRows::load()
{
    forgetRows();
    if (m_type == RecordsetType::Snapshot) {
        m_reader = m_database.frozenReader();
        m_holdAll = m_reader == nullptr;
    }
    chooseColumns();
    m_set.held.resize(static_cast<std::size_t>(m_heldOutputs.size()));
    Statement rows = connection().prepare(m_plan.sql(m_plan.readColumns(m_heldOutputs)));
    // Only of a whole table is it known, before its keys are read, how many there will be.
    const bool mayWait =
        m_type == RecordsetType::Dynaset && m_heldOutputs.isEmpty() && m_plan.showsWholeTable();
    while (rows.step()) {
        m_set.append(rows, m_plan.isKeyed());
        if (mayWait && m_set.count == FirstKeys)
            return leaveRestForLater(std::move(rows));
    }
    m_set.keys.finish();
}

void RecordsetRows::adopt(RowSet rows)
{
    forgetRows();
    m_set = std::move(rows);
    m_set.keys.finish();
}

void RecordsetRows::leaveRestForLater(Statement rows)
{
    const qint64 total =
        connection().scalar("SELECT count(*) FROM " + quotedName(m_plan.baseTable)).toLongLong();
    m_walk = std::make_shared<KeyWalk>(std::move(rows), m_set.keys, total);
    m_database.walks().add(m_walk);
}

void RecordsetRows::completeKeys() const
{
    if (!m_walk)
        return;
    m_walk->finish();
    m_walk->assertWhole();
    m_walk.reset();
}

qint64 RecordsetRows::count() const
{
    if (m_walk)
        return m_walk->total();
    return m_plan.isKeyed() ? m_set.keys.size() : m_set.count;
}

qint64 RecordsetRows::keyAt(qint64 position) const
{
    if (position >= m_set.keys.size())
        completeKeys();
    return m_set.keys.at(position);
}

qint64 RecordsetRows::positionOf(qint64 key) const
{
    // Right after the opening it is a row in sight that is asked for: the other keys need not be read for it.
    if (m_walk) {
        for (qint64 i = 0; i < std::min(m_set.keys.size(), FirstKeys); ++i) {
            if (m_set.keys.at(i) == key)
                return i;
        }
    }
    completeKeys();
    return m_set.keys.positionOf(key);
}

void RecordsetRows::appendKey(qint64 key)
{
    completeKeys();
    m_set.keys.append(key);
}

void RecordsetRows::release()
{
    m_fetch = Statement();
    m_reader.reset();
    m_walk.reset();
    m_set.keys.clear();
    m_cache.clear();
}

void RecordsetRows::remove(qint64 position)
{
    completeKeys();
    m_set.keys.remove(position);
    for (RunColumn &column : m_set.held)
        column.remove(position);
    --m_set.count;
}

QVariant RecordsetRows::typed(const QVariant &stored, FieldType type)
{
    if (type != FieldType::Date || stored.typeId() != QMetaType::QString)
        return stored;
    const QDateTime date = dateFromStored(stored.toString());
    return date.isValid() ? QVariant(date) : stored;
}

std::optional<QVariantList> RecordsetRows::freshRow(qint64 key) const
{
    if (!m_fetch) {
        const TableInfo *table = m_database.table(m_plan.baseTable);
        QByteArray columns;
        for (const QString &field : m_baseFields)
            columns += (columns.isEmpty() ? "" : ", ") + quotedName(field);
        m_fetch = connection().prepare("SELECT " + (columns.isEmpty() ? QByteArray("1") : columns) +
                                           " FROM " + quotedName(table->name) + " WHERE " +
                                           quotedName(table->keyColumn) + " = ?1",
                                       true);
    }
    m_fetch.bind(1, key);
    std::optional<QVariantList> row;
    if (m_fetch.step()) {
        row.emplace();
        row->reserve(m_baseFields.size());
        for (int i = 0; i < m_baseFields.size(); ++i)
            row->append(m_fetch.variant(i));
    }
    m_fetch.reset();
    return row;
}

const QVariantList *RecordsetRows::cachedRow(qint64 key) const
{
    // Whatever was changed, by whom on this connection: a few rows are soon read again, and a stale one would
    // be shown or written back.
    const qint64 changes = connection().totalChanges();
    if (changes != m_cachedChanges)
        m_cache.clear();
    m_cachedChanges = changes;
    if (const QVariantList *row = m_cache.object(key))
        return row;
    auto row = freshRow(key);
    if (!row)
        return nullptr;
    auto *kept = new QVariantList(std::move(*row));
    m_cache.insert(key, kept);
    return kept;
}

QVariant RecordsetRows::value(qint64 position, int field) const
{
    const int place = m_places[field];
    if (place < 0)
        return typed(m_set.held[static_cast<std::size_t>(-1 - place)].at(position), m_fields[field].type);
    return storedValue(keyAt(position), field);
}

QVariant RecordsetRows::storedValue(qint64 key, int field) const
{
    const QVariantList *row = cachedRow(key);
    if (row == nullptr)
        throw DaoError(RecordDeleted, u"Record is deleted."_s);
    return typed(row->at(m_places[field]), m_fields[field].type);
}

std::optional<qint64> RecordsetRows::keyBehind(qint64 key, const QStringList &columns) const
{
    const TableInfo *table = m_database.table(m_plan.baseTable);
    QByteArray own;
    QByteArray next;
    for (const QString &column : columns + QStringList{table->keyColumn}) {
        own += (own.isEmpty() ? "own." : ", own.") + quotedName(column);
        next += (next.isEmpty() ? "next." : ", next.") + quotedName(column);
    }
    const QByteArray name = quotedName(table->name);
    Statement row =
        connection().prepare("SELECT next." + quotedName(table->keyColumn) + " FROM " + name + " AS own, " +
                             name + " AS next WHERE own." + quotedName(table->keyColumn) + " = ?1 AND (" +
                             next + ") > (" + own + ") ORDER BY " + next + " LIMIT 1");
    row.bind(1, key);
    return row.step() ? std::optional(row.integer(0)) : std::nullopt;
}

void RecordsetRows::setOrder(const QByteArray &columns)
{
    m_plan.orderBy = columns + ", " + m_plan.key;
}

QByteArray RecordsetRows::seekSql(const QStringList &columns, const QString &comparison,
                                  const QStringList &exact) const
{
    const TableInfo *table = m_database.table(m_plan.baseTable);
    const bool down = comparison.startsWith(u'<');
    QByteArray left;
    QByteArray right;
    QByteArray equal;
    QByteArray order;
    QByteArray presence;
    for (int i = 0; i < columns.size(); ++i) {
        const Field &field = m_fields[fieldIndex(columns[i])];
        const bool isExact = exact.contains(columns[i]) && field.type == FieldType::Text;
        const QByteArray name = quotedName(columns[i]) + (isExact ? " COLLATE BINARY" : "");
        const QByteArray mark = "?" + QByteArray::number(i + 1);
        left += (i > 0 ? ", " : "") + name;
        right += (i > 0 ? ", " : "") + mark;
        equal += (i > 0 ? " AND " : "") + name + " IS " + mark;
        order += (i > 0 ? ", " : "") + name + (down ? " DESC" : "");
    }
    // The index of files leaves out songs without one: it is used when the statement says so too.
    if (exact.contains("FileName"_L1))
        presence = " AND FileName > ''";
    // Rows that are equal need no order; asked for one, SQLite would sort them.
    const QByteArray condition = comparison == "="_L1 ? equal + presence
                                                      : "(" + left + ") " + comparison.toLatin1() + " (" +
                                                            right + ")" + presence + " ORDER BY " + order;
    return "SELECT " + quotedName(table->keyColumn) + " FROM " + quotedName(table->name) + " WHERE " +
           condition + " LIMIT 1";
}

std::vector<qint64> RecordsetRows::find(const QString &criteria, bool firstOnly) const
{
    try {
        return m_plan.isKeyed() ? findKeyed(criteria, firstOnly) : findComputed(criteria);
    } catch (const DaoError &e) {
        throw DaoError(e.number == SyntaxError ? SyntaxErrorInCriteria : e.number, e.description);
    }
}

// While nothing has changed what decides the order, the store walks it and the first hit is the
// one. After an edit the recordset keeps its first order, which only its own positions know.
std::vector<qint64> RecordsetRows::findKeyed(const QString &criteria, bool firstOnly) const
{
    const Criteria planned = planCriteria(criteria, m_plan, m_database);
    completeKeys();
    const bool inOrder =
        m_plan.top < 0 &&
        (m_reader || m_database.stamps().unchangedSince(m_openedAt, m_plan.baseTable, m_plan.fieldsUsed));
    SelectPlan plan = m_plan;
    plan.top = -1;
    std::vector<qint64> positions;
    if (firstOnly && inOrder) {
        Statement rows = connection().prepare(plan.sql(plan.key, planned.sql));
        while (positions.empty() && rows.step()) {
            if (const qint64 position = m_set.keys.positionOf(rows.integer(0)); position >= 0)
                positions.push_back(position);
        }
        return positions;
    }
    Statement rows = connection().prepare(plan.sql(plan.key, planned.sql, false, inOrder));
    while (rows.step()) {
        if (const qint64 position = m_set.keys.positionOf(rows.integer(0)); position >= 0)
            positions.push_back(position);
    }
    std::ranges::sort(positions);
    positions.erase(std::unique(positions.begin(), positions.end()), positions.end());
    return positions;
}

std::vector<qint64> RecordsetRows::findComputed(const QString &criteria) const
{
    static const QString alias = u"~set"_s;
    SelectPlan wrapped;
    Source source;
    source.alias = alias;
    QByteArray columns;
    for (const Output &output : m_plan.outputs) {
        source.columns.append(output.column);
        columns += (columns.isEmpty() ? "" : ", ") + output.sql + " AS " + quotedName(output.column.name);
    }
    wrapped.scope.sources.push_back(source);
    const Criteria planned = planCriteria(criteria, wrapped, m_database);
    Statement rows = connection().prepare(
        "SELECT \"~n\" - 1 FROM (SELECT *, row_number() OVER () AS \"~n\" FROM (" + m_plan.sql(columns) +
        ")) AS " + quotedName(alias) + " WHERE " + planned.sql + " ORDER BY 1");
    std::vector<qint64> positions;
    while (rows.step()) {
        if (rows.integer(0) < m_set.count)
            positions.push_back(rows.integer(0));
    }
    return positions;
}

} // namespace dao
