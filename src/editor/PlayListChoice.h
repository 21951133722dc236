// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "editor/FieldGate.h"
#include "player/AddToPlayListBox.h"

#include <QObject>

namespace quaverly {

class DisplayedSet;
struct Catalogue;
struct PlayerState;

/** The editor's list of play lists, and the button that adds the song to the one chosen. */
class PlayListChoice final : public QObject
{
    Q_OBJECT

public:
    /** Everything outlives it. @p now gives the time that tracks are stamped with. */
    PlayListChoice(Ui::NameEdit &ui, Desktop &desktop, DisplayedSet &set, Catalogue &catalogue,
                   PlayerState &player, std::function<QDateTime()> now, Handle handle);

private:
    void cmbHeader_Click();
    void showTip();

    Ui::NameEdit &m_ui;
    DisplayedSet &m_set;
    PlayerState &m_player;
    PlayListStore m_lists;
    AddToPlayList m_addToPlayList;
    AddToPlayListBox m_box;
};

} // namespace quaverly
