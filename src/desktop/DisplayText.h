// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quaverly {

/** Texts on a dialog are no wider than this many characters. */
inline constexpr int LongestLine = 72;

/**
 * A text as a label shows it: every kind of line end is one line break, and a word longer than a
 * line (a path) gets invisible places where it may be broken.
 */
[[nodiscard]] QString displayText(const QString &text);

} // namespace quaverly
