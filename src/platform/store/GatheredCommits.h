// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>

namespace dao {

/** When the many small transactions of a bulk load are put on the disk: some time or some rows apart. */
class GatheredCommits final
{
public:
    void start();
    void stop() { m_on = false; }
    [[nodiscard]] bool isOn() const { return m_on; }
    /** True while what is pending need not be put on the disk yet. @p changes is the connection's count. */
    [[nodiscard]] bool mayWait(qint64 changes) const;
    void committed(qint64 changes);

private:
    bool m_on = false;
    qint64 m_changesAtCommit = 0;
    QElapsedTimer m_sinceCommit;
};

} // namespace dao
