// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Services.h"
#include "lists/PlayListStore.h"

namespace quaverly {

class Player;

/** What playing a list works with. All of it outlives it. */
struct PlayPlayListParts
{
    Services services;
    PlayListStore &lists;
    Player &player;
    /** Closes the screen: the player follows. */
    std::function<void()> unload;
};

/**
 * "Play All Songs": the tracks of @p list whose files are there, in the player. An open player is closed
 * first, also when then nothing can be played, which the user is told. May throw dao::DaoError.
 */
void playPlayList(const PlayPlayListParts &parts, const PlayListName &list);

} // namespace quaverly
