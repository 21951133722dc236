// SPDX-License-Identifier: GPL-3.0-or-later
#include "lists/PlayerState.h"

using namespace Qt::StringLiterals;

namespace quaverly {

QString titleOfPlayList(const QString &name)
{
    return u"PlayList "_s + name;
}

QString captionOfPlayList(const QString &name)
{
    return u"PlayList: "_s + name;
}

void PlayerState::renamePlayList(const QString &before, const QString &name)
{
    for (QString *remembered : {&CurrentPlayListName, &PlayerPlayList}) {
        if (remembered->compare(before, Qt::CaseInsensitive) == 0)
            *remembered = name;
    }
    if (CurrentPlayTitle == titleOfPlayList(before))
        CurrentPlayTitle = titleOfPlayList(name);
}

} // namespace quaverly
