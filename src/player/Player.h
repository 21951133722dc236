// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "player/SongQueue.h"

#include <QString>

namespace quaverly {

/** What a play command hands to the player. */
struct PlayRequest
{
    /** A music file, or the list file that holds the queue's paths. */
    QString CurrentPlayUrl{};
    QString CurrentPlayTitle{};
    /** Caption of the player's window. */
    QString caption{};
    SongQueue songs{};
    /** The number of songs is shown. */
    bool showsCount = false;

    /** Controls that the command shows or hides. */
    bool cbPlayNext = false;
    bool cbPlayRandom = false;
    bool cbShuffle = true;
    bool cbSkipDups = true;
    bool cbNowPlaying = true;
    bool cmdDelete = true;
    /** Everything about play lists. */
    bool playListControls = true;
};

/** One music file, with the player alone on the screen. @p file may be relative, or a local file's address.
 */
[[nodiscard]] PlayRequest playerOnlyRequest(const QString &file);

/** Several of them. @p listFile is the list file that holds, or will hold, the request's songs. */
[[nodiscard]] PlayRequest playerOnlyRequest(const QStringList &files, const QString &listFile);

/** The player as the play commands know it: no screen, or one with one queue. */
class Player
{
public:
    virtual ~Player() = default;

    /** Closes the player if it is open. */
    virtual void unload() = 0;
    /** Opens the player, which must not be open, shows it beside the other screens and plays. */
    virtual void play(PlayRequest request) = 0;
    /** Puts songs behind the one that plays, or at the end of its list; false while no player is open. */
    virtual bool addToQueue(const SongQueue &songs, bool next) = 0;
    /** Play lists came, went or got another name: an open player offers those that there are now. */
    virtual void showPlayLists() = 0;
};

} // namespace quaverly
