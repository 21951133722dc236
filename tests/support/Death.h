// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

namespace quaverly::test {

/**
 * Runs @p act in a child that is killed as it sets out to change the disk for the @p nth time, from 1;
 * false when it came to its end before. @p prepare runs in the child too, and is not killed.
 */
[[nodiscard]] bool diesAt(int nth, const std::function<void()> &prepare, const std::function<void()> &act);

} // namespace quaverly::test
