// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/DatabaseImpl.h"

namespace quaverly::test {

/**
 * Translates one input over the catalogue's names and lets SQLite prepare the result, without running
 * it. The first byte chooses: S a statement, A an action, anything else criteria. Nothing comes back
 * when that is as it should be, else what is wrong: only errors that name the writer's fault are allowed.
 */
[[nodiscard]] QString faultOfTranslating(QByteArrayView input, dao::DatabaseImpl &catalogue);

} // namespace quaverly::test
