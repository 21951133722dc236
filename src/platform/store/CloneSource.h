// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace dao {

/**
 * A database's file, to be copied by sharing its blocks where the file system can. It has to stay open as
 * long as the database is: closing a handle takes away all locks that the process has on the file.
 */
class CloneSource final
{
public:
    explicit CloneSource(const QString &path);
    ~CloneSource();
    CloneSource(const CloneSource &) = delete;
    CloneSource &operator=(const CloneSource &) = delete;

    /** Writes over @p target. False where it can't be done; nothing is left there then. */
    [[nodiscard]] bool cloneTo(const QString &target) const;

private:
    int m_handle;
};

} // namespace dao
