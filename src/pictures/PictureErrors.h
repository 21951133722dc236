// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/DaoError.h"

namespace quaverly {

inline constexpr int InvalidCall = 5;

[[nodiscard]] inline dao::DaoError invalidCall(const QString &text)
{
    return {InvalidCall, text};
}

[[nodiscard]] inline dao::DaoError accessError(const QString &path)
{
    return {dao::PathFileAccess, QStringLiteral("Path/File access error: %1").arg(path)};
}

} // namespace quaverly
