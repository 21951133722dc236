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

SelectPlan planOf(const QString &select, const NameCatalogue &names)
{
    const ast::Statement statement = parseStatement(select);
    if (statement.kind != ast::Statement::Kind::Select)
        throw DaoError(InvalidOperation, u"Invalid operation: only a query that selects rows can be read."_s);
    return planSelect(*statement.select, names);
}

QByteArray countStatement(const SelectPlan &plan)
{
    const QByteArray columns = plan.readColumns(plan.isKeyed() ? QList<int>() : plan.computedOutputs());
    return "SELECT count(*) FROM (" + plan.sql(columns, {}, false) + ')';
}

/** Throws at the first name that stands where something true or false is wanted. */
void requireComparison(const ast::Expr &condition)
{
    switch (condition.kind) {
    case ast::ExprKind::AndOr:
    case ast::ExprKind::Not:
        for (const ast::ExprPtr &term : condition.args)
            requireComparison(*term);
        return;
    case ast::ExprKind::Name:
        throw DaoError(
            SyntaxError,
            u"Syntax error (missing comparison) in query expression at character %1, behind '%2'."_s
                .arg(condition.position + 1)
                .arg(condition.text));
    default:
        return;
    }
}

} // namespace

ProbeConnection::ProbeConnection(std::unique_ptr<Connection> connection, LoadedNames names)
    : m_connection(std::move(connection)), m_names(std::move(names))
{
    // Waiting for a lock could not be ended.
    sqlite3_busy_timeout(m_connection->handle(), 0);
}

template <typename Result>
std::optional<Result> ProbeConnection::stoppable(const std::stop_token &stop,
                                                 const std::function<Result(Connection &)> &work)
{
    const std::scoped_lock lock(m_mutex);
    Stops stops{stop, m_closing};
    if (stops.requested())
        return std::nullopt;
    const Stoppable stoppable(m_connection->handle(), stops);
    try {
        return work(*m_connection);
    } catch (const DaoError &) {
        if (stops.requested())
            return std::nullopt;
        throw;
    }
}

std::optional<qint64> ProbeConnection::count(const QString &select, const std::stop_token &stop)
{
    return stoppable<qint64>(stop, [&](Connection &connection) {
        return connection.scalar(countStatement(planOf(select, m_names))).toLongLong();
    });
}

std::optional<RowSet> ProbeConnection::rows(const QString &select, const std::stop_token &stop)
{
    return stoppable<RowSet>(stop, [&](Connection &connection) {
        const SelectPlan plan = planOf(select, m_names);
        const QList<int> held = plan.computedOutputs();
        RowSet read;
        read.held.resize(static_cast<std::size_t>(held.size()));
        Statement row = connection.prepare(plan.sql(plan.readColumns(held)));
        while (row.step())
            read.append(row, plan.isKeyed());
        return read;
    });
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

std::optional<ReadRows> ReadProbe::rows(const QString &select, const std::stop_token &stop)
{
    auto read = m_connection->rows(select, stop);
    if (!read)
        return std::nullopt;
    return ReadRows(std::make_unique<RowSet>(std::move(*read)));
}

void ReadProbe::checkSyntax(const QString &condition)
{
    static_cast<void>(parseCriteria(condition));
}

void ReadProbe::checkComparisons(const QString &condition)
{
    requireComparison(*parseCriteria(condition));
}

ReadRows::ReadRows(std::unique_ptr<RowSet> rows) : m_rows(std::move(rows))
{}

ReadRows::~ReadRows() = default;
ReadRows::ReadRows(ReadRows &&) noexcept = default;
ReadRows &ReadRows::operator=(ReadRows &&) noexcept = default;

} // namespace dao
