// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/Dao.h"
#include "platform/store/Schema.h"
#include "platform/store/Sqlite.h"

namespace dao {

/**
 * Copies what can be read of a damaged file into a new one that has the schema's tables but no
 * indexes yet, and builds the indexes. Rows that can't be what was stored are passed over.
 * @throws 3049 when nothing at all can be read.
 */
[[nodiscard]] QList<RepairedTable> salvage(const QString &damaged, Connection &target, const Schema &schema);

} // namespace dao
