// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/FileErrors.h"

#include "platform/store/DaoError.h"

#include <algorithm>
#include <array>
#include <cerrno>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

struct Meaning
{
    int systemError;
    int number;
};

// A quota or the largest file that the disk takes is as good as its end.
constexpr std::array<Meaning, 11> Meanings{{
    {ENOENT, dao::FileNotFound},
    {EEXIST, dao::FileAlreadyExists},
    {ENOSPC, dao::DiskFull},
    {EDQUOT, dao::DiskFull},
    {EFBIG, dao::DiskFull},
    {EACCES, dao::PermissionDenied},
    {EPERM, dao::PermissionDenied},
    {EROFS, dao::PermissionDenied},
    {EBUSY, dao::PermissionDenied},
    {ETXTBSY, dao::PermissionDenied},
    {ENOTDIR, dao::PathNotFound},
}};

QString sentence(int number)
{
    switch (number) {
    case dao::FileNotFound:
        return u"File not found: '%1'."_s;
    case dao::FileAlreadyExists:
        return u"File already exists: '%1'."_s;
    case dao::DiskFull:
        return u"The disk is full.  There is no room for '%1'."_s;
    case dao::PermissionDenied:
        return u"Permission denied: '%1'."_s;
    case dao::PathNotFound:
        return u"Path not found: '%1'."_s;
    default:
        return u"Path/File access error: '%1'."_s;
    }
}

} // namespace

void throwFileError(int systemError, const QString &path)
{
    const auto *const known = std::ranges::find(Meanings, systemError, &Meaning::systemError);
    const int number = known != Meanings.end() ? known->number : dao::PathFileAccess;
    QString text = sentence(number).arg(path);
    // Where the system has no other words for it, its own add nothing.
    if ((number == dao::PermissionDenied && systemError != EACCES) || number == dao::PathFileAccess)
        text += u"  "_s + qt_error_string(systemError) + u'.';
    throw dao::DaoError(number, text);
}

void throwTargetError(int systemError, const QString &path)
{
    if (systemError == ENOENT)
        throw dao::DaoError(dao::PathNotFound, sentence(dao::PathNotFound).arg(path));
    throwFileError(systemError, path);
}

} // namespace shell
