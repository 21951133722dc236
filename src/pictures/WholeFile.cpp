// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/WholeFile.h"

#include "desktop/FileHelpers.h"
#include "pictures/PictureErrors.h"

#include <QFile>
#include <QScopeGuard>

#include <cerrno>
#include <cstdio>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** 0 when the bytes are on the disk, else the system's number of what went wrong. */
int writeThrough(const QString &path, const QByteArray &bytes)
{
    // Whatever bears the name goes first: a link would be written through.
    if (::unlink(QFile::encodeName(path).constData()) != 0 && errno != ENOENT)
        return errno;
    QFile file(path);
    errno = 0;
    const bool written = file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered) &&
                         file.write(bytes) == bytes.size() && ::fsync(file.handle()) == 0;
    return written ? 0 : errno != 0 ? errno : EIO;
}

} // namespace

void writeWhole(const QString &path, const QByteArray &bytes)
{
    const QString temporary = folderOf(path) + QString::fromUtf16(TemporaryPicture) + u".jpg"_s;
    auto remove = qScopeGuard([&] { QFile::remove(temporary); });
    const int fault = writeThrough(temporary, bytes);
    if (fault == ENOSPC || fault == EDQUOT || fault == EFBIG)
        throw dao::DaoError(dao::DiskFull, u"The disk is full: %1"_s.arg(path));
    if (fault != 0)
        throw accessError(path);
    const QByteArray name = QFile::encodeName(path);
    if (std::rename(QFile::encodeName(temporary).constData(), name.constData()) != 0)
        throw accessError(path);
    remove.dismiss();
}

} // namespace quaverly
