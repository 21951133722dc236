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
 * transaction. Rows that are not as they were left stay as they are and are told; one that is already as it
 * is to become is no matter. Files are not its business.
 */
class ChangeReplay final
{
public:
    ChangeReplay(Connection &connection, const Schema &schema, const std::vector<LogTable> &tables,
                 ReplayDirection direction);

    /** These stay as they are, whatever the change did to them. */
    void leaveAlone(std::set<ReplayConflict> rows) { m_leftAlone = std::move(rows); }

    /** The rows that stand in the way, each once. */
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
    [[nodiscard]] bool touchesLeftAlone(const LogSegment &segment) const;
    [[nodiscard]] bool isAsWanted();
    [[nodiscard]] QByteArray isOf(const ReplayConflict &row) const;
    void expectOneRow(const ReplayConflict &row, const QByteArray &orElse, qint64 seq);

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
    std::set<ReplayConflict> m_leftAlone;
};

} // namespace dao
