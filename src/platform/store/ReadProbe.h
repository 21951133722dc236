// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <memory>
#include <optional>
#include <stop_token>

namespace dao {

class ProbeConnection;
struct RowSet;

/** The rows of a statement as a probe read them, for Database::OpenRecordset. */
class ReadRows final
{
public:
    explicit ReadRows(std::unique_ptr<RowSet> rows);
    ~ReadRows();
    ReadRows(ReadRows &&) noexcept;
    ReadRows &operator=(ReadRows &&) noexcept;

private:
    friend class Database;
    std::unique_ptr<RowSet> m_rows;
};

/**
 * Counts or reads what a statement would show, over a connection of its own that only reads.
 * Database::probe() makes it; count() and rows() may then run on one other thread. It sees what is committed
 * when the count begins, and the tables and stored queries that there were when it was made. The catalogue
 * may be closed first: that ends a count under way, and later ones give nothing.
 */
class ReadProbe final
{
public:
    explicit ReadProbe(std::shared_ptr<ProbeConnection> connection);
    ~ReadProbe();
    ReadProbe(const ReadProbe &) = delete;
    ReadProbe &operator=(const ReadProbe &) = delete;

    /**
     * Number of rows of a SELECT; its order is looked at, but nothing is sorted. Nothing once @p stop
     * is requested, which any thread may do, or after the catalogue's closing.
     * @throws as Database::OpenRecordset does.
     */
    [[nodiscard]] std::optional<qint64> count(const QString &select, const std::stop_token &stop);

    /** All rows of a SELECT, in their order. Nothing as for count(). @throws as Database::OpenRecordset does.
     */
    [[nodiscard]] std::optional<ReadRows> rows(const QString &select, const std::stop_token &stop);

    /** Reads a condition, looking up no names. @throws 3075 with the place in it, 3360. */
    static void checkSyntax(const QString &condition);
    /**
     * A field that is compared with nothing is true of most songs, and never what somebody meant. Looks up no
     * names. @throws 3075 with the field in it, and as checkSyntax does.
     */
    static void checkComparisons(const QString &condition);

private:
    std::shared_ptr<ProbeConnection> m_connection;
};

} // namespace dao
