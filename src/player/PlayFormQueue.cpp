// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/PlayForm.h"

#include "desktop/Desktop.h"
#include "desktop/Guard.h"
#include "lists/PlayerState.h"
#include "platform/media/Media.h"
#include "player/SongListModel.h"
#include "player/TemporaryList.h"
#include "ui_PlayForm.h"

#include <QMenu>

using namespace Qt::StringLiterals;

// What the user changes of the list while it plays.
namespace quaverly {

void PlayForm::wireQueue()
{
    const auto on = [this](QAction *action, void (PlayForm::*handler)()) {
        action->setShortcutContext(Qt::WidgetShortcut);
        m_ui->lbSongs->addAction(action);
        m_popup->addAction(action);
        connect(action, &QAction::triggered, this, handler);
    };
    m_popup = new QMenu(this);
    m_popup->setObjectName(u"mnuQueue"_s);
    on(m_ui->mnuQueuePlayNext, &PlayForm::mnuQueuePlayNext_Click);
    on(m_ui->mnuQueueMoveUp, &PlayForm::mnuQueueMoveUp_Click);
    on(m_ui->mnuQueueMoveDown, &PlayForm::mnuQueueMoveDown_Click);
    on(m_ui->mnuQueueRemove, &PlayForm::mnuQueueRemove_Click);
    on(m_ui->mnuQueueSave, &PlayForm::mnuQueueSave_Click);
    connect(m_ui->lbSongs, &QWidget::customContextMenuRequested, this, &PlayForm::lbSongs_MouseUp);
    connect(m_songs, &SongListModel::moveWanted, this, &PlayForm::moveInQueue, Qt::QueuedConnection);
    // What was pointed at for the menu or the drag is let go: selected is what plays.
    const auto letGo = [this] { selectRow(m_queue.ListIndex()); };
    connect(m_popup, &QMenu::aboutToHide, this, letGo, Qt::QueuedConnection);
    connect(m_ui->lbSongs, &SongListView::dragEnded, this, letGo, Qt::QueuedConnection);
}

void PlayForm::lbSongs_MouseUp(const QPoint &place)
{
    const bool onSong = m_ui->lbSongs->indexAt(place).isValid();
    const bool catalogue = m_nextSong != nullptr;
    for (QAction *action : m_popup->actions())
        action->setEnabled(action == m_ui->mnuQueueSave ? catalogue : onSong);
    m_popup->popup(m_ui->lbSongs->viewport()->mapToGlobal(place));
}

void PlayForm::mnuQueuePlayNext_Click()
{
    const int row = m_ui->lbSongs->currentIndex().row();
    const int here = m_queue.ListIndex();
    if (row != here)
        moveInQueue(row, row < here ? here : here + 1);
}

void PlayForm::mnuQueueMoveUp_Click()
{
    const int row = m_ui->lbSongs->currentIndex().row();
    moveInQueue(row, row - 1);
}

void PlayForm::mnuQueueMoveDown_Click()
{
    const int row = m_ui->lbSongs->currentIndex().row();
    moveInQueue(row, row + 1);
}

void PlayForm::moveInQueue(int from, int to)
{
    m_edit.move(from, to);
    queueEdited();
}

void PlayForm::mnuQueueRemove_Click()
{
    m_edit.remove(m_ui->lbSongs->currentIndex().row());
    queueEdited();
}

void PlayForm::mnuQueueSave_Click()
{
    guarded(m_parts.services.desktop, m_ui->mnuQueueSave->text(), [this] {
        if (m_addToPlayList.saveFromPlayer(m_queue).isEmpty())
            return;
        loadPlayLists();
        m_playLists->confirm(u"Saved as a play list"_s, ConfirmationMs);
    });
}

void PlayForm::addToQueue(const SongQueue &songs, bool next)
{
    if (m_queue.count() + songs.count() > MostTracks) {
        m_parts.services.desktop.MessageBox(
            u"The maximum number of songs you can put in a Play List is 32000."_s,
            u"Too many songs to play"_s, Icon::Exclamation);
        return;
    }
    leaveOneFile();
    m_edit.add(songs, next);
    queueEdited();
}

void PlayForm::leaveOneFile()
{
    if (!isOneFile(m_parts.state.CurrentPlayUrl))
        return;
    for (QCheckBox *box : {m_ui->cbPlayNext, m_ui->cbPlayRandom}) {
        box->setChecked(false);
        box->hide();
    }
    m_ui->cbShuffle->show();
    m_ui->cbSkipDups->show();
    m_parts.state.CurrentPlayUrl = temporaryList(m_parts.services.catalogue.DatabaseFolder);
}

void PlayForm::queueEdited()
{
    m_urls->reset();
    selectRow(m_queue.ListIndex());
    showCount();
}

void PlayForm::showCount()
{
    m_ui->lblNumSongs->setText(u"Number of songs: "_s + QString::number(m_queue.count()));
}

} // namespace quaverly
