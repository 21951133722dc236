// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/**
 * The user's own folders for Quaverly, each with a trailing separator and made when first asked for.
 * A folder that can't be made is named all the same: whoever writes into it meets the error.
 */
namespace quaverly::folders {

/** Options of the user on this machine. */
[[nodiscard]] QString config();
/** Where a catalogue lies unless the user chose another place. */
[[nodiscard]] QString data();
/** Reports of what the program did, such as a repair. */
[[nodiscard]] QString state();
/** What can be made anew at any time. */
[[nodiscard]] QString cache();
/** Lock and socket of the running program; nobody but the user may enter it. */
[[nodiscard]] QString runtime();

} // namespace quaverly::folders
