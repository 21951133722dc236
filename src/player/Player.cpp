// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Player.h"

#include "player/TemporaryList.h"

#include <QFileInfo>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace quaverly {

PlayRequest playerOnlyRequest(const QString &file)
{
    const QString local = file.startsWith("file:"_L1, Qt::CaseInsensitive) ? QUrl(file).toLocalFile() : file;
    const QString path = QFileInfo(local).absoluteFilePath();
    return playerOnlyRequest(QStringList(path), path);
}

PlayRequest playerOnlyRequest(const QStringList &files, const QString &listFile)
{
    PlayRequest request;
    request.CurrentPlayUrl = listFile;
    request.CurrentPlayTitle = request.caption = u"Quaverly Player"_s;
    for (const QString &file : files) {
        const QString path = QFileInfo(file).absoluteFilePath();
        if (files.size() == 1 || fitsInList(path))
            request.songs.add(path, path);
    }
    request.showsCount = files.size() > 1;
    request.cbShuffle = request.cmdDelete = request.playListControls = false;
    return request;
}

} // namespace quaverly
