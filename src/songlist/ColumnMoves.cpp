// SPDX-License-Identifier: GPL-3.0-or-later
#include "songlist/ColumnMoves.h"

#include "desktop/Desktop.h"
#include "songlist/ColumnFile.h"
#include "songlist/SongGrid.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** Marks, song and artist stay where they are. */
constexpr int LastFixedColumn = 2;

/** A change is on the disk this much later, so that a crash does not lose it. */
constexpr int SaveSoonMilliseconds = 1000;

} // namespace

ColumnMoves::ColumnMoves(SongGrid &grid, Desktop &desktop) : m_grid(grid), m_desktop(desktop)
{
    connect(&m_grid, &SongGrid::HeadClick, this, &ColumnMoves::Table1_HeadClick);
    connect(&m_grid, &SongGrid::ColResize, this, &ColumnMoves::columnsChanged);
    m_saveSoon.setSingleShot(true);
    m_saveSoon.setInterval(SaveSoonMilliseconds);
    connect(&m_saveSoon, &QTimer::timeout, this, [this] {
        try {
            save();
        } catch (const dao::DaoError &) {
            // Told at the end of the run, when it is tried again.
        }
    });
}

void ColumnMoves::load(const QString &folder)
{
    m_path = folder + QString::fromUtf16(ColumnFileName);
    int index = 1;
    const ColumnLayout layout = readColumnFile(m_path);
    const double scale = layout.character > 0 ? m_grid.characterTwips() / layout.character : 1;
    for (const ColumnLine &line : layout.columns) {
        if (index >= m_grid.songs().columnCount())
            break;
        m_grid.songs().setColumn(index, {line.caption, line.dataField, line.alignment});
        m_grid.setColumnTwips(index, line.width * scale);
        ++index;
    }
    // A file of before: it learns what its widths were meant for.
    if (index > 1 && layout.character == 0)
        columnsChanged();
}

void ColumnMoves::save()
{
    m_saveSoon.stop();
    if (!m_columnsChanged)
        return;
    ColumnLayout layout{{}, m_grid.characterTwips()};
    for (int i = 1; i < m_grid.songs().columnCount(); ++i) {
        const GridColumn &column = m_grid.songs().column(i);
        layout.columns.append({column.caption, column.dataField, m_grid.columnTwips(i), column.alignment});
    }
    writeColumnFile(m_path, layout);
}

void ColumnMoves::columnsChanged()
{
    m_columnsChanged = true;
    m_saveSoon.start();
}

void ColumnMoves::putArtistFirst(bool artist)
{
    // The test is on the column that the artist comes from.
    if (m_grid.songs().column(artist ? 2 : 1).dataField != "Artist"_L1)
        return;
    const double first = m_grid.columnTwips(1);
    const double second = m_grid.columnTwips(2);
    const GridColumn artistColumn{u"Artist/Performer"_s, u"Artist"_s};
    const GridColumn songColumn{u"Song Name"_s, u"SongName"_s};
    m_grid.songs().setColumn(1, artist ? artistColumn : songColumn);
    m_grid.songs().setColumn(2, artist ? songColumn : artistColumn);
    m_grid.setColumnTwips(1, second);
    m_grid.setColumnTwips(2, first);
    columnsChanged();
}

void ColumnMoves::Table1_HeadClick(int index)
{
    if (m_columnMoveSource != 0)
        endMove(index);
    else if (index > LastFixedColumn)
        startMove(index);
}

void ColumnMoves::startMove(int index)
{
    m_columnMoveSource = index;
    const QString text = u"The next column heading you click will cause the "_s +
                         m_grid.songs().column(index).caption +
                         u" column to move beside that column. You cannot move to the 3 left-most columns."_s;
    if (m_desktop.MessageBox(text, u"Column move started"_s, Icon::Information, Buttons::OkCancel) !=
        Answer::Ok)
        m_columnMoveSource = 0;
}

// A target among the first three abandons the move, which counts as a change all the same.
void ColumnMoves::endMove(int index)
{
    const int source = std::exchange(m_columnMoveSource, 0);
    if (index > LastFixedColumn) {
        QList<double> widths;
        for (int i = 0; i < m_grid.songs().columnCount(); ++i)
            widths.append(m_grid.columnTwips(i));
        widths.move(source, index);
        m_grid.songs().moveColumn(source, index);
        for (int i = std::min(source, index); i <= std::max(source, index); ++i)
            m_grid.setColumnTwips(i, widths.at(i));
    }
    columnsChanged();
}

} // namespace quaverly
