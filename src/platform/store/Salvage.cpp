// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/Salvage.h"

#include "platform/store/DaoError.h"

#include <QStringList>

#include <limits>

using namespace Qt::StringLiterals;

namespace dao {

namespace {

QStringList columnsOf(Connection &connection, const QString &table)
{
    QStringList columns;
    Statement info = connection.prepare("SELECT name FROM pragma_table_info(" + quotedText(table) + ")");
    while (info.step())
        columns.append(info.text(0));
    return columns;
}

/** Copies one table in the order of its keys, and again from the other end when a page can't be read. */
class TableCopy
{
public:
    TableCopy(Connection &source, Connection &target, const QString &table)
        : m_source(source), m_target(target)
    {
        const QStringList there = columnsOf(source, table);
        for (const QString &column : columnsOf(target, table)) {
            if (there.contains(column, Qt::CaseInsensitive))
                m_columns += (m_columns.isEmpty() ? "" : ", ") + quotedName(column);
        }
        m_width = static_cast<int>(m_columns.count(',')) + 1;
        m_table = quotedName(table);
    }

    qint64 run()
    {
        if (m_columns.isEmpty())
            return 0;
        qint64 low = std::numeric_limits<qint64>::min();
        qint64 high = std::numeric_limits<qint64>::max();
        // Each break-off leaves a hole; the walk goes on behind it with growing steps.
        if (walk(low, high, true))
            return m_copied;
        static_cast<void>(walk(low, high, false));
        low = std::max<qint64>(low, 0);
        for (qint64 step = 1; low + step < high && step < (1LL << 40); step *= 2) {
            const qint64 start = low + step;
            qint64 from = start;
            static_cast<void>(walk(from, high, true));
            if (from > start) {
                // The leap may have passed over rows on this side of the hole's end.
                qint64 back = start + 1;
                static_cast<void>(walk(low, back, false));
                step = 1;
            }
            low = from;
        }
        return m_copied;
    }

private:
    // Copies rows strictly between the two keys; moves the end it started from past what it copied.
    bool walk(qint64 &low, qint64 &high, bool upwards)
    {
        try {
            Statement rows = m_source.prepare("SELECT rowid, " + m_columns + " FROM " + m_table +
                                              " NOT INDEXED WHERE rowid > ?1 AND rowid < ?2 ORDER BY rowid" +
                                              (upwards ? "" : " DESC"));
            rows.bind(1, low);
            rows.bind(2, high);
            while (rows.step()) {
                copy(rows);
                (upwards ? low : high) = rows.integer(0);
            }
            return true;
        } catch (const DaoError &e) {
            if (e.number == DiskFull)
                throw;
            return false;
        }
    }

    void copy(const Statement &row)
    {
        if (!m_insert) {
            QByteArray marks;
            for (int i = 0; i < m_width; ++i)
                marks += ", ?" + QByteArray::number(i + 2);
            m_insert = m_target.prepare("INSERT OR IGNORE INTO " + m_table + " (rowid, " + m_columns +
                                            ") VALUES (?1" + marks + ")",
                                        true);
        }
        for (int i = 0; i <= m_width; ++i)
            m_insert.bind(i + 1, row.variant(i));
        m_insert.step();
        m_insert.reset();
        ++m_copied;
    }

    Connection &m_source;
    Connection &m_target;
    QByteArray m_table;
    QByteArray m_columns;
    int m_width = 0;
    Statement m_insert;
    qint64 m_copied = 0;
};

QStringList tablesOf(Connection &connection)
{
    QStringList tables;
    Statement names =
        connection.prepare("SELECT name FROM sqlite_schema WHERE type = 'table' AND name NOT LIKE "
                           "'sqlite%' AND name NOT LIKE 'sys%' ORDER BY rowid");
    while (names.step())
        tables.append(names.text(0));
    return tables;
}

// The store's own two tables have no row numbers to walk by.
void copyOwnTables(Connection &source, Connection &target)
{
    const std::pair<QByteArray, QByteArray> own[] = {{"sysQueries", "Name, SQL"}, {"sysMeta", "Name, Value"}};
    for (const auto &[table, columns] : own) {
        try {
            Statement rows = source.prepare("SELECT " + columns + " FROM " + table);
            while (rows.step()) {
                Statement insert = target.prepare("INSERT OR REPLACE INTO " + table + " VALUES (?1, ?2)");
                insert.bind(1, rows.variant(0));
                insert.bind(2, rows.variant(1));
                insert.step();
            }
        } catch (const DaoError &e) {
            // The program makes its queries anew at the next start.
            if (e.number == DiskFull)
                throw;
        }
    }
}

// A damaged page may hold a file's name twice; the later row goes.
void dropRepeatedKeys(Connection &target, const QString &index)
{
    const qsizetype on = index.indexOf(" ON "_L1);
    const qsizetype open = index.indexOf(u'(', on);
    const qsizetype close = index.indexOf(u')', open);
    const QByteArray table = index.mid(on + 4, open - on - 4).trimmed().toUtf8();
    const QByteArray columns = index.mid(open + 1, close - open - 1).toUtf8();
    const QByteArray where = index.mid(close + 1).remove(u';').toUtf8();
    target.execute("DELETE FROM " + table + where + (where.trimmed().isEmpty() ? " WHERE " : " AND ") +
                   "rowid NOT IN (SELECT min(rowid) FROM " + table + where + " GROUP BY " + columns + ")");
}

} // namespace

QString salvage(const QString &damaged, Connection &target, const Schema &schema)
{
    QString report = u"Records saved:"_s;
    Connection source(damaged, Connection::Mode::Damaged);
    source.execute("PRAGMA cell_size_check = ON");
    // An empty catalogue is not to take the place of one of which nothing can be told.
    if (tablesOf(source).isEmpty())
        throw DaoError(CannotOpenFile, u"Nothing can be read of '%1'.  It was left as it is."_s.arg(damaged));
    target.execute("BEGIN");
    for (const QString &table : tablesOf(target))
        report += u"\n    %1: %2"_s.arg(table).arg(TableCopy(source, target, table).run());
    copyOwnTables(source, target);
    for (const QString &index : schema.indexes) {
        if (index.startsWith("CREATE UNIQUE"_L1))
            dropRepeatedKeys(target, index);
        target.execute(index.toUtf8());
    }
    target.execute("COMMIT");
    return report;
}

} // namespace dao
