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
    /** Offers to restore the copy that was made before a change of that time. True when it will be. */
    std::function<bool(const QDateTime &made)> restoreBefore;
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
     * Takes back the changes from the newest to @p last, or makes them again. Where something stands in the
     * way of one, it shows that and asks whether to leave it out, or else stops. The list is shown anew.
     * @returns how many changes were gone along
     */
    int walk(const dao::Change &last, WalkDirection direction);

    /** Offers the copy of the catalogue that stands in for a change. True when it will be restored. */
    [[nodiscard]] bool restoreCopyFor(const dao::Change &change);

private:
    /** What is to be done about what stands in the way. */
    enum class Obstacles { Tell, OfferToLeaveOut };
    void step(WalkDirection direction);
    int walk(const dao::Change &last, WalkDirection direction, Obstacles obstacles);
    [[nodiscard]] std::optional<dao::Change> next(WalkDirection direction) const;
    [[nodiscard]] std::optional<QString> caption(WalkDirection direction) const;
    [[nodiscard]] bool go(const dao::Change &change, WalkDirection direction, Obstacles obstacles);
    [[nodiscard]] QStringList goWith(const dao::Change &change, WalkDirection direction,
                                     ChangeWalk::Conflicts conflicts);
    void showAnew(qint64 song);

    HistoryParts m_parts;
};

} // namespace quaverly
