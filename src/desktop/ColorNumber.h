// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>

namespace quaverly {

/** A colour from its number: red, green and blue from the lowest byte up. */
[[nodiscard]] inline QColor colorOf(quint32 number)
{
    const auto part = [number](int shift) { return static_cast<int>(number >> shift & 0xFF); };
    return {part(0), part(8), part(16)};
}

[[nodiscard]] inline quint32 colorNumber(const QColor &color)
{
    return static_cast<quint32>(color.red() | color.green() << 8 | color.blue() << 16);
}

} // namespace quaverly
