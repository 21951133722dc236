// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/LetterPlacement.h"

#include "ui_NameList.h"

namespace quaverly {

int LetterPlacement::neededBeside() const
{
    const int gap = m_ui.sortLayout->horizontalSpacing();
    int needed = m_ui.FrameAlpha->minimumSizeHint().width() + gap;
    for (const QWidget *control : std::initializer_list<QWidget *>{
             m_ui.lblSort, m_ui.cmbSort, m_ui.cmdSortSong, m_ui.cmdSortArtist, m_ui.lblLocate})
        needed += control->sizeHint().width() + gap;
    return needed + m_ui.txtLocate->minimumWidth();
}

void LetterPlacement::place(int width)
{
    QGridLayout &row = *m_ui.sortLayout;
    const QMargins margins = m_ui.stripLayout->contentsMargins();
    const bool beside = neededBeside() <= width - margins.left() - margins.right();
    int line = 0;
    int column = 0;
    int lines = 0;
    int columns = 0;
    row.getItemPosition(row.indexOf(m_ui.FrameAlpha), &line, &column, &lines, &columns);
    if (beside == (line == 0))
        return;
    row.removeWidget(m_ui.FrameAlpha);
    if (beside)
        row.addWidget(m_ui.FrameAlpha, 0, row.columnCount());
    else
        row.addWidget(m_ui.FrameAlpha, 1, 0, 1, row.columnCount());
}

} // namespace quaverly
