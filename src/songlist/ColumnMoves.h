// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>

namespace quaverly {

class Desktop;
class SongGrid;

/** The grid's column layout: two clicks on headings move a column, and a file keeps it between runs. */
class ColumnMoves final : public QObject
{
    Q_OBJECT

public:
    /** Both references outlive the object. */
    ColumnMoves(SongGrid &grid, Desktop &desktop);

    /** Takes the layout of the file in @p folder; whatever can't be read of it stays as designed. */
    void load(const QString &folder);
    /** Writes the file if width, order or the principal columns changed in this run. @throws dao::DaoError.
     */
    void save();

    /** Artist in column 1 and Song Name behind it, or the other way round; widths stay with the field. */
    void putArtistFirst(bool artist);
    /** Ends a move that waits for its second click. */
    void cancel() { m_columnMoveSource = 0; }

private:
    void Table1_HeadClick(int index);
    void startMove(int index);
    void endMove(int index);
    void columnsChanged();

    SongGrid &m_grid;
    Desktop &m_desktop;
    QString m_path;
    bool m_columnsChanged = false;
    /** The column being moved; 0 when no move is under way. */
    int m_columnMoveSource = 0;
    QTimer m_saveSoon;
};

} // namespace quaverly
