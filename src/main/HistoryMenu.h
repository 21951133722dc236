// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QAction;
class QMenu;

namespace quaverly {

class HistoryCommands;

/**
 * Has the entries Undo and Redo say what they would take back or make again whenever their menu opens; all go
 * with @p menu, and @p history outlives it.
 */
void captionHistory(QMenu &menu, QAction &undo, QAction &redo, const HistoryCommands &history);

} // namespace quaverly
