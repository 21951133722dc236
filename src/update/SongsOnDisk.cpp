// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/SongsOnDisk.h"

#include "intake/MusicItem.h"
#include "intake/ScanReport.h"
#include "intake/SongReader.h"
#include "platform/shell/Shell.h"
#include "platform/shell/SoundHash.h"
#include "update/Aside.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

SongOnDisk readSong(const shell::Item &item, const DiskFile &file, int versionMajor)
{
    SongOnDisk read{.file = file, .stamp = item.stamp()};
    const QString folder = QString::fromUtf8(file.folder);
    const auto music = musicItemOf(item, folder, false);
    if (!music || !read.stamp)
        return read;
    // The walk knows which inodes last.
    if (file.stamp.inode == 0)
        read.stamp->inode = 0;
    ScanReport report({});
    SongReader(versionMajor, report).read(item, *music, folder, read.song);
    read.failure = item.readFailure();
    read.sound = shell::soundHash(file.path());
    return read;
}

} // namespace

std::vector<SongOnDisk> readSongs(const std::vector<DiskFile> &files, const std::stop_token &stop)
{
    const auto shell = shell::makeShell();
    std::vector<SongOnDisk> songs;
    songs.reserve(files.size());
    for (std::size_t first = 0; first < files.size() && !stop.stop_requested();) {
        QStringList names;
        QHash<QString, const DiskFile *> byName;
        std::size_t end = first;
        for (; end < files.size() && files[end].folder == files[first].folder; ++end) {
            names.append(QString::fromUtf8(files[end].name));
            byName.insert(names.back(), &files[end]);
        }
        const auto items = shell->filesOf(QString::fromUtf8(files[first].folder), names);
        for (qsizetype i = 0; i < items->count() && !stop.stop_requested(); ++i) {
            const shell::Item &item = items->item(i);
            songs.push_back(readSong(item, *byName.value(item.name()), shell->versionMajor()));
        }
        first = end;
    }
    return songs;
}

bool readInPortions(std::vector<DiskFile> files, const UpdateGoesOn &goesOn, const QString &what,
                    const std::function<void(SongOnDisk &)> &take)
{
    constexpr std::chrono::milliseconds Patience(20);
    constexpr std::size_t Portion = 500;
    std::ranges::stable_sort(files, {}, &DiskFile::folder);
    for (std::size_t first = 0; first < files.size(); first += Portion) {
        const std::vector<DiskFile> portion(
            files.begin() + static_cast<std::ptrdiff_t>(first),
            files.begin() + static_cast<std::ptrdiff_t>(std::min(first + Portion, files.size())));
        Aside<std::vector<SongOnDisk>> reading(
            [portion](const std::stop_token &stop) { return readSongs(portion, stop); });
        do {
            if (!goesOn(what, static_cast<qint64>(first), std::ssize(files)))
                return false;
        } while (!reading.isDone(Patience));
        for (SongOnDisk &song : reading.take())
            take(song);
    }
    return true;
}

} // namespace quaverly
