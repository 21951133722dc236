// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/CloneSource.h"

#include <QFile>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace dao {

CloneSource::CloneSource(const QString &path)
    : m_handle(::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC))
{}

CloneSource::~CloneSource()
{
    if (m_handle >= 0)
        ::close(m_handle);
}

bool CloneSource::cloneTo(const QString &target) const
{
    const QByteArray name = QFile::encodeName(target);
    const int copy = ::open(name.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (copy < 0)
        return false;
    const bool done = ::ioctl(copy, FICLONE, m_handle) == 0;
    ::close(copy);
    if (!done)
        ::unlink(name.constData());
    return done;
}

} // namespace dao
