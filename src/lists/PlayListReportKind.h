// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace quaverly {

/** What a report on a play list shows of each track. */
enum class PlayListReportKind { Detail, DetailWithFileNames };

} // namespace quaverly
