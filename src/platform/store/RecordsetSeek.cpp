// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/RecordsetImpl.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace dao {

namespace {

/** What stands between an index statement's brackets; a full disk may have kept the index itself from being.
 */
QStringList indexTerms(const Schema &schema, const QString &name)
{
    const auto found = std::ranges::find_if(schema.indexes, [&](const QString &statement) {
        return indexNameOf(statement).compare(name, Qt::CaseInsensitive) == 0;
    });
    if (found == schema.indexes.end())
        return {};
    const qsizetype open = found->indexOf(u'(') + 1;
    return found->mid(open, found->indexOf(u')', open) - open).split(u", "_s);
}

} // namespace

// The columns behind an index's name decide the order of moving and what Seek compares.
void RecordsetImpl::setIndex(const QString &name)
{
    if (type != RecordsetType::Table)
        throw DaoError(InvalidOperation, u"Operation is not supported for this type of object."_s);
    const QString &table = rows.plan().baseTable;
    QStringList columns;
    QStringList exact;
    QByteArray order;
    if (name.compare("PrimaryKey"_L1, Qt::CaseInsensitive) == 0 &&
        database.table(table)->keyColumn != "rowid"_L1)
        columns.append(database.table(table)->keyColumn);
    for (const QString &term : indexTerms(database.schema(), table + u'.' + name)) {
        columns.append(term.section(u' ', 0, 0));
        if (term.endsWith("COLLATE BINARY"_L1))
            exact.append(columns.last());
    }
    if (columns.isEmpty())
        throw DaoError(IndexNotFound, u"'%1' is not an index in this table."_s.arg(name));
    for (const QString &column : columns)
        order += (order.isEmpty() ? "" : ", ") + quotedName(column);
    index = name;
    m_indexColumns = columns;
    m_exactColumns = exact;
    m_seek = Statement();
    rows.setOrder(order);
    m_loaded = false;
    m_looked = false;
    m_key.reset();
    deletedCurrent = false;
}

void RecordsetImpl::prepareSeek(const QString &comparison, qsizetype columns)
{
    static const QStringList known{u"="_s, u">="_s, u">"_s, u"<="_s, u"<"_s};
    if (!known.contains(comparison) || columns == 0)
        throw DaoError(InvalidOperation, u"Invalid argument."_s);
    m_seek = database.connection().prepare(
        rows.seekSql(m_indexColumns.first(columns), comparison, m_exactColumns), true);
    m_seekComparison = comparison;
    m_seekColumns = columns;
}

void RecordsetImpl::seek(const QString &comparison, const QVariantList &keys)
{
    if (m_indexColumns.isEmpty())
        throw DaoError(InvalidOperation, u"Operation invalid without a current index."_s);
    const qsizetype count = std::min(keys.size(), m_indexColumns.size());
    if (!m_seek || m_seekComparison != comparison || m_seekColumns != count)
        prepareSeek(comparison, count);
    for (int i = 0; i < count; ++i) {
        const Field &field = rows.fields()[requireField(m_indexColumns[i])];
        m_seek.bind(i + 1, toStored(field, keys[i]));
    }
    const bool found = m_seek.step();
    if (found) {
        m_key = m_seek.integer(0);
        place = Place::Row;
        deletedCurrent = false;
        m_behind.reset();
        m_looked = true;
        m_loaded = false;
    }
    m_seek.reset();
    noMatch = !found;
    cancelUpdate();
}

} // namespace dao
