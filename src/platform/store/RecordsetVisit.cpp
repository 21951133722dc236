// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/RecordsetImpl.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace dao {

namespace {

/** One moment of the file for the length of a scope: else each row would take the file's lock anew. */
class ReadMoment final
{
public:
    explicit ReadMoment(Connection &connection) : m_connection(connection)
    {
        m_connection.execute("SAVEPOINT read_moment");
    }
    ~ReadMoment()
    {
        try {
            m_connection.execute("RELEASE read_moment");
        } catch (const DaoError &) {
            // Nothing was written: it ends with the connection.
        }
    }
    ReadMoment(const ReadMoment &) = delete;
    ReadMoment &operator=(const ReadMoment &) = delete;

private:
    Connection &m_connection;
};

} // namespace

// For all rows of a table one statement is faster than one row by its key after the other, often from an
// index alone; for few it would search for them a second time.
bool RecordsetRows::showsEveryRow() const
{
    return m_plan.isKeyed() &&
           count() >=
               connection().scalar("SELECT count(*) FROM " + quotedName(m_plan.baseTable)).toLongLong();
}

/** The base fields among @p fields, a row at a time. */
Statement RecordsetRows::reading(const QList<int> &fields, bool walks) const
{
    QByteArray columns = walks ? m_plan.key : QByteArray("1");
    for (const int field : fields) {
        if (m_places[field] >= 0)
            columns += ", " + (walks ? m_plan.outputs[field].sql : quotedName(m_baseFields[m_places[field]]));
    }
    if (walks)
        return connection().prepare(m_plan.sql(columns));
    const TableInfo *table = m_database.table(m_plan.baseTable);
    return connection().prepare("SELECT " + columns + " FROM " + quotedName(table->name) + " WHERE " +
                                quotedName(table->keyColumn) + " = ?1");
}

void RecordsetRows::visit(const QList<int> &fields, const RowVisitor &visitor) const
{
    completeKeys();
    bool walks = m_reader && showsEveryRow();
    const ReadMoment moment(connection());
    Statement fetch;
    if (std::ranges::any_of(fields, [this](int field) { return m_places[field] >= 0; }))
        fetch = reading(fields, walks);
    std::vector<QByteArray> held(static_cast<std::size_t>(fields.size()));
    std::vector<QByteArrayView> texts(held.size());
    for (qint64 row = 0; row < count(); ++row) {
        if (walks && fetch && !(fetch.step() && fetch.integer(0) == keyAt(row))) {
            // Equals in the order come as this statement's index has them.
            walks = false;
            fetch = reading(fields, walks);
        }
        if (!walks && fetch) {
            fetch.reset();
            fetch.bind(1, keyAt(row));
            if (!fetch.step())
                throw DaoError(RecordDeleted, u"Record is deleted."_s);
        }
        int column = 0;
        for (std::size_t i = 0; i < texts.size(); ++i) {
            const int place = m_places[fields[static_cast<qsizetype>(i)]];
            if (place < 0)
                held[i] = m_set.held[static_cast<std::size_t>(-1 - place)].at(row).toString().toUtf8();
            texts[i] = place < 0 ? QByteArrayView(held[i]) : fetch.utf8(++column);
        }
        visitor(row, texts);
    }
}

void Recordset::forEachRow(const QList<int> &fields, const RowVisitor &visit) const
{
    for (const int field : fields) {
        if (field < 0 || field >= Fields().size())
            throw DaoError(ItemNotFound, u"Item not found in this collection."_s);
    }
    // Counting opens what was left for later.
    if (m_impl->count() > 0)
        m_impl->rows.visit(fields, visit);
}

} // namespace dao
