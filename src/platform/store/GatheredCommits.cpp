// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/GatheredCommits.h"

namespace dao {

namespace {

/** Pending rows are put on the disk at least so often. */
constexpr int CommitMilliseconds = 500;
constexpr qint64 CommitRows = 1000;

} // namespace

void GatheredCommits::start()
{
    m_on = true;
    m_sinceCommit.start();
}

bool GatheredCommits::mayWait(qint64 changes) const
{
    return m_on && m_sinceCommit.elapsed() < CommitMilliseconds && changes - m_changesAtCommit < CommitRows;
}

void GatheredCommits::committed(qint64 changes)
{
    m_changesAtCommit = changes;
    m_sinceCommit.start();
}

} // namespace dao
