// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>

namespace quaverly {

/** Black or white, whichever stands out more; 4.5 to 1 at least on any colour (WCAG 2 contrast). */
[[nodiscard]] QColor textColorOn(const QColor &back);

} // namespace quaverly
