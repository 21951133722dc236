// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>

class QWidget;

namespace quaverly {

/**
 * The icon @p name of the program's own set, which is the files' names in icons/ without their ending.
 *
 * It is drawn when it is painted, sharp at any size, in the text colour that the application's palette has
 * at that moment. An unknown name gives a null icon.
 */
[[nodiscard]] QIcon icon(const QString &name);

/** The same in the text colour of @p control, for one that stands on a background of its own. */
[[nodiscard]] QIcon icon(const QString &name, const QWidget &control);

/** The program's own picture, for its windows. */
[[nodiscard]] QIcon programIcon();

} // namespace quaverly
