// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlists/PlayListHelp.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace quaverly {

QString playListHelp()
{
    return QStringList{
        u"This feature has many uses.  It is not just for playing songs.  Read below for details, and view "
        "the menu options."_s,
        u"A Play List is a collection of songs arranged in a specific order. "_s,
        u"Press the \"Create New Play List\" button to add a new Play List  "_s,
        u"Add a song to a Play List from the main Quaverly screen.  To do this, right-click on the selected "
        "song name and a menu will pop-up.  Choose \"Add song to play list\" from that menu.  You must first "
        "select a Play List to add the song to, and this is remembered throughout the session until you "
        "change it."_s,
        u"You can also add songs to a Play List while playing them, by pressing a button on the Player "
        "screen. "_s,
        u"To copy all music files in this Play List to another folder, choose \"Copy music files to another "
        "folder\" from the File menu. This is great if you want to put songs on a USB drive to play in your "
        "car, or on another computer, player, or phone."_s,
        u"You can create Play List files to play anywhere.  Choose \"Save Play List File as\" from the File "
        "menu.  This menu option is active once you choose a Play List."_s,
        u"To add all songs from the main Quaverly screen to this Play List, choose \"Add all songs to Play "
        "List\" from the Edit menu."_s,
        u"To display the songs in a Play List on the main Quaverly screen, choose \"Display Only These "
        "Songs\" from the File menu."_s,
        u"To print a Play List, select the Report menu."_s,
        u"To change song order, drag and drop song names in the list to a new position."_s,
        u"Any songs without file names will not be included in saved Play Lists."_s,
    }
        .join(u"\r\n\r\n"_s);
}

} // namespace quaverly
