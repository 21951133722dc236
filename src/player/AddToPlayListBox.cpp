// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/AddToPlayListBox.h"

#include "desktop/KeySender.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int DropDownPixels = 220;
constexpr int AddedShownMs = 500;

QString songAdded()
{
    return u"Song added to Play List"_s;
}

} // namespace

AddToPlayListBox::AddToPlayListBox(QComboBox &cmbHeader, QLabel &txtSongAddedToPlaylist)
    : m_cmbHeader(cmbHeader), m_line(txtSongAddedToPlaylist)
{
    m_cmbHeader.view()->setMinimumWidth(DropDownPixels);
    m_confirmation.setSingleShot(true);
    QObject::connect(&m_confirmation, &QTimer::timeout, &m_confirmation, [this] { hideConfirmation(); });
    hideConfirmation();
}

void AddToPlayListBox::showLists(const QList<PlayListName> &lists, const QString &chosen)
{
    m_cmbHeader.clear();
    for (const PlayListName &list : lists)
        m_cmbHeader.addItem(list.ListName, list.ListID);
    m_cmbHeader.setCurrentIndex(m_cmbHeader.findText(chosen));
}

bool AddToPlayListBox::follow(SongAdded added)
{
    if (added == SongAdded::Yes)
        confirm(songAdded(), AddedShownMs);
    if (added == SongAdded::ChooseList) {
        m_cmbHeader.setFocus();
        SendKeysInput(u"%{Down}"_s);
    }
    return added == SongAdded::Yes;
}

void AddToPlayListBox::confirm(const QString &text, int milliseconds)
{
    m_line.setText(text);
    m_line.show();
    m_confirmation.start(milliseconds);
}

void AddToPlayListBox::hideConfirmation()
{
    m_line.hide();
    m_line.setText(songAdded());
}

} // namespace quaverly
