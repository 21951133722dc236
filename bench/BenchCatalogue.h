// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace bench {

/** A catalogue of that many songs, made once and kept; its full path. */
[[nodiscard]] QString catalogueOf(int songs);

} // namespace bench
