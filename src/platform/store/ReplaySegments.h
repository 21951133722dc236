// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/ChangeLog.h"

#include <vector>

namespace dao {

enum class ReplayDirection { Back, Again };

/**
 * A stretch of the log with rows of one table and one kind, whose keys only rise: what one statement over
 * many rows leaves. No row and no column of a row stands in it twice.
 */
struct LogSegment
{
    qint64 first = 0;
    qint64 last = 0;
    int table = 0;
    /** The mark of whole rows; 0 for columns that changed. */
    int mark = 0;
    /** Places of the columns that changed. */
    std::vector<int> columns;

    [[nodiscard]] qint64 size() const { return last - first + 1; }
};

/** The whole stretch cut up, in its order. */
[[nodiscard]] std::vector<LogSegment> segmentsOf(Connection &connection, qint64 first, qint64 last);

/** Replays large segments with a statement or two each, where every row is as it should be. */
class SegmentReplay final
{
public:
    SegmentReplay(Connection &connection, const Schema &schema, const std::vector<LogTable> &tables,
                  ReplayDirection direction);

    /** False when nothing was done, since a row stands in the way: then each has to be looked at. */
    [[nodiscard]] bool apply(const LogSegment &segment);

private:
    [[nodiscard]] bool writeColumns(const LogSegment &segment);
    [[nodiscard]] bool deleteRows(const LogSegment &segment);
    [[nodiscard]] bool insertRows(const LogSegment &segment);
    [[nodiscard]] bool isInUniqueKey(const LogTable &table, const QString &column) const;
    [[nodiscard]] QList<QString> plainIndexesOf(const LogTable &table) const;
    [[nodiscard]] qint64 count(const QByteArray &from);
    [[nodiscard]] const LogTable &tableOf(const LogSegment &segment) const
    {
        return m_tables[static_cast<std::size_t>(segment.table)];
    }

    Connection &m_connection;
    const Schema &m_schema;
    const std::vector<LogTable> &m_tables;
    ReplayDirection m_direction;
};

} // namespace dao
