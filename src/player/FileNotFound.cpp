// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/FileNotFound.h"

#include "desktop/Desktop.h"

using namespace Qt::StringLiterals;

namespace quaverly {

void ShowFileNotFound(Desktop &desktop, const QString &FullPath)
{
    desktop.MessageBox(u"\""_s + FullPath +
                           u"\"\r\nnot found.\r\n"
                           "It may have been deleted or moved to a new location.  You can globally change "
                           "music file locations by choosing:\r\n"
                           "\"Change Music File Locations\" from the Edit menu."_s,
                       u"File not found to play"_s, Icon::Exclamation);
}

} // namespace quaverly
