// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quaverly {

inline constexpr char16_t PlayListHelpHeading[] = u"Using Play Lists";

/** Paragraphs with blank lines between them. */
[[nodiscard]] QString playListHelp();

} // namespace quaverly
