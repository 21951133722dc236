// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "songlist/SongGridModel.h"

#include <QTableView>

namespace quaverly {

/** The main screen's grid: a window onto the displayed set, with its current row. */
class SongGrid final : public QTableView
{
    Q_OBJECT

public:
    explicit SongGrid(QWidget *parent = nullptr);

    /** Binds the grid; @p control outlives it. Called once. */
    void setData(DataControl &control);
    [[nodiscard]] SongGridModel &songs() { return *m_model; }

    /** Height of a row in twips. */
    void setRowHeight(double twips);
    /** The current row's place among the visible rows, from 0. */
    [[nodiscard]] int Row() const;
    /** Rows that fit. */
    [[nodiscard]] int VisibleRows() const;
    /** Moves the view without moving the current row. */
    void Scroll(int columns, int rows);

    /** Artist in front and Song Name behind it, or the other way round; widths go with their place. */
    void putArtistFirst(bool artist);

    /** Shown in the middle while there are no rows. */
    void setEmptyState(QWidget *widget);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void changeEvent(QEvent *event) override;

private:
    void followRecordset();
    void model_Reset();
    void placeEmptyState();
    void setDesignWidths();
    void tintRows();

    DataControl *m_data = nullptr;
    SongGridModel *m_model = nullptr;
    QWidget *m_emptyState = nullptr;
    bool m_following = false;
    bool m_tinting = false;
};

} // namespace quaverly
