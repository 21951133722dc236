// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Player.h"

#include "platform/shell/SongDetails.h"
#include "player/TemporaryList.h"

#include <QFile>
#include <QFileInfo>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** Of more files the tags are not read: the player is to open at once. */
constexpr qsizetype MostRead = 200;

/** Title and artist of the file's tags; its path when it has none. */
QString rowByTags(const QString &path)
{
    const shell::SongDetails details = shell::readSongDetails(QFile::encodeName(path));
    return details.title.isEmpty() ? path : songRow(details.title, details.artist);
}

} // namespace

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
            request.songs.add(files.size() <= MostRead ? rowByTags(path) : path, path);
    }
    request.showsCount = files.size() > 1;
    request.cbShuffle = request.cmdDelete = request.playListControls = false;
    return request;
}

} // namespace quaverly
