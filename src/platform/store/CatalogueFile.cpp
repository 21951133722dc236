// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/DatabaseImpl.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace dao {

namespace {

/** Offsets within the file's first hundred bytes, as the SQLite file format defines them. */
constexpr int HeaderSize = 100;
constexpr int OffsetPageSize = 16;
constexpr int OffsetChangeCounter = 24;
constexpr int OffsetPageCount = 28;
constexpr int OffsetUserVersion = 60;
constexpr int OffsetApplicationId = 68;
constexpr int OffsetVersionValidFor = 92;

quint32 number(const QByteArray &header, int offset)
{
    return qFromBigEndian<quint32>(header.constData() + offset);
}

[[noreturn]] void throwUnrecognised(const QString &path, const QString &why)
{
    throw DaoError(UnrecognisedFormat, u"Unrecognized database format '%1'.  %2"_s.arg(path, why));
}

void refuseForeign(const QString &path, const QByteArray &header)
{
    if (header.isEmpty())
        throwUnrecognised(path, u"The file is empty."_s);
    const QByteArray name = header.mid(4, 15);
    if (name == "Standard Jet DB" || name == "Standard ACE DB")
        throwUnrecognised(path, u"It is a database of another program, which can't be opened here."_s);
    if (!header.startsWith("SQLite format 3"))
        throwUnrecognised(path, u"It is not a Quaverly database."_s);
    if (header.size() < HeaderSize)
        throw DaoError(CannotOpenFile, u"Cannot open database '%1'.  It may be damaged."_s.arg(path));
}

bool isTruncated(const QString &path, const QByteArray &header, qint64 size)
{
    if (QFileInfo(path + u"-wal"_s).size() > 0)
        return false;
    const quint32 stored = qFromBigEndian<quint16>(header.constData() + OffsetPageSize);
    const qint64 pageSize = stored == 1 ? 65536 : stored;
    const bool counted = number(header, OffsetVersionValidFor) == number(header, OffsetChangeCounter);
    return counted && pageSize * number(header, OffsetPageCount) > size;
}

} // namespace

CatalogueFile CatalogueFile::examine(const QString &path, const Schema &schema)
{
    const QByteArray encoded = QFile::encodeName(path);
    struct stat info = {};
    if (::stat(encoded.constData(), &info) != 0) {
        if (errno == EACCES)
            throw DaoError(PermissionDenied, u"Permission denied: '%1'."_s.arg(path));
        throw DaoError(CatalogueNotFound, u"Could not find file '%1'."_s.arg(path));
    }
    if (!S_ISREG(info.st_mode))
        throw DaoError(PathFileAccess, u"'%1' is not a file."_s.arg(path));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw DaoError(PermissionDenied, u"Permission denied: '%1'."_s.arg(path));
    const QByteArray header = file.read(HeaderSize);
    file.close();
    refuseForeign(path, header);
    if (static_cast<qint32>(number(header, OffsetApplicationId)) != schema.applicationId)
        throwUnrecognised(path, u"It is a database of another program."_s);
    const auto version = static_cast<int>(number(header, OffsetUserVersion));
    if (version > schema.version())
        throwUnrecognised(path, u"It was made by a newer version of the program."_s);
    if (isTruncated(path, header, info.st_size))
        throw DaoError(CannotOpenFile, u"Cannot open database '%1'.  It may be damaged."_s.arg(path));
    const QByteArray folder = QFile::encodeName(QFileInfo(path).absolutePath());
    const bool writable = ::access(encoded.constData(), W_OK) == 0 && ::access(folder.constData(), W_OK) == 0;
    return {path, writable, version};
}

} // namespace dao
