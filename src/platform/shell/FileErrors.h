// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace shell {

/** Throws the dao::DaoError that stands for a system error on a file that is there, or should be. */
[[noreturn]] void throwFileError(int systemError, const QString &path);

/** The same for a file that is to be made: what is not found is its folder then. */
[[noreturn]] void throwTargetError(int systemError, const QString &path);

} // namespace shell
