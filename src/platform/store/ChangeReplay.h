// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/ReplaySegments.h"

#include <map>
#include <set>
#include <vector>

namespace dao {

/** A row that is not as the change left it, or whose place is taken. */
struct ReplayConflict
{
    int table = 0;
    qint64 key = 0;
    auto operator<=>(const ReplayConflict &) const = default;
};

/**
 * Takes a change back or makes it again, row by row in the order of the log or against it, in the pending
 * transaction. Rows that are not as they were left stay as they are and are told. Files are not its matter.
 */
class ChangeReplay final
{
public:
    ChangeReplay(Connection &connection, const Schema &schema, const std::vector<LogTable> &tables,
                 ReplayDirection direction);

    /** The rows that were left alone, each once. */
    [[nodiscard]] std::vector<ReplayConflict> run(qint64 first, qint64 last);

private:
    void replay(const LogSegment &segment);
    struct Cell
    {
        int column = 0;
        QVariant expected;
        QVariant wanted;
    };
    void cell(const ReplayConflict &row, Cell cell);
    void writeCells();
    void wholeRow(const ReplayConflict &row, qint64 seq, LogMark mark);
    void insertRow(const ReplayConflict &row, qint64 seq);
    void deleteRow(const ReplayConflict &row, qint64 seq);
    void run(int table, qint64 firstKey, qint64 lastKey);
    [[nodiscard]] const LogTable &table(int number) const
    {
        return m_tables[static_cast<std::size_t>(number)];
    }
    [[nodiscard]] Statement &statement(const QByteArray &sql);
    void expectOneRow(const ReplayConflict &row);

    Connection &m_connection;
    const std::vector<LogTable> &m_tables;
    ReplayDirection m_direction;
    SegmentReplay m_segments;
    /** Cells of one row, as one statement wrote them: one by one they might pass through a key that is taken.
     */
    ReplayConflict m_row;
    std::vector<Cell> m_cells;
    std::map<QByteArray, Statement> m_statements;
    std::set<ReplayConflict> m_conflicts;
};

} // namespace dao
