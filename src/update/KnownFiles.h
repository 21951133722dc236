// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "update/DiskCompare.h"

#include <vector>

namespace dao {
class Database;
}

namespace quaverly {

/** Reads which files the catalogue names, and what is known of them, a portion at a time. */
class KnownFiles final
{
public:
    /** @p database outlives this object. */
    explicit KnownFiles(dao::Database &database);

    /** False when there is nothing left to read. @throws dao::DaoError */
    [[nodiscard]] bool readMore();
    [[nodiscard]] std::vector<KnownFile> take() { return std::move(m_files); }

private:
    dao::Database &m_database;
    qint64 m_next = 1;
    qint64 m_last = 0;
    std::vector<KnownFile> m_files;
};

} // namespace quaverly
