// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quaverly {

/**
 * Shows all screens, the open ones too, in the font of that name. Their sizes stay, and so does the
 * font of a control that has one of its own. A name that no font bears gives the nearest one.
 */
void applyScreenFont(const QString &name);

} // namespace quaverly
