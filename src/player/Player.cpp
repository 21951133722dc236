// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Player.h"

#include <QFileInfo>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace quaverly {

PlayRequest playerOnlyRequest(const QString &file)
{
    PlayRequest request;
    const QString local = file.startsWith("file:"_L1, Qt::CaseInsensitive) ? QUrl(file).toLocalFile() : file;
    request.CurrentPlayUrl = QFileInfo(local).absoluteFilePath();
    request.CurrentPlayTitle = request.caption = u"Quaverly Player"_s;
    request.songs.add(request.CurrentPlayUrl, request.CurrentPlayUrl);
    request.cbShuffle = request.cmdDelete = request.playListControls = false;
    return request;
}

} // namespace quaverly
