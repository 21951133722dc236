// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <memory>
#include <optional>
#include <stop_token>

namespace dao {

class ProbeConnection;

/**
 * Counts what a statement would show, over a connection of its own that only reads. Database::probe()
 * makes it; count() may then run on one other thread. It sees what is committed when the count
 * begins, and the tables and stored queries that there were when it was made. The catalogue may be
 * closed first: that ends a count under way, and later ones give nothing.
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

    /** Reads a condition, looking up no names. @throws 3075 with the place in it, 3360. */
    static void checkSyntax(const QString &condition);

private:
    std::shared_ptr<ProbeConnection> m_connection;
};

} // namespace dao
