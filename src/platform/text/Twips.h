// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace quaverly {

/** Catalogue, options and rich text keep lengths in twips, the screen's at 96 pixels an inch. */
inline constexpr int TwipsPerPixel = 15;
inline constexpr int TwipsPerInch = 1440;

} // namespace quaverly
