// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/RowSet.h"
#include "platform/store/Scope.h"
#include "platform/store/Sqlite.h"

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>

namespace dao {

/** A probe's connection. The probe counts with it on its own thread, the catalogue ends it on the other. */
class ProbeConnection final
{
public:
    ProbeConnection(std::unique_ptr<Connection> connection, LoadedNames names);

    /** Nothing when it was stopped, or closed. */
    [[nodiscard]] std::optional<qint64> count(const QString &select, const std::stop_token &stop);
    [[nodiscard]] std::optional<RowSet> rows(const QString &select, const std::stop_token &stop);
    /** Ends a count that is under way and lets go of the file. */
    void close();

private:
    /** Runs @p work on the connection until a stop is requested. */
    template <typename Result>
    [[nodiscard]] std::optional<Result> stoppable(const std::stop_token &stop,
                                                  const std::function<Result(Connection &)> &work);

    std::mutex m_mutex;
    std::atomic<bool> m_closing = false;
    std::unique_ptr<Connection> m_connection;
    const LoadedNames m_names;
};

} // namespace dao
