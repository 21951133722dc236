// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

namespace quaverly {

/** The two names on a line, song and artist or artist and song. */
struct ChartLine
{
    QString Piece1;
    QString Piece2;

    bool operator==(const ChartLine &) const = default;
};

/**
 * Takes a line apart at the first comma behind its first period; what stands before the period is no part of
 * it, nor is what follows the line's first "(". Nothing without such a comma.
 */
[[nodiscard]] std::optional<ChartLine> splitChartLine(const QString &line);

} // namespace quaverly
