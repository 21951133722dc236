// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/FileStamp.h"

#include <sys/stat.h>

namespace shell {

[[nodiscard]] FileStamp stampFrom(const struct stat &about);

} // namespace shell
