// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/FileCopy.h"

#include "platform/shell/Directory.h"
#include "platform/shell/FileErrors.h"
#include "platform/shell/FileSteps.h"
#include "platform/store/DaoError.h"

#include <cerrno>
#include <sys/stat.h>
#include <sys/statvfs.h>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

void assertMayTake(const FilePath &target, const SourceFile &source, bool overwrite)
{
    struct stat about = {};
    if (::stat(target.system(), &about) == 0 && about.st_dev == source.about().st_dev &&
        about.st_ino == source.about().st_ino)
        throw dao::DaoError(
            dao::PathFileAccess,
            u"Path/File access error: '%1'.  A file can't be copied onto itself."_s.arg(target.text()));
    if (!overwrite && ::lstat(target.system(), &about) == 0)
        throwTargetError(EEXIST, target.text());
}

} // namespace

bool copyFile(const QString &source, const QString &target, const CopyOptions &options)
{
    const SourceFile from(FilePath::ofSource(source));
    const FilePath to = FilePath::ofTarget(target);
    assertMayTake(to, from, options.overwrite);
    TemporaryCopy copy(to);
    if (!copy.fill(from, options.progress))
        return false;
    copy.finish(from);
    copy.takeName(options.overwrite);
    return true;
}

std::optional<qint64> freeSpace(const QString &folder)
{
    struct statvfs about = {};
    if (::statvfs(systemPath(folder).constData(), &about) != 0)
        return {};
    return static_cast<qint64>(about.f_bavail) * static_cast<qint64>(about.f_frsize);
}

std::optional<qint64> fileSize(const QString &path)
{
    return fileSize(systemPath(path));
}

} // namespace shell
