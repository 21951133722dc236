// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "songlist/SongGridModel.h"

#include <QTableView>

#include <optional>

namespace quaverly {

/**
 * The main screen's grid: a window onto the displayed set, with its current row. Columns count from 0,
 * the mark column. A click is told before the row or column change that it causes.
 */
class SongGrid final : public QTableView
{
    Q_OBJECT

public:
    explicit SongGrid(QWidget *parent = nullptr);

    /** Binds the grid; @p control outlives it. Called once. */
    void setData(DataControl &control);
    /** Lets go of the displayed set, before it is closed. */
    void unbind();
    [[nodiscard]] SongGridModel &songs() { return *m_model; }

    /** Widths for what headings and usual songs need, in the present font. */
    void setDesignWidths();
    /** Height of a row in twips. */
    void setRowHeight(double twips);
    /** The current row's place among the visible rows, from 0. */
    [[nodiscard]] int Row() const;
    /** Rows that fit. */
    [[nodiscard]] int VisibleRows() const;
    /** Moves the view without moving the current row. */
    void Scroll(int columns, int rows);

    /** The current column, 0 for the marks; -1 without a current cell. */
    [[nodiscard]] int Col() const { return currentIndex().column(); }

    /** Cells can be typed into. */
    void setAllowUpdate(bool allow);
    [[nodiscard]] bool AllowUpdate() const;
    /** True while a cell is being typed into. */
    [[nodiscard]] bool CellEditing() const { return state() == EditingState; }
    /** Writes what is typed so far and ends the typing; false when the text was refused and stays open. */
    bool finishEditing();
    /** For who writes the cells: the text that is being committed can't be stored. */
    void refuseTyped();

    /** Width in twips, as the column file and its readers count. */
    [[nodiscard]] double columnTwips(int column) const;
    void setColumnTwips(int column, double twips);
    /** Width of a usual character in the present font; the columns follow it. */
    [[nodiscard]] double characterTwips() const;
    /** The current row's place on the screen, for a menu that no pointer opened. */
    [[nodiscard]] QPoint currentRowPlace() const;

    /** Shown in the middle while there are no rows. */
    void setEmptyState(QWidget *widget);

Q_SIGNALS:
    /** A button went down on a row. */
    void Click();
    /** @p lastCol is the column before; -1 when the row changed by no act in the grid. */
    void RowColChange(int lastCol);
    void HeadClick(int column);
    /** The user changed a width. */
    void ColResize();
    void DblClick();
    /** The right button went down; the row under it is the current one by now. */
    void RightButtonDown(QPoint globalPlace);
    /** The key for the menu was pressed on the current row. */
    void MenuKey(QPoint globalPlace);
    /** A key is going to be obeyed, unless a receiver accepts it. */
    void KeyDown(QKeyEvent *event);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyboardSearch(const QString &) override {}
    void resizeEvent(QResizeEvent *event) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void changeEvent(QEvent *event) override;
    void commitData(QWidget *editor) override;
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
    [[nodiscard]] QString typedText() const;
    [[nodiscard]] bool holdsRefusedText();
    void followRecordset();
    void model_Reset();
    void model_CurrentRowChanged();
    void tellRowColChange(int lastCol);
    void placeEmptyState();
    void tintRows();
    void header_ContextMenu(QPoint place);
    void followFont();

    DataControl *m_data = nullptr;
    SongGridModel *m_model = nullptr;
    QWidget *m_emptyState = nullptr;
    bool m_following = false;
    bool m_pressing = false;
    bool m_resizing = false;
    /** The current column, which outlives a change of the rows. */
    int m_col = 0;
    /** Column before the change that is being told; -1 when it came from elsewhere. */
    int m_lastCol = -1;
    std::optional<int> m_heldLastCol;
    bool m_tinting = false;
    double m_rowTwips = 0;
    double m_characterTwips = 0;
    bool m_committing = false;
    /** What stands in the open cell and could not be stored. */
    std::optional<QString> m_refused;
};

} // namespace quaverly
