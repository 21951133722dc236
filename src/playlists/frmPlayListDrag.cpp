// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlists/frmPlayList.h"

#include "desktop/Guard.h"
#include "playlists/TrackListModel.h"
#include "ui_frmPlayList.h"

#include <QCoreApplication>

#include <utility>

namespace quaverly {

void frmPlayList::wireDrag()
{
    const auto on = [this](auto signal, auto handler) { connect(m_ui->lbDetail, signal, this, handler); };
    on(&TrackListView::rowChosen, &frmPlayList::lbDetail_Click);
    on(&TrackListView::doubleClicked, &frmPlayList::mnuEditEditSong_Click);
    on(&TrackListView::deletePressed, [this] {
        if (m_ui->mnuEditDeleteSong->isEnabled())
            mnuEditDeleteSong_Click();
    });
    on(&TrackListView::customContextMenuRequested, &frmPlayList::lbDetail_MouseUp);
    on(&TrackListView::beginDrag, &frmPlayList::lbDetail_BeginDrag);
    on(&TrackListView::dropped, &frmPlayList::lbDetail_Dropped);
    m_ui->lbDetail->setDragEnabled(hasDragSupport(QCoreApplication::applicationDirPath()));
}

void frmPlayList::lbDetail_Click(int row)
{
    const TrackRows &rows = m_tracks.rows();
    if (!rows.text(row).isEmpty()) {
        follow(stateAfter(PlayListEvent::SongChosen));
        m_run.setStopOneSongRun(false);
    } else if (row == rows.ListCount() - 1 && !rows.isFirstEmpty()) {
        m_ui->lbDetail->setListIndex(rows.ListCount() - 2);
        m_run.setStopOneSongRun(true);
    }
}

void frmPlayList::lbDetail_MouseUp(const QPoint &place)
{
    if (const QModelIndex index = m_ui->lbDetail->indexAt(place); index.isValid())
        m_ui->lbDetail->setListIndex(index.row());
    const QList<QAction *> others = {m_ui->mnuAddAllSongs, m_ui->mnuEditAddSong, m_ui->mnuEditDelete,
                                     m_ui->mnuEditPlayList, m_ui->mnuEditSeparator1};
    for (QAction *entry : others)
        entry->setVisible(false);
    connect(
        m_ui->mnuEdit, &QMenu::aboutToHide, this,
        [others] {
            for (QAction *entry : others)
                entry->setVisible(true);
        },
        Qt::SingleShotConnection);
    m_ui->mnuEdit->popup(m_ui->lbDetail->viewport()->mapToGlobal(place));
}

void frmPlayList::lbDetail_BeginDrag(int row)
{
    m_DragSourceIndex = row;
}

void frmPlayList::lbDetail_Dropped(int row)
{
    if (row == m_DragSourceIndex)
        return;
    m_model->MoveListBoxItem(ListIndex(), row);
    m_isMoved = true;
    // Behind the drop: what follows may show a box and close the screen.
    QMetaObject::invokeMethod(this, &frmPlayList::keepOrder, Qt::QueuedConnection);
}

bool frmPlayList::keepOrder()
{
    if (!std::exchange(m_isMoved, false))
        return true;
    OrderKept kept = OrderKept::No;
    guarded(m_parts.services.desktop, windowTitle(), [&] {
        kept = m_tracks.ReOrderTracksAfterDrag();
        if (kept == OrderKept::WithOtherSongs)
            LoadDetailListbox();
    });
    if (kept == OrderKept::No)
        close();
    return kept != OrderKept::No;
}

} // namespace quaverly
