// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/RecordsetImpl.h"

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

void RecordsetRows::visit(const QList<int> &fields, const RowVisitor &visitor) const
{
    completeKeys();
    QByteArray columns = "1";
    for (const int field : fields) {
        if (m_places[field] >= 0)
            columns += ", " + quotedName(m_baseFields[m_places[field]]);
    }
    const bool fetches = columns != "1";
    const ReadMoment moment(connection());
    Statement fetch;
    if (fetches) {
        const TableInfo *table = m_database.table(m_plan.baseTable);
        fetch = connection().prepare("SELECT " + columns + " FROM " + quotedName(table->name) + " WHERE " +
                                     quotedName(table->keyColumn) + " = ?1");
    }
    std::vector<QByteArray> held(static_cast<std::size_t>(fields.size()));
    std::vector<QByteArrayView> texts(held.size());
    for (qint64 row = 0; row < count(); ++row) {
        if (fetches) {
            fetch.reset();
            fetch.bind(1, keyAt(row));
            if (!fetch.step())
                throw DaoError(RecordDeleted, u"Record is deleted."_s);
        }
        int column = 0;
        for (std::size_t i = 0; i < texts.size(); ++i) {
            const int place = m_places[fields[static_cast<qsizetype>(i)]];
            if (place < 0)
                held[i] = m_held[static_cast<std::size_t>(-1 - place)].at(row).toString().toUtf8();
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
