// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "playlists/frmPlayList.h"

#include <QPointer>

namespace quaverly {

/** Opens the play lists screen over the main screen; it goes when it is closed. */
class PlayListScreens final
{
public:
    /** @p owner is the main screen of the moment. */
    PlayListScreens(PlayListParts parts, std::function<QWidget *()> owner);
    ~PlayListScreens();
    PlayListScreens(const PlayListScreens &) = delete;
    PlayListScreens &operator=(const PlayListScreens &) = delete;

    /** The main screen's button and menu entry. */
    void cmdPlayList_Click() { show({}); }
    /** Calls @p closed when the screen has been closed, at once when it could not be opened. */
    void show(const std::function<void()> &closed);

    /** Null while the screen is not open. */
    [[nodiscard]] frmPlayList *form() const { return m_form; }

private:
    PlayListParts m_parts;
    std::function<QWidget *()> m_owner;
    QPointer<frmPlayList> m_form;
};

} // namespace quaverly
