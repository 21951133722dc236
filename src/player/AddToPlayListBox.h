// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "player/AddToPlayList.h"

#include <QTimer>

class QComboBox;
class QLabel;

namespace quaverly {

/** A screen's cmbHeader, from which the list to add to is chosen, and the line that confirms an add. */
class AddToPlayListBox final
{
public:
    /** Both outlive it. */
    AddToPlayListBox(QComboBox &cmbHeader, QLabel &txtSongAddedToPlaylist);

    /** Offers @p lists, the one of the name @p chosen selected, or none. */
    void showLists(const QList<PlayListName> &lists, const QString &chosen);
    /** True for a song that was added, which is confirmed; where a list must be chosen first, they drop down.
     */
    bool follow(SongAdded added);
    /** Shows @p text for so long. */
    void confirm(const QString &text, int milliseconds);

private:
    void hideConfirmation();

    QComboBox &m_cmbHeader;
    QLabel &m_line;
    QTimer m_confirmation;
};

} // namespace quaverly
