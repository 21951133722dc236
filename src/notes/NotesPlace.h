// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace quaverly {

class OptionsStore;
struct Options;

/** Puts the screen of a song's notes where it was left, while window sizes are remembered. */
void restoreNotesPlace(QWidget &screen, const OptionsStore &store, const Options &options);
/** @throws dao::DaoError 75 when the options can't be written. */
void saveNotesPlace(const QWidget &screen, OptionsStore &store, const Options &options);

} // namespace quaverly
