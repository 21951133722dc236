// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Services.h"
#include "history/ChangeWalk.h"

#include <functional>
#include <vector>

namespace quaverly {

class DisplayedSet;

/** What the commands on the history need. */
struct HistoryParts
{
    Services services;
    DisplayedSet &set;
    /** Tells in a line of the main screen what was done. */
    std::function<void(const QString &)> tell;
    std::function<void()> showHistory;
};

/** Undo, redo and the history of the open catalogue. */
class HistoryCommands final
{
public:
    explicit HistoryCommands(HistoryParts parts) : m_parts(std::move(parts)) {}

    void mnuUndo_Click();
    void mnuRedo_Click();
    void mnuHistory_Click();

    /** "Undo" with what it would take back, for a menu; nothing when there is nothing to be taken back. */
    [[nodiscard]] std::optional<QString> undoCaption() const;
    [[nodiscard]] std::optional<QString> redoCaption() const;

    /**
     * Takes back the changes from the newest to @p last, or makes them again. Stops at the first that can't
     * be, and asks whether to leave out what stands in its way. The list is shown anew.
     * @returns how many changes were gone along
     */
    int walk(const dao::Change &last, WalkDirection direction);

private:
    void step(WalkDirection direction);
    [[nodiscard]] std::optional<dao::Change> next(WalkDirection direction) const;
    [[nodiscard]] std::optional<QString> caption(WalkDirection direction) const;
    [[nodiscard]] bool go(const dao::Change &change, WalkDirection direction);
    void showAnew(qint64 song);

    HistoryParts m_parts;
};

} // namespace quaverly
