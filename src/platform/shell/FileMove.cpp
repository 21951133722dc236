// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/FileMove.h"

#include "platform/shell/Directory.h"
#include "platform/shell/FileErrors.h"
#include "platform/shell/FileSteps.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <optional>

namespace shell {

namespace {

void requireFile(const FilePath &path)
{
    struct stat about = {};
    if (::stat(path.system(), &about) != 0)
        throwFileError(errno, path.text());
    if (!S_ISREG(about.st_mode))
        throwFileError(ENOENT, path.text());
}

bool isInOtherCapitals(const FilePath &from, const FilePath &to)
{
    if (from.name().compare(to.name(), Qt::CaseInsensitive) != 0 || from.name() == to.name())
        return false;
    const auto fromFolder = stateOf(QString::fromUtf8(from.folder()));
    const auto toFolder = stateOf(QString::fromUtf8(to.folder()));
    const auto fromName = aboutName(from);
    const auto toName = aboutName(to);
    if (!fromFolder || !toFolder || fromFolder->identity != toFolder->identity || !fromName || !toName)
        return false;
    // Where capitals count, these are two links to one file.
    return isSameFile(*fromName, *toName) && !isListed(to);
}

/** Names a link's file seen from the new folder; a path of its own stays. */
std::filesystem::path leadingFrom(const FilePath &folder, const FilePath &link)
{
    namespace fs = std::filesystem;
    fs::path there = fs::read_symlink(link.system());
    if (there.is_absolute())
        return there;
    const fs::path relative =
        fs::canonical(link.system()).lexically_relative(fs::canonical(folder.folder().constData()));
    return relative.empty() ? fs::canonical(link.system()) : relative;
}

int moveLink(const FilePath &from, const FilePath &to)
{
    const auto fromFolder = stateOf(QString::fromUtf8(from.folder()));
    const auto toFolder = stateOf(QString::fromUtf8(to.folder()));
    if (!fromFolder || !toFolder)
        return ENOENT;
    if (fromFolder->identity.device != toFolder->identity.device)
        return EXDEV;
    const std::filesystem::path leads = leadingFrom(to, from);
    if (::symlink(leads.c_str(), to.system()) != 0)
        return errno;
    if (::unlink(from.system()) == 0)
        return 0;
    const int error = errno;
    ::unlink(to.system());
    return error;
}

int moveName(const FilePath &from, const FilePath &to)
{
    const auto about = aboutName(from);
    const bool isLink = about && S_ISLNK(about->st_mode);
    try {
        return isLink && from.folder() != to.folder() ? moveLink(from, to)
                                                      : renameKeeping(from.bytes(), to.bytes());
    } catch (const std::filesystem::filesystem_error &error) {
        return error.code().value();
    }
}

/** The one of the two whose folder keeps the name from being moved. */
const FilePath &refusing(const FilePath &from, const FilePath &to)
{
    return ::access(from.folder().constData(), W_OK) != 0 ? from : to;
}

} // namespace

bool isOwnNameInOtherCapitals(const QString &source, const QString &target)
{
    return isInOtherCapitals(FilePath::ofSource(source), FilePath::ofTarget(target));
}

void moveFile(const QString &source, const QString &target)
{
    const FilePath from = FilePath::ofSource(source);
    const FilePath to = FilePath::ofTarget(target);
    requireFile(from);
    if (from.bytes() == to.bytes())
        return;
    const int error = moveName(from, to);
    if (error == EXDEV) {
        moveByCopy(from, to);
        return;
    }
    if (error == EEXIST && isInOtherCapitals(from, to)) {
        renameCapitals(from, to);
        return;
    }
    if (error == EACCES || error == EPERM)
        throwFileError(error, refusing(from, to).text());
    if (error != 0)
        throwTargetError(error, to.text());
    syncFolder(to.folder());
    if (from.folder() != to.folder())
        syncFolder(from.folder());
}

void moveByCopy(const FilePath &from, const FilePath &to)
{
    if (::access(from.folder().constData(), W_OK) != 0)
        throwFileError(errno, from.text());
    // Looked at first only to spare the copying; the naming makes sure.
    if (aboutName(to))
        throwTargetError(EEXIST, to.text());
    const SourceFile source(from);
    TemporaryCopy copy(to);
    static_cast<void>(copy.fill(source, {}));
    // The copy is whole, on the disk and named before its original goes: at each moment one of them is there.
    copy.finish(source);
    copy.compare(source);
    copy.takeName(false);
    if (::unlink(from.system()) != 0 && errno != ENOENT) {
        const int error = errno;
        ::unlink(to.system());
        throwFileError(error, from.text());
    }
    syncFolder(from.folder());
}

void renameCapitals(const FilePath &from, const FilePath &to)
{
    if (std::rename(from.system(), to.system()) != 0)
        throwTargetError(errno, to.text());
    if (isListed(to))
        return;
    // Some file systems keep the old spelling unless the name is another one in between.
    QByteArray between;
    const Descriptor file(makeTemporary(to, BetweenName, &between));
    if (file.get() < 0 || std::rename(from.system(), between.constData()) != 0)
        throwTargetError(errno, to.text());
    if (const int error = renameKeeping(between, to.bytes()); error != 0) {
        static_cast<void>(std::rename(between.constData(), from.system()));
        throwTargetError(error, to.text());
    }
}

} // namespace shell
