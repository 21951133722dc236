// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/PlayListChoice.h"

#include "lists/PlayerState.h"
#include "songlist/DisplayedSet.h"
#include "ui_NameEdit.h"

using namespace Qt::StringLiterals;

namespace quaverly {

PlayListChoice::PlayListChoice(Ui::NameEdit &ui, Desktop &desktop, DisplayedSet &set, Catalogue &catalogue,
                               PlayerState &player, std::function<QDateTime()> now, Handle handle)
    : m_ui(ui), m_set(set), m_player(player), m_lists(catalogue, std::move(now)),
      m_addToPlayList(desktop, player, m_lists), m_box(*ui.cmbHeader, *ui.txtSongAddedToPlaylist)
{
    QSizePolicy kept = m_ui.txtSongAddedToPlaylist->sizePolicy();
    kept.setRetainSizeWhenHidden(true);
    m_ui.txtSongAddedToPlaylist->setSizePolicy(kept);
    m_box.showLists(m_lists.lists(), m_player.CurrentPlayListName);
    showTip();
    connect(m_ui.cmbHeader, &QComboBox::activated, this, &PlayListChoice::cmbHeader_Click);
    connect(m_ui.cmdAddToPlaylist, &QPushButton::clicked, this, [this, handle = std::move(handle)] {
        handle([this] { m_box.follow(m_addToPlayList.addFromEditor(m_set.Data1().Recordset())); });
    });
}

void PlayListChoice::cmbHeader_Click()
{
    m_player.CurrentPlayListName = m_ui.cmbHeader->currentText();
    showTip();
}

void PlayListChoice::showTip()
{
    const QString &name = m_player.CurrentPlayListName;
    const QString tip =
        name.isEmpty() ? u"Select a Play List from the drop-down list."_s : u"Play List: "_s + name;
    m_ui.cmdAddToPlaylist->setToolTip(tip);
    m_ui.cmbHeader->setToolTip(tip);
}

} // namespace quaverly
