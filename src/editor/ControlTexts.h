// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QString;
class QWidget;

namespace quaverly {

/** The text of a field of whichever kind: one line, several, or a box with a list. */
[[nodiscard]] QString controlText(const QWidget &control);

/** A null text leaves a box without a choice. */
void setControlText(QWidget &control, const QString &text);

} // namespace quaverly
