// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/ReadProbe.h"

#include "platform/store/DaoError.h"
#include "platform/store/Parser.h"
#include "platform/store/ProbeConnection.h"
#include "platform/store/SelectPlan.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace dao {

namespace {

/** Steps of SQLite's machine, a fraction of a millisecond. */
constexpr int StepsBetweenLooks = 1000;

struct Stops
{
    const std::stop_token &stop;
    const std::atomic<bool> &closing;
    [[nodiscard]] bool requested() const { return stop.stop_requested() || closing; }
};

/** Lets a statement be ended from another thread, for the length of a scope. */
class Stoppable final
{
public:
    Stoppable(sqlite3 *db, Stops &stops) : m_db(db)
    {
        // A call that interrupts at once would miss a statement that is only about to run.
        sqlite3_progress_handler(m_db, StepsBetweenLooks, &Stoppable::look, &stops);
    }
    ~Stoppable() { sqlite3_progress_handler(m_db, 0, nullptr, nullptr); }
    Stoppable(const Stoppable &) = delete;
    Stoppable &operator=(const Stoppable &) = delete;

private:
    static int look(void *stops) { return static_cast<const Stops *>(stops)->requested() ? 1 : 0; }

    sqlite3 *m_db;
};

QByteArray countStatement(const QString &select, const NameCatalogue &names)
{
    const ast::Statement statement = parseStatement(select);
    if (statement.kind != ast::Statement::Kind::Select)
        throw DaoError(InvalidOperation, u"Invalid operation: only a query that selects rows has a count."_s);
    const SelectPlan plan = planSelect(*statement.select, names);
    QByteArray columns = plan.key;
    if (!plan.isKeyed()) {
        for (const Output &output : plan.outputs)
            columns += (columns.isEmpty() ? "" : ", ") + output.sql;
    }
    return "SELECT count(*) FROM (" + plan.sql(columns, {}, false) + ')';
}

} // namespace

ProbeConnection::ProbeConnection(std::unique_ptr<Connection> connection, LoadedNames names)
    : m_connection(std::move(connection)), m_names(std::move(names))
{
    // Waiting for a lock could not be ended.
    sqlite3_busy_timeout(m_connection->handle(), 0);
}

std::optional<qint64> ProbeConnection::count(const QString &select, const std::stop_token &stop)
{
    const std::scoped_lock lock(m_mutex);
    Stops stops{stop, m_closing};
    if (stops.requested())
        return std::nullopt;
    const QByteArray sql = countStatement(select, m_names);
    const Stoppable stoppable(m_connection->handle(), stops);
    try {
        return m_connection->scalar(sql).toLongLong();
    } catch (const DaoError &) {
        if (stops.requested())
            return std::nullopt;
        throw;
    }
}

void ProbeConnection::close()
{
    m_closing = true;
    const std::scoped_lock lock(m_mutex);
    m_connection.reset();
}

ReadProbe::ReadProbe(std::shared_ptr<ProbeConnection> connection) : m_connection(std::move(connection))
{}

ReadProbe::~ReadProbe() = default;

std::optional<qint64> ReadProbe::count(const QString &select, const std::stop_token &stop)
{
    return m_connection->count(select, stop);
}

void ReadProbe::checkSyntax(const QString &condition)
{
    static_cast<void>(parseCriteria(condition));
}

} // namespace dao
