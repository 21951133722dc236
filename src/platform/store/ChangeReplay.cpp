// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/ChangeReplay.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace dao {

ChangeReplay::ChangeReplay(Connection &connection, const Schema &schema, const std::vector<LogTable> &tables,
                           ReplayDirection direction)
    : m_connection(connection), m_tables(tables), m_direction(direction),
      m_segments(connection, schema, tables, direction)
{}

std::vector<ReplayConflict> ChangeReplay::run(qint64 first, qint64 last)
{
    std::vector<LogSegment> segments = segmentsOf(m_connection, first, last);
    if (m_direction == ReplayDirection::Back)
        std::ranges::reverse(segments);
    for (const LogSegment &segment : segments) {
        if (touchesLeftAlone(segment) || !m_segments.apply(segment))
            replay(segment);
    }
    return {m_conflicts.begin(), m_conflicts.end()};
}

bool ChangeReplay::touchesLeftAlone(const LogSegment &segment) const
{
    return std::ranges::any_of(m_leftAlone,
                               [&](const ReplayConflict &row) { return row.table == segment.table; });
}

void ChangeReplay::replay(const LogSegment &segment)
{
    const bool back = m_direction == ReplayDirection::Back;
    Statement rows = m_connection.prepare(
        QByteArray(
            "SELECT Seq, Tab, RowKey, Col, Old, New FROM sysLog WHERE Seq BETWEEN ?1 AND ?2 ORDER BY Seq") +
        (back ? " DESC" : ""));
    rows.bind(1, segment.first);
    rows.bind(2, segment.last);
    while (rows.step()) {
        const ReplayConflict row{static_cast<int>(rows.integer(1)), rows.integer(2)};
        const int column = static_cast<int>(rows.integer(3));
        if (m_leftAlone.contains(row))
            continue;
        if (column >= 0) {
            cell(row, {column, rows.variant(back ? 5 : 4), rows.variant(back ? 4 : 5)});
            continue;
        }
        writeCells();
        if (column == RowsAdded)
            run(row.table, rows.integer(4), rows.integer(5));
        else if (column == RowAdded || column == RowDeleted)
            wholeRow(row, rows.integer(0), static_cast<LogMark>(column));
    }
    writeCells();
}

void ChangeReplay::cell(const ReplayConflict &row, Cell cell)
{
    const bool again = std::ranges::find(m_cells, cell.column, &Cell::column) != m_cells.end();
    if (row != m_row || again)
        writeCells();
    m_row = row;
    m_cells.push_back(std::move(cell));
}

void ChangeReplay::writeCells()
{
    if (m_cells.empty())
        return;
    const LogTable &target = table(m_row.table);
    QByteArray assignments;
    QByteArray conditions;
    for (const Cell &each : m_cells) {
        const auto column = std::ranges::find(target.columns, each.column, &LogTable::Kept::place);
        const QByteArray name = column == target.columns.end() ? "\"\"" : quotedName(column->name);
        assignments += (assignments.isEmpty() ? "" : ", ") + name + " = ?";
        conditions += " AND " + name + " COLLATE BINARY IS ?";
    }
    Statement &update = statement("UPDATE OR IGNORE " + quotedName(target.name) + " SET " + assignments +
                                  " WHERE rowid = ?" + conditions);
    int parameter = 1;
    for (const Cell &each : m_cells)
        update.bind(parameter++, each.wanted);
    update.bind(parameter++, m_row.key);
    for (const Cell &each : m_cells)
        update.bind(parameter++, each.expected);
    static_cast<void>(update.step());
    update.reset();
    if (m_connection.changes() == 0 && !isAsWanted())
        m_conflicts.insert(m_row);
    m_cells.clear();
}

bool ChangeReplay::isAsWanted()
{
    const LogTable &target = table(m_row.table);
    QByteArray conditions;
    for (const Cell &each : m_cells) {
        const auto column = std::ranges::find(target.columns, each.column, &LogTable::Kept::place);
        conditions += " AND " + (column == target.columns.end() ? "\"\"" : quotedName(column->name)) +
                      " COLLATE BINARY IS ?";
    }
    Statement &look = statement("SELECT 1 FROM " + quotedName(target.name) + " WHERE rowid = ?" + conditions);
    int parameter = 1;
    look.bind(parameter++, m_row.key);
    for (const Cell &each : m_cells)
        look.bind(parameter++, each.wanted);
    const bool found = look.step();
    look.reset();
    return found;
}

