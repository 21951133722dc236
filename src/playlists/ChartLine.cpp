// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlists/ChartLine.h"

namespace quaverly {

namespace {

QString bareName(QString piece)
{
    return piece.remove(u'"').trimmed();
}

} // namespace

std::optional<ChartLine> splitChartLine(const QString &line)
{
    // Meant for a number, but any word in front of a period goes.
    const qsizetype start = line.indexOf(u'.') + 1;
    const qsizetype comma = line.indexOf(u',', start);
    if (comma < 0)
        return std::nullopt;
    const qsizetype bracket = line.indexOf(u'(');
    // A bracket in front of the comma leaves nothing behind it, and such a line finds no song.
    const QString text = bracket < 0 ? line : line.first(bracket);
    return ChartLine{bareName(text.mid(start, comma - start)), bareName(text.mid(comma + 1))};
}

} // namespace quaverly
