// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/Directory.h"

#include <QStorageInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

bool isBelow(const QString &path, QLatin1StringView folder)
{
    return path == folder || (path.startsWith(folder) && path.at(folder.size()) == u'/');
}

bool holdsFiles(const QString &root)
{
    const auto state = stateOf(root);
    return state && !PseudoFileSystems().hold(root, state->identity);
}

/** Where the system keeps what it runs on; sticks and discs are mounted below /run/media. */
bool isSystemPlace(const QString &path)
{
    if (isBelow(path, "/run/media"_L1))
        return false;
    for (const auto folder : {"/proc"_L1, "/sys"_L1, "/dev"_L1, "/run"_L1, "/boot"_L1, "/snap"_L1, "/etc"_L1,
                              "/usr"_L1, "/var/lib/docker"_L1, "/var/snap"_L1, "/tmp"_L1}) {
        if (isBelow(path, folder))
            return true;
    }
    return false;
}

} // namespace

std::vector<Drive> mountedDrives()
{
    std::vector<Drive> drives;
    for (const QStorageInfo &volume : QStorageInfo::mountedVolumes()) {
        const QString root = volume.rootPath();
        if (!volume.isValid() || !volume.isReady() || isSystemPlace(root) || !holdsFiles(root))
            continue;
        drives.push_back({root == "/"_L1 ? QString() : root, volume.name(),
                          static_cast<quint64>(std::max<qint64>(volume.bytesTotal(), 0))});
    }
    // What every system has, even where its own list of volumes leaves it out.
    if (std::ranges::find(drives, QString(), &Drive::mountPoint) == drives.end()) {
        const QStorageInfo root(u"/"_s);
        drives.push_back(
            {QString(), root.name(), static_cast<quint64>(std::max<qint64>(root.bytesTotal(), 0))});
    }
    std::ranges::sort(drives, {}, &Drive::mountPoint);
    const auto again = std::unique(drives.begin(), drives.end(), [](const Drive &a, const Drive &b) {
        return a.mountPoint == b.mountPoint;
    });
    drives.erase(again, drives.end());
    return drives;
}

} // namespace shell
