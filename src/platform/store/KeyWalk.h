// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/DaoError.h"
#include "platform/store/RowSet.h"
#include "platform/store/Sqlite.h"

#include <QTimer>

#include <memory>
#include <optional>
#include <vector>

namespace dao {

/**
 * The keys of a statement's rows, of which the first ones are read and the rest is still to come. Until
 * then the statement stands in the middle and holds the moment of its start, whoever else writes.
 */
class KeyWalk final
{
public:
    /** Adds to @p keys, which outlives the walk. @p total is how many there will be. */
    KeyWalk(Statement rows, KeySet &keys, qint64 total);

    [[nodiscard]] qint64 total() const { return m_total; }
    /** Reads so many keys more, or up to the end; false when nothing is left to read. Throws nothing. */
    bool readOn(qint64 count);
    /** Reads all that is left. Throws nothing. */
    void finish();
    /** Lets go of the statement; what wasn't read is lost. */
    void abandon();
    /** @throws DaoError when a reading failed: the keys are not all there. */
    void assertWhole() const;

private:
    Statement m_rows;
    KeySet &m_keys;
    qint64 m_total;
    std::optional<DaoError> m_failure;
};

/** The walks of a connection that are not at their end. The event loop goes on with them when idle. */
class OpenWalks final
{
public:
    OpenWalks();
    ~OpenWalks();
    OpenWalks(const OpenWalks &) = delete;
    OpenWalks &operator=(const OpenWalks &) = delete;

    void add(const std::shared_ptr<KeyWalk> &walk);
    /** To be called before anything changes. */
    void finish();
    void abandon();

private:
    void goOn();

    std::vector<std::weak_ptr<KeyWalk>> m_walks;
    QTimer m_timer;
};

} // namespace dao
