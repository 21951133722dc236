// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quaverly {

/** Run-wide state of playing, which commands that play nothing look at too. */
struct PlayerState
{
    /** True while the player's screen is open; commands that add songs are refused then. */
    bool PlayerOpen = false;
    QString CurrentPlayUrl;
    QString CurrentPlayTitle;
    bool RestartingPlayer = false;
    bool RestartingFolderPlayer = false;
    bool PlayedFromEditor = false;
    QString CurrentPlayListName;
};

} // namespace quaverly
