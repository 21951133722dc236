// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/media/Engine.h"

#include <QString>

/** What the user is told when something can't be played. */
namespace media::sentences {

/** Why @p path need not be given to the engine at all; empty when it is a file to try. */
[[nodiscard]] QString refusal(const QString &path);
[[nodiscard]] QString failure(Failure failure, const QString &path);
[[nodiscard]] QString emptyList(const QString &path);
/** Every item that was left to try was passed over. */
[[nodiscard]] QString nothingLeft();

} // namespace media::sentences
