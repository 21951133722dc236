// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/Dao.h"

#include <span>

namespace quaverly {

struct DuplicateQuery
{
    QLatin1StringView name;
    QLatin1StringView sql;
};

/** The eight stored queries on duplicate songs, in the order in which they are made. */
[[nodiscard]] std::span<const DuplicateQuery> duplicateQueries();

/** True for the four that the list can show: those are no place for sorting, filtering or marking. */
[[nodiscard]] bool isDuplicateViewName(const QString &recordSource);

/**
 * Makes the group by file size and the group by album, each if its first query is missing. A group
 * whose first query is there is taken to be whole. Store errors are passed over.
 */
void ensureDuplicateQueries(dao::Database &database);

} // namespace quaverly
