// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/Schema.h"
#include "platform/store/Sqlite.h"

namespace dao {

/**
 * Copies what can be read of a damaged file into a new one that has the schema's tables but no
 * indexes yet, and builds the indexes. Returns what was saved, a line a table.
 * @throws 3049 when nothing at all can be read.
 */
[[nodiscard]] QString salvage(const QString &damaged, Connection &target, const Schema &schema);

} // namespace dao
