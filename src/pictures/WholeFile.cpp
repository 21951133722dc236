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

/** True when the bytes are on the disk; else errno says why they are not. */
bool writeThrough(const QString &path, const QByteArray &bytes)
{
    // Whatever bears the name goes first: a link would be written through.
    if (::unlink(QFile::encodeName(path).constData()) != 0 && errno != ENOENT)
        return false;
    QFile file(path);
    errno = 0;
    return file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered) &&
           file.write(bytes) == bytes.size() && ::fsync(file.handle()) == 0;
}

} // namespace

void writeWhole(const QString &path, const QByteArray &bytes)
{
    const QString temporary = folderOf(path) + QString::fromUtf16(TemporaryPicture) + u".jpg"_s;
    auto remove = qScopeGuard([&] { QFile::remove(temporary); });
    if (!writeThrough(temporary, bytes)) {
        if (errno == ENOSPC || errno == EDQUOT || errno == EFBIG)
            throw dao::DaoError(dao::DiskFull, u"The disk is full: %1"_s.arg(path));
        throw accessError(path);
    }
    const QByteArray name = QFile::encodeName(path);
    if (std::rename(QFile::encodeName(temporary).constData(), name.constData()) != 0)
        throw accessError(path);
    remove.dismiss();
}

} // namespace quaverly
