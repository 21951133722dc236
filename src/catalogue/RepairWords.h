// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/Dao.h"

namespace quaverly {

/** What the user is told after a repair: what was saved and lost, and where the damaged file is. */
[[nodiscard]] QString repairWords(const dao::RepairReport &report);

} // namespace quaverly