void ChangeReplay::wholeRow(const ReplayConflict &row, qint64 seq, LogMark mark)
{
    if ((mark == RowAdded) == (m_direction == ReplayDirection::Back))
        deleteRow(row, seq);
    else
        insertRow(row, seq);
}

void ChangeReplay::insertRow(const ReplayConflict &row, qint64 seq)
{
    const LogTable &target = table(row.table);
    Statement &insert = statement("INSERT OR IGNORE INTO " + quotedName(target.name) + " (rowid" +
                                  target.names() + ") SELECT ?1" + target.imageNames() + " FROM " +
                                  LogTable::images(static_cast<std::size_t>(row.table)) + " WHERE Seq = ?2");
    insert.bind(1, row.key);
    insert.bind(2, seq);
    static_cast<void>(insert.step());
    insert.reset();
    expectOneRow(row, "EXISTS (SELECT 1" + isOf(row) + ")", seq);
}

void ChangeReplay::deleteRow(const ReplayConflict &row, qint64 seq)
{
    const QByteArray name = quotedName(table(row.table).name);
    Statement &removal =
        statement("DELETE FROM " + name + " WHERE rowid = ?1 AND EXISTS (SELECT 1" + isOf(row) + ")");
    removal.bind(1, row.key);
    removal.bind(2, seq);
    static_cast<void>(removal.step());
    removal.reset();
    expectOneRow(row, "NOT EXISTS (SELECT 1 FROM " + name + " WHERE rowid = ?1)", seq);
}

/** The row ?1 of a table where it is as the whole row ?2 of the log. */
QByteArray ChangeReplay::isOf(const ReplayConflict &row) const
{
    const LogTable &target = table(row.table);
    QByteArray same;
    for (const LogTable::Kept &column : target.columns)
        same += " AND t." + quotedName(column.name) + " COLLATE BINARY IS i." + LogTable::imageColumn(column);
    return " FROM " + quotedName(target.name) + " AS t, " +
           LogTable::images(static_cast<std::size_t>(row.table)) + " AS i WHERE t.rowid = ?1 AND i.Seq = ?2" +
           same;
}

void ChangeReplay::run(int number, qint64 firstKey, qint64 lastKey)
{
    const LogTable &target = table(number);
    const QByteArray name = quotedName(target.name);
    const QByteArray images = LogTable::images(static_cast<std::size_t>(number));
    const auto between = [&](const char *column, qint64 low, qint64 high) {
        return QByteArray(" WHERE ") + column + " BETWEEN " + QByteArray::number(low) + " AND " +
               QByteArray::number(high);
    };
    if (m_direction == ReplayDirection::Back) {
        const QByteArray rows = between("rowid", firstKey, lastKey);
        m_connection.execute("INSERT INTO " + images + " (Seq" + target.imageNames() + ") SELECT -rowid" +
                             target.names() + " FROM " + name + rows);
        m_connection.execute("DELETE FROM " + name + rows);
        return;
    }
    const QByteArray kept = between("Seq", -lastKey, -firstKey);
    m_connection.execute("INSERT OR IGNORE INTO " + name + " (rowid" + target.names() + ") SELECT -Seq" +
                         target.imageNames() + " FROM " + images + kept + " ORDER BY Seq DESC");
    Statement refused = m_connection.prepare("SELECT -Seq FROM " + images + kept +
                                             " AND -Seq NOT IN (SELECT rowid FROM " + name + ")");
    while (refused.step())
        m_conflicts.insert({number, refused.integer(0)});
    m_connection.execute("DELETE FROM " + images + kept);
}

Statement &ChangeReplay::statement(const QByteArray &sql)
{
    Statement &known = m_statements[sql];
    if (!known)
        known = m_connection.prepare(sql, true);
    return known;
}

void ChangeReplay::expectOneRow(const ReplayConflict &row, const QByteArray &orElse, qint64 seq)
{
    if (m_connection.changes() != 0)
        return;
    Statement &look = statement("SELECT " + orElse + " WHERE ?1 NOTNULL AND ?2 NOTNULL");
    look.bind(1, row.key);
    look.bind(2, seq);
    if (!look.step() || look.integer(0) == 0)
        m_conflicts.insert(row);
    look.reset();
}

} // namespace dao
