// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quaverly {

inline constexpr int MostLinesPerPage = 32000;

/** Why a number of lines can't be taken; empty for a good one. Fractions are good, and end no page. */
[[nodiscard]] QString refusalOfLinesPerPage(const QString &answer);

/** The value of a number as a person writes it, group separators and all; 0 for no number. */
[[nodiscard]] double linesOf(const QString &text);

} // namespace quaverly
