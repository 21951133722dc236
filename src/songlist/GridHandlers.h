// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include <functional>

class QKeyEvent;

namespace quaverly {

class ColumnMoves;
class Desktop;
class DisplayedSet;
class SongGrid;

/** What the grid's handlers ask of the screen around it. */
struct GridActions
{
    std::function<void()> focusLocate;
    std::function<void()> cmdEdit_Click;
    /** Shows the description and the artist button of the current row. */
    std::function<void()> showCurrentSong;
    std::function<void(QPoint globalPlace)> showPopup;
};

/** Marks, keys, the pop-up menu and typing in the grid. */
class GridHandlers final : public QObject
{
    Q_OBJECT

public:
    /** All references outlive the handlers. */
    GridHandlers(SongGrid &grid, DisplayedSet &set, Desktop &desktop, ColumnMoves &columns,
                 GridActions actions);

    /** Any other command: the next change on the mark column marks nothing. */
    void clearGridMarkArmed() { m_gridMarkArmed = false; }
    /** Also for the fields that forward their keys. Accepts the event when the grid is not to see it. */
    void Table1_KeyDown(QKeyEvent *event);

private:
    void wire();
    void Table1_Click();
    void Table1_RowColChange(int lastCol);
    void Table1_RightButtonDown(QPoint globalPlace);
    void Table1_MenuKey(QPoint globalPlace);
    void Table1_DblClick();
    void Table1_CellTyped(int row, const QString &field, const QString &text);
    [[nodiscard]] bool forwardToLocate(const QKeyEvent &event);

    SongGrid &m_grid;
    DisplayedSet &m_set;
    Desktop &m_desktop;
    ColumnMoves &m_columns;
    GridActions m_actions;
    /** True until the first click: that one is not taken for a step off the mark column. */
    bool m_gridNeverClicked = true;
    bool m_gridMarkArmed = false;
    bool m_rightClickPending = false;
};

} // namespace quaverly
