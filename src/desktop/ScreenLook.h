// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QLabel;
class QSize;
class QWidget;

/** What the screens share so that they read as one program. */
namespace quaverly {

/** Sizes relative to the text of the screens. */
inline constexpr double HeadingScale = 1.3;
inline constexpr double CaptionScale = 0.9;
/** Of what a finger is to hit, in pixels. */
inline constexpr int FingerHeight = 44;

/** Shows a plain text, line ends kept, as wide as its longest line wants, up to LongestLine characters. */
void showText(QLabel &label, const QString &text);

/** The same with the breaks put in, for a label whose owner sizes itself to its lines. */
void showFolded(QLabel &label, const QString &text);

/** Makes a control's text @p factor times as large as that of its screen; the chosen font stays. */
void scaleFont(QWidget &control, double factor, bool bold = false);

/** Puts the buttons of the system's dialogs in this program's order, without pictures on them. */
void arrangeButtons(QWidget &dialog);

/** Fields and buttons of a screen tall enough for a finger. */
void sizeForFingers(QWidget &screen);

/** The largest that a screen may be within its window's frame, in pixels. */
[[nodiscard]] QSize roomFor(const QWidget &screen);

} // namespace quaverly
