// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QGridLayout;
class QWidget;

namespace quaverly {

/**
 * Adds a line for each text field of a song that the screen's description has none for, below the others;
 * a short one stands beside the line before. The tab key comes to them behind @p before.
 */
void addLaterFields(QWidget &screen, QGridLayout &layout, QWidget *before);

} // namespace quaverly
