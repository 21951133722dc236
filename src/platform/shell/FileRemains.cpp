// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/FileRemains.h"

#include "platform/shell/Directory.h"
#include "platform/shell/FileSteps.h"
#include "platform/store/DaoError.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <vector>

namespace shell {

namespace {

constexpr qsizetype ChunkSize = 512 * 1024;

/** Full paths of the files in a folder whose names are made to that pattern. */
std::vector<QByteArray> madeTo(const char *pattern, const QString &folder)
{
    const QString made = QString::fromLatin1(pattern);
    const qsizetype random = made.indexOf(u'X');
    const QString head = made.first(random);
    const QString ending = made.mid(made.lastIndexOf(u'X') + 1);
    std::vector<QByteArray> found;
    const auto listing = listFolder(folder);
    if (!listing)
        return found;
    for (const Entry &entry : entriesOf(*listing, nullptr)) {
        if (entry.name.size() == made.size() && entry.name.startsWith(head) && entry.name.endsWith(ending))
            found.push_back(systemPath(folder + u'/' + entry.name));
    }
    return found;
}

bool isWorkedAt(const QByteArray &file)
{
    const Descriptor handle(::open(file.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW));
    return handle.get() < 0 || (::flock(handle.get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK);
}

bool isEmptyFile(const QByteArray &file)
{
    struct stat about = {};
    return ::lstat(file.constData(), &about) == 0 && S_ISREG(about.st_mode) && about.st_size == 0;
}

bool hasSameContent(const SourceFile &left, const SourceFile &right)
{
    if (left.size() != right.size())
        return false;
    for (qint64 at = 0; at < left.size(); at += ChunkSize) {
        if (left.read(at, ChunkSize) != right.read(at, ChunkSize))
            return false;
    }
    return true;
}

/** Two names, each in its folder: not one name under two paths, nor one that a folder finds in any capitals.
 */
bool areTwoNames(const FilePath &left, const FilePath &right)
{
    const auto leftFolder = stateOf(QString::fromUtf8(left.folder()));
    const auto rightFolder = stateOf(QString::fromUtf8(right.folder()));
    return leftFolder && rightFolder &&
           (leftFolder->identity != rightFolder->identity || left.name() != right.name()) && isListed(left) &&
           isListed(right);
}

bool isSecondName(const FilePath &original, const FilePath &copy)
{
    const auto kept = aboutName(original);
    const auto second = aboutName(copy);
    if (!kept || !second || !areTwoNames(original, copy))
        return false;
    if (isSameFile(*kept, *second))
        return true;
    if (S_ISLNK(second->st_mode)) {
        struct stat keptFile = {};
        struct stat secondFile = {};
        return S_ISLNK(kept->st_mode) && ::stat(original.system(), &keptFile) == 0 &&
               ::stat(copy.system(), &secondFile) == 0 && isSameFile(keptFile, secondFile);
    }
    return isEmptyFile(copy.bytes()) || hasSameContent(SourceFile(original), SourceFile(copy));
}

} // namespace

void clearUnfinishedCopies(const QString &folder)
{
    for (const QByteArray &copy : madeTo(CopyName, folder)) {
        if (!isWorkedAt(copy))
            ::unlink(copy.constData());
    }
}

void clearSecondName(const QString &original, const QString &copy)
{
    try {
        const FilePath second = FilePath::ofSource(copy);
        if (isSecondName(FilePath::ofSource(original), second) && ::unlink(second.system()) == 0)
            syncFolder(second.folder());
    } catch (const dao::DaoError &) {
        // What can't be read can't be told from another song.
    }
}

void restoreSpelling(const QString &target)
{
    try {
        const FilePath to = FilePath::ofTarget(target);
        std::vector<QByteArray> songs;
        for (const QByteArray &file : madeTo(BetweenName, QString::fromUtf8(to.folder()))) {
            if (isEmptyFile(file))
                ::unlink(file.constData());
            else
                songs.push_back(file);
        }
        if (songs.size() == 1 && renameKeeping(songs.front(), to.bytes()) == 0)
            syncFolder(to.folder());
    } catch (const dao::DaoError &) {
        // No file can bear that name.
    }
}

} // namespace shell
