// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace quaverly {

class OptionsStore;

/**
 * Puts a window where it was left, in twips of the options store, if @p remembered; else at its design
 * size in the middle of the screen. A place off the screen, or nonsense, counts as none.
 */
void restorePlace(QWidget &window, const OptionsStore &store, bool remembered);
/** @throws dao::DaoError 75 when the options can't be written. */
void savePlace(const QWidget &window, OptionsStore &store);

} // namespace quaverly
