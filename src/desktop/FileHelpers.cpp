// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/FileHelpers.h"

#include "platform/store/DaoError.h"
#include "platform/text/Text.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

#include <optional>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** The path's bytes, or nothing for one that the system would take for another name. */
std::optional<QByteArray> exactName(const QString &path)
{
    QByteArray name = QFile::encodeName(path);
    if (path.isEmpty() || name.contains('\0') || QFile::decodeName(name) != path)
        return std::nullopt;
    return name;
}

/** Type bits of what the path leads to, links followed; 0 for nothing. */
mode_t typeOf(const QString &path)
{
    struct stat found = {};
    const std::optional<QByteArray> name = exactName(path);
    return name && ::stat(name->constData(), &found) == 0 ? found.st_mode & S_IFMT : 0;
}

} // namespace

bool FileExists(const QString &path)
{
    return typeOf(path) == S_IFREG;
}

bool FolderExists(const QString &path)
{
    return typeOf(path) == S_IFDIR;
}

bool IsValidFileName(const QString &name)
{
    static const QString illegal = QString::fromUtf16(IllegalFileNameCharacters) + QChar(u'\0');
    const auto isIllegal = [](QChar c) { return illegal.contains(c); };
    return isGreaterThanBlank(name.trimmed()) && std::none_of(name.begin(), name.end(), isIllegal);
}

QString EnsureBackslash(const QString &path)
{
    return path.endsWith(PathSeparator) ? path : path + PathSeparator;
}

QString CleanFolder(const QString &path)
{
    return EnsureBackslash(QDir::cleanPath(path));
}

void DeleteFile(const QString &path)
{
    if (!FileExists(path) || ::unlink(exactName(path)->constData()) == 0 || errno == ENOENT)
        return;
    if (errno == EBUSY || errno == ETXTBSY)
        throw dao::DaoError(dao::PermissionDenied, u"Permission denied: %1"_s.arg(path));
    throw dao::DaoError(dao::PathFileAccess, u"Path/File access error: %1"_s.arg(path));
}

QString folderOf(const QString &path)
{
    return path.left(path.lastIndexOf(PathSeparator) + 1);
}

QString fileNameOf(const QString &path)
{
    return path.mid(path.lastIndexOf(PathSeparator) + 1);
}

} // namespace quaverly
