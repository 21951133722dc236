// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quaverly {

/** Run-wide state of playing, which commands that play nothing look at too. */
struct PlayerState
{
    /** True while the player's screen is open; commands that add songs are refused then. */
    bool PlayerOpen = false;
    /** Full path of the music file, or of the list file, that the player was told last. Empty without one. */
    QString CurrentPlayUrl;
    /** The file's name, or the title of the songs played: titleOfPlayList() for a play list. */
    QString CurrentPlayTitle;
    /** Set by a play command before it closes an open player: that closing ends no program. */
    bool RestartingPlayer = false;
    /** The same, by the commands on folders. */
    bool RestartingFolderPlayer = false;
    /** The editor closed after a play command. */
    bool PlayedFromEditor = false;
    /** The play list that songs are added to. */
    QString CurrentPlayListName;
    /** The play list picked last in the player's own box. */
    QString PlayerPlayList;
    /** Where the player stood when it was closed last, in twips; negative once it was left of or above the
     * display, and then kept no longer. */
    int PlayerLeft = 0;
    int PlayerTop = 0;
    /** True while the play lists screen is open to add the song of the grid's current row. */
    bool AddingFromGrid = false;

    /** A play list got another name: whatever remembers the old one follows. */
    void renamePlayList(const QString &before, const QString &name);
};

/** The title of the songs of a play list, and the caption of a player that plays them. */
[[nodiscard]] QString titleOfPlayList(const QString &name);
[[nodiscard]] QString captionOfPlayList(const QString &name);

} // namespace quaverly
