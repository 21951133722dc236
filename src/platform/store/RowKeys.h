// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <utility>
#include <vector>

namespace dao {

class Database;
class Recordset;

/** The table and its one field, as statements name them. */
inline constexpr char16_t RowKeyTable[] = u"tmpRowKeys";
inline constexpr char16_t RowKeyField[] = u"RowKey";

/** Keys of the rows of a recordset, ascending, each once. @throws DaoError */
[[nodiscard]] std::vector<qint64> keysOf(Recordset &rows);

/**
 * Keys of rows as a table of their own, so that one statement can act on the rows that
 * are shown, whatever would be found by now. It belongs to this connection alone, is no part of the file,
 * and is emptied at the end of this object: one at a time.
 */
class RowKeys final
{
public:
    /** @throws DaoError 3027, 61. */
    RowKeys(Database &database, std::vector<qint64> keys);
    /** Of rows that stand for rows of a table, as those of the displayed set do. @throws DaoError 3027, 61.
     */
    RowKeys(Database &database, Recordset &rows);
    ~RowKeys();
    RowKeys(const RowKeys &) = delete;
    RowKeys &operator=(const RowKeys &) = delete;

    /** Without those that stand twice. */
    [[nodiscard]] qsizetype count() const { return static_cast<qsizetype>(m_keys.size()); }
    /** The lowest and the highest key of each portion of at most @p rows. */
    [[nodiscard]] std::vector<std::pair<qint64, qint64>> portions(qsizetype rows) const;

private:
    Database &m_database;
    std::vector<qint64> m_keys;
};

} // namespace dao
