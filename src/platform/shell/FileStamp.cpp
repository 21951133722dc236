// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/FileStamp.h"

#include "platform/shell/SystemStamp.h"

#include <cerrno>

namespace shell {

FileStamp stampFrom(const struct stat &about)
{
    return {about.st_size, qint64(about.st_mtim.tv_sec) * 1'000'000'000 + about.st_mtim.tv_nsec,
            static_cast<qint64>(about.st_ino), static_cast<qint64>(about.st_dev)};
}

std::optional<FileStamp> stampOf(const QByteArray &path)
{
    struct stat about;
    if (::stat(path.constData(), &about) != 0 || !S_ISREG(about.st_mode))
        return {};
    return stampFrom(about);
}

FileState fileStateOf(const QByteArray &path)
{
    struct stat about;
    if (::stat(path.constData(), &about) == 0)
        return S_ISREG(about.st_mode) ? FileState::There : FileState::Gone;
    const bool isGone = errno == ENOENT || errno == ENOTDIR || errno == ENAMETOOLONG || errno == ELOOP;
    return isGone ? FileState::Gone : FileState::Unreachable;
}

} // namespace shell
