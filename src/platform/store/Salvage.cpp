// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/Salvage.h"

#include "platform/store/DaoError.h"
#include "platform/text/Text.h"

#include <QStringList>

#include <limits>
#include <optional>
#include <vector>

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

/**
 * The rows of one table of the damaged file. A page that can't be read breaks a walk off; a page that lies
 * behind the file's end reads as zeros, which look like rows without a key, or like texts of NUL bytes.
 */
class TableCopy
{
public:
    TableCopy(Connection &source, Connection &target, const QString &table)
        : m_source(source), m_target(target), m_table(quotedName(table))
    {
        const QStringList there = columnsOf(source, table);
        Statement columns =
            target.prepare("SELECT name, type, pk FROM pragma_table_info(" + quotedText(table) + ")");
        while (columns.step()) {
            if (!there.contains(columns.text(0), Qt::CaseInsensitive))
                continue;
            m_columns += ", " + quotedName(columns.text(0));
            const bool isKey = columns.integer(2) > 0;
            m_kinds.push_back(isKey ? Kind::Key : kindOf(columns.text(1).toUpper()));
        }
        m_counts.table = table;
        const qint64 given = lastKeyGiven(table);
        lookAtIndexes(table);
        if (given > 0) {
            m_high = std::max(given, m_highestIndexed) + 1;
            m_counts.rowsAtMost = m_high - 1;
        }
    }

    RepairedTable run()
    {
        if (m_kinds.empty())
            return m_counts;
        // Keys are given from 1 on.
        qint64 low = 0;
        qint64 high = m_high;
        // Each break-off leaves a hole; the walk goes on behind it with growing steps.
        if (walk(low, high, true))
            return m_counts;
        static_cast<void>(walk(low, high, false));
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
        return m_counts;
    }

private:
    enum class Kind { Key, Number, Date, Text };

    static Kind kindOf(const QString &declared)
    {
        if (declared.startsWith("DATETIME"_L1))
            return Kind::Date;
        return declared.contains("TEXT"_L1) ? Kind::Text : Kind::Number;
    }

    /** 0 when it can't be read, or none is kept. */
    qint64 lastKeyGiven(const QString &table)
    {
        try {
            return m_source.scalar("SELECT seq FROM sqlite_sequence WHERE name = " + quotedText(table))
                .toLongLong();
        } catch (const DaoError &) {
            return 0;
        }
    }

    /** One that can be read to its end has an entry for each row. */
    void lookAtIndexes(const QString &table)
    {
        for (const QString &index : wholeIndexesOf(table)) {
            try {
                Statement all = m_source.prepare("SELECT total(1), max(rowid) FROM " + m_table +
                                                 " INDEXED BY " + quotedName(index));
                if (!all.step())
                    continue;
                m_counts.rowsBefore = all.integer(0);
                m_highestIndexed = all.integer(1);
                return;
            } catch (const DaoError &) {
                continue;
            }
        }
    }

    QStringList wholeIndexesOf(const QString &table)
    {
        QStringList names;
        try {
            Statement indexes = m_source.prepare("SELECT name FROM pragma_index_list(" + quotedText(table) +
                                                 ") WHERE partial = 0");
            while (indexes.step())
                names.append(indexes.text(0));
        } catch (const DaoError &) {
            // Only the number of rows stays unknown.
        }
        return names;
    }

    // Copies rows strictly between the two keys; moves the end it started from past what it copied.
    bool walk(qint64 &low, qint64 &high, bool upwards)
    {
        try {
            Statement rows = m_source.prepare("SELECT rowid" + m_columns + " FROM " + m_table +
                                              " NOT INDEXED WHERE rowid > ?1 AND rowid < ?2 ORDER BY rowid" +
                                              (upwards ? "" : " DESC"));
            rows.bind(1, low);
            rows.bind(2, high);
            while (rows.step()) {
                // What lies out of order is no key, and the walk is not to be led astray by it.
                const qint64 key = rows.integer(0);
                if (key <= low || key >= high) {
                    m_counts.passedOver += upwards ? 1 : 0;
                    continue;
                }
                copy(rows, upwards);
                (upwards ? low : high) = key;
            }
            return true;
        } catch (const DaoError &e) {
            if (e.number == DiskFull)
                throw;
            return false;
        }
    }

    void copy(const Statement &row, bool upwards)
    {
        const std::optional<QVariantList> values = readable(row);
        if (!values) {
            m_counts.passedOver += upwards ? 1 : 0;
            return;
        }
        if (!m_insert) {
            QByteArray marks;
            for (std::size_t i = 0; i < m_kinds.size(); ++i)
                marks += ", ?" + QByteArray::number(i + 2);
            m_insert = m_target.prepare("INSERT OR IGNORE INTO " + m_table + " (rowid" + m_columns +
                                            ") VALUES (?1" + marks + ")",
                                        true);
        }
        m_insert.bind(1, row.integer(0));
        for (qsizetype i = 0; i < values->size(); ++i)
            m_insert.bind(static_cast<int>(i) + 2, values->at(i));
        m_insert.step();
        m_insert.reset();
        m_counts.saved += m_target.changes();
        m_counts.cutShort += m_damagedValues > 0 ? m_target.changes() : 0;
    }

