// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/ReplaySegments.h"

#include "platform/store/DaoError.h"
#include "platform/store/DatabaseImpl.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace dao {

namespace {

/** With fewer rows it takes longer to prepare the statements than to look at each row. */
constexpr qint64 SmallestSegment = 500;

QByteArray rowsOf(const LogSegment &segment)
{
    return "l.Seq BETWEEN " + QByteArray::number(segment.first) + " AND " + QByteArray::number(segment.last);
}

QByteArray imagesOf(const LogSegment &segment)
{
    return LogTable::images(static_cast<std::size_t>(segment.table));
}

} // namespace

std::vector<LogSegment> segmentsOf(Connection &connection, qint64 first, qint64 last)
{
    std::vector<LogSegment> segments;
    Statement rows = connection.prepare(
        "SELECT Seq, Tab, RowKey, Col FROM sysLog WHERE Seq BETWEEN ?1 AND ?2 ORDER BY Seq");
    rows.bind(1, first);
    rows.bind(2, last);
    qint64 key = 0;
    std::vector<int> ofRow;
    while (rows.step()) {
        const int table = static_cast<int>(rows.integer(1));
        const int column = static_cast<int>(rows.integer(3));
        const int mark = std::min(column, 0);
        const bool sameRow = !segments.empty() && key == rows.integer(2);
        if (!sameRow)
            ofRow.clear();
        const bool goesOn =
            !segments.empty() && segments.back().table == table && segments.back().mark == mark &&
            (sameRow ? mark == 0 && !std::ranges::count(ofRow, column) : rows.integer(2) > key);
        if (!goesOn) {
            segments.push_back({rows.integer(0), 0, table, mark, {}});
            ofRow.clear();
        }
        LogSegment &segment = segments.back();
        segment.last = rows.integer(0);
        key = rows.integer(2);
        if (mark == 0) {
            ofRow.push_back(column);
            if (!std::ranges::count(segment.columns, column))
                segment.columns.push_back(column);
        }
    }
    return segments;
}

SegmentReplay::SegmentReplay(Connection &connection, const Schema &schema,
                             const std::vector<LogTable> &tables, ReplayDirection direction)
    : m_connection(connection), m_schema(schema), m_tables(tables), m_direction(direction)
{}

bool SegmentReplay::apply(const LogSegment &segment)
{
    if (segment.size() < SmallestSegment)
        return false;
    if (segment.mark == 0)
        return writeColumns(segment);
    if (segment.mark != RowAdded && segment.mark != RowDeleted)
        return false;
    const bool removes = (segment.mark == RowAdded) == (m_direction == ReplayDirection::Back);
    return removes ? deleteRows(segment) : insertRows(segment);
}

qint64 SegmentReplay::count(const QByteArray &from)
{
    return m_connection.scalar("SELECT count(*) FROM " + from).toLongLong();
}

// Column by column, so a column of a unique key has to go by row: in between the key might be taken.
bool SegmentReplay::writeColumns(const LogSegment &segment)
{
    const LogTable &table = tableOf(segment);
    const bool back = m_direction == ReplayDirection::Back;
    struct Step
    {
        QByteArray name;
        QByteArray joined;
    };
    std::vector<Step> steps;
    qint64 fitting = 0;
    for (const int place : segment.columns) {
        const auto column = std::ranges::find(table.columns, place, &LogTable::Kept::place);
        if (column == table.columns.end() || isInUniqueKey(table, column->name))
            return false;
        const QByteArray name = quotedName(column->name);
        steps.push_back({name, " WHERE " + rowsOf(segment) + " AND l.Col = " + QByteArray::number(place) +
                                   " AND t.rowid = l.RowKey AND t." + name + " COLLATE BINARY IS l." +
                                   (back ? "New" : "Old")});
        fitting += count("sysLog AS l, " + quotedName(table.name) + " AS t" + steps.back().joined);
    }
    if (fitting != segment.size())
        return false;
    for (const Step &step : steps)
        m_connection.execute("UPDATE " + quotedName(table.name) + " AS t SET " + step.name + " = l." +
                             (back ? "Old" : "New") + " FROM sysLog AS l" + step.joined);
    return true;
}

bool SegmentReplay::deleteRows(const LogSegment &segment)
{
    const LogTable &table = tableOf(segment);
    QByteArray same;
    for (const LogTable::Kept &column : table.columns)
        same += " AND t." + quotedName(column.name) + " COLLATE BINARY IS i." + LogTable::imageColumn(column);
    const QByteArray rows = rowsOf(segment);
    if (count("sysLog AS l, " + imagesOf(segment) + " AS i, " + quotedName(table.name) + " AS t WHERE " +
              rows + " AND i.Seq = l.Seq AND t.rowid = l.RowKey" + same) != segment.size())
        return false;
    m_connection.execute("DELETE FROM " + quotedName(table.name) +
                         " WHERE rowid IN (SELECT l.RowKey FROM sysLog AS l WHERE " + rows + ")");
    return true;
}

// Many rows into few: indexes that are made anew are faster than indexes that grow by each row.
bool SegmentReplay::insertRows(const LogSegment &segment)
{
    const LogTable &table = tableOf(segment);
    const QByteArray name = quotedName(table.name);
    QList<QString> indexes;
    if (segment.size() > count(name) / 4)
        indexes = plainIndexesOf(table);
    m_connection.execute("SAVEPOINT segment");
    try {
        for (const QString &index : indexes)
            m_connection.execute("DROP INDEX IF EXISTS " + quotedName(indexNameOf(index)));
        m_connection.execute("INSERT INTO " + name + " (rowid" + table.names() + ") SELECT l.RowKey" +
                             table.imageNames("i.") + " FROM sysLog AS l, " + imagesOf(segment) +
                             " AS i WHERE " + rowsOf(segment) + " AND i.Seq = l.Seq ORDER BY l.Seq");
        const bool whole = m_connection.changes() == segment.size();
        if (!whole)
            throw DaoError(DuplicateKey, {});
        for (const QString &index : indexes)
            m_connection.execute(index.toUtf8());
    } catch (const DaoError &error) {
        m_connection.execute("ROLLBACK TO segment; RELEASE segment");
        if (error.number != DuplicateKey)
            throw;
        return false;
    }
    m_connection.execute("RELEASE segment");
    return true;
}

bool SegmentReplay::isInUniqueKey(const LogTable &table, const QString &column) const
{
    return std::ranges::any_of(m_schema.indexes, [&](const QString &index) {
        return index.startsWith("CREATE UNIQUE"_L1) && indexNameOf(index).startsWith(table.name + u'.') &&
               index.contains(column);
    });
}

QList<QString> SegmentReplay::plainIndexesOf(const LogTable &table) const
{
    QList<QString> plain;
    std::ranges::copy_if(m_schema.indexes, std::back_inserter(plain), [&](const QString &index) {
        return !index.startsWith("CREATE UNIQUE"_L1) && indexNameOf(index).startsWith(table.name + u'.');
    });
    return plain;
}

} // namespace dao
