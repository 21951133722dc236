// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/FileSteps.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace shell {

int renameKeeping(const QByteArray &from, const QByteArray &to)
{
    if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS)
        return errno;
    const int error = renameByLink(from, to);
    const bool knowsNoLinks = error == EPERM || error == EOPNOTSUPP || error == ENOSYS || error == EMLINK;
    return knowsNoLinks ? renameOverPlaceholder(from, to) : error;
}

int renameByLink(const QByteArray &from, const QByteArray &to)
{
    if (::link(from.constData(), to.constData()) != 0)
        return errno;
    if (::unlink(from.constData()) == 0)
        return 0;
    const int error = errno;
    ::unlink(to.constData());
    return error;
}

int renameOverPlaceholder(const QByteArray &from, const QByteArray &to)
{
    const Descriptor placeholder(
        ::open(to.constData(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (placeholder.get() < 0)
        return errno;
    if (std::rename(from.constData(), to.constData()) == 0)
        return 0;
    const int error = errno;
    ::unlink(to.constData());
    return error;
}

} // namespace shell