    /** The row's values, as far as they can be what was stored; nothing when most of them can't. */
    std::optional<QVariantList> readable(const Statement &row)
    {
        m_damagedValues = 0;
        int sound = 0;
        QVariantList values;
        for (std::size_t i = 0; i < m_kinds.size(); ++i) {
            const int column = static_cast<int>(i) + 1;
            const int damagedBefore = m_damagedValues;
            const QVariant value = row.isNull(column) ? QVariant() : readable(row, column, m_kinds[i]);
            values.append(value);
            if (m_kinds[i] != Kind::Key && m_damagedValues == damagedBefore &&
                quaverly::isGreaterThanBlank(value.toString()))
                ++sound;
        }
        return sound > 0 && sound >= m_damagedValues ? std::optional(values) : std::nullopt;
    }

    QVariant readable(const Statement &row, int column, Kind kind)
    {
        const bool isText = row.isText(column);
        const QByteArrayView text = isText ? row.utf8(column) : QByteArrayView();
        const bool right = kind == Kind::Text || kind == Kind::Date ? isText : row.isNumber(column);
        if (right && !text.contains('\0') && text.isValidUtf8())
            return row.variant(column);
        ++m_damagedValues;
        if (kind != Kind::Text || !isText)
            return {};
        const qsizetype end = text.indexOf('\0');
        const QString whole = QString::fromUtf8(end < 0 ? text : text.first(end));
        const QString left = whole.left(whole.indexOf(QChar::ReplacementCharacter));
        return left.isEmpty() ? QVariant() : QVariant(left);
    }

    Connection &m_source;
    Connection &m_target;
    QByteArray m_table;
    /** Each with a comma in front. */
    QByteArray m_columns;
    std::vector<Kind> m_kinds;
    qint64 m_high = std::numeric_limits<qint64>::max();
    qint64 m_highestIndexed = 0;
    Statement m_insert;
    int m_damagedValues = 0;
    RepairedTable m_counts;
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

/** What an index statement of the schema says. */
struct IndexParts
{
    explicit IndexParts(const QString &statement)
    {
        const qsizetype on = statement.indexOf(" ON "_L1);
        const qsizetype open = statement.indexOf(u'(', on);
        const qsizetype close = statement.indexOf(u')', open);
        table = statement.mid(on + 4, open - on - 4).trimmed();
        columns = statement.mid(open + 1, close - open - 1).toUtf8();
        const QByteArray where = statement.mid(close + 1).remove(u';').toUtf8();
        rows = table.toUtf8() + where + (where.trimmed().isEmpty() ? " WHERE " : " AND ");
        // Rows with a Null in their key never stand in each other's way.
        for (const QByteArray &column : columns.split(','))
            rows += column.trimmed().split(' ').first() + " IS NOT NULL AND ";
    }

    QString table;
    QByteArray columns;
    QByteArray rows;
};

// A damaged page may hold a file's name twice; the later row goes.
void dropRepeatedKeys(Connection &target, const QString &index, QList<RepairedTable> &tables)
{
    const IndexParts parts(index);
    const QByteArray first = "(SELECT min(rowid) FROM " + parts.rows + "TRUE GROUP BY " + parts.columns + ")";
    target.execute("DELETE FROM " + parts.rows + "rowid NOT IN " + first);
    for (RepairedTable &counts : tables) {
        if (counts.table != parts.table)
            continue;
        counts.saved -= target.changes();
        counts.passedOver += target.changes();
    }
}

} // namespace

QList<RepairedTable> salvage(const QString &damaged, Connection &target, const Schema &schema)
{
    Connection source(damaged, Connection::Mode::Damaged);
    source.execute("PRAGMA cell_size_check = ON");
    // An empty catalogue is not to take the place of one of which nothing can be told.
    if (tablesOf(source).isEmpty())
        throw DaoError(CannotOpenFile, u"Nothing can be read of '%1'.  It was left as it is."_s.arg(damaged));
    QList<RepairedTable> tables;
    WriteTransaction transaction(target);
    for (const QString &table : tablesOf(target))
        tables.append(TableCopy(source, target, table).run());
    copyOwnTables(source, target);
    for (const QString &index : schema.indexes) {
        if (index.startsWith("CREATE UNIQUE"_L1))
            dropRepeatedKeys(target, index, tables);
        target.execute(index.toUtf8());
    }
    transaction.commit();
    return tables;
}

} // namespace dao
