// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quaverly {

/** Where a file or folder dialog starts that nothing says more about: the user's folder for music, or home.
 */
[[nodiscard]] QString musicFolder();

} // namespace quaverly
