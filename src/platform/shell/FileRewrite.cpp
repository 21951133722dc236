// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/FileRewrite.h"

#include "platform/shell/FileErrors.h"
#include "platform/shell/SystemStamp.h"
#include "platform/store/DaoError.h"

#include <QCryptographicHash>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

constexpr qint64 ChunkSize = 512 * 1024;
constexpr mode_t AllRights = S_ISUID | S_ISGID | S_ISVTX | S_IRWXU | S_IRWXG | S_IRWXO;
constexpr mode_t AnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;

/** The file itself where the path leads over links: the copy is made beside that one. */
FilePath realPath(const QString &path)
{
    const FilePath given = FilePath::ofSource(path);
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(given.system(), nullptr), &std::free);
    return real ? FilePath::ofSource(QString::fromUtf8(real.get())) : given;
}

[[noreturn]] void refuse(const QString &path, const QString &why)
{
    throw dao::DaoError(dao::PathFileAccess, u"Path/File access error: '%1'.  "_s.arg(path) + why);
}

} // namespace

FileRewrite::FileRewrite(const QString &path, const RewriteOptions &options)
    : m_options(options), m_source(realPath(path))
{
    assertMayChange();
}

FileRewrite::~FileRewrite()
{
    dropCopy();
}

FileStamp FileRewrite::stamp() const
{
    return stampFrom(m_source.about());
}

void FileRewrite::assertMayChange() const
{
    const struct stat &about = m_source.about();
    const QString &path = m_source.path().text();
    if ((about.st_mode & AnyWrite) == 0 || ::access(m_source.path().system(), W_OK) != 0)
        refuse(path, u"The file is read-only."_s);
    if (about.st_nlink > 1 && !m_options.splitLinks)
        refuse(path, u"The file has other names (hard links)."_s);
}

void FileRewrite::assertRoom(qint64 bytes) const
{
    // Some file systems reserve what the copy needs beside its content.
    constexpr qint64 beside = 64 * 1024;
    const auto room = freeSpace(QString::fromUtf8(m_source.path().folder()));
    if (room && *room < bytes + beside)
        throwTargetError(ENOSPC, m_source.path().text());
}

void FileRewrite::build(const FilePatch &patch)
{
    assertRoom(patch.size);
    m_copy = std::make_unique<Descriptor>(makeTemporary(m_source.path(), CopyName, &m_copyName));
    if (m_copy->get() < 0) {
        m_copyName.clear();
        throwTargetError(errno, m_source.path().text());
    }
    static_cast<void>(::flock(m_copy->get(), LOCK_EX | LOCK_NB));
    try {
        for (const FilePatch::Piece &piece : patch.pieces) {
            if (piece.from < 0)
                write(piece.own);
            else
                copyRun(piece);
        }
        takeRights();
        if (::fsync(m_copy->get()) != 0)
            throwTargetError(errno, m_source.path().text());
        check(patch);
    } catch (const dao::DaoError &) {
        dropCopy();
        throw;
    }
}

// Within the kernel, and shared where the file system can share.
void FileRewrite::copyRun(const FilePatch::Piece &piece)
{
    off_t from = piece.from;
    qint64 left = piece.length;
    while (left > 0) {
        const ssize_t copied = ::copy_file_range(m_source.descriptor(), &from, m_copy->get(), nullptr,
                                                 static_cast<size_t>(left), 0);
        if (copied < 0 && errno == EINTR)
            continue;
        if (copied < 0 && (errno == ENOSPC || errno == EDQUOT || errno == EIO || errno == EFBIG))
            throwTargetError(errno, m_source.path().text());
        if (copied <= 0)
            break;
        left -= copied;
    }
    while (left > 0) {
        const QByteArray chunk = m_source.read(from, std::min(ChunkSize, left));
        if (chunk.isEmpty())
            assertUnchanged();
        if (chunk.isEmpty())
            refuse(m_source.path().text(), u"The file ends too early."_s);
        write(chunk);
        from += chunk.size();
        left -= chunk.size();
    }
}

void FileRewrite::write(const QByteArray &bytes)
{
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t written =
            ::write(m_copy->get(), bytes.constData() + done, static_cast<size_t>(bytes.size() - done));
        if (written < 0 && errno != EINTR)
            throwTargetError(errno, m_source.path().text());
        done += std::max<ssize_t>(written, 0);
    }
}

void FileRewrite::takeRights() const
{
    const struct stat &about = m_source.about();
    struct stat own = {};
    if (::fstat(m_copy->get(), &own) != 0)
        throwTargetError(errno, m_source.path().text());
    if ((own.st_uid != about.st_uid || own.st_gid != about.st_gid) &&
        ::fchown(m_copy->get(), about.st_uid, about.st_gid) != 0)
        refuse(m_source.path().text(), u"It belongs to another user, and could not be kept so."_s);
    takeAttributes();
    // Sticks know no rights; there the two are the same from the start.
    if ((own.st_mode & AllRights) != (about.st_mode & AllRights))
        static_cast<void>(::fchmod(m_copy->get(), about.st_mode & AllRights));
    if (m_options.keepTimes) {
        const std::array<timespec, 2> times{about.st_atim, about.st_mtim};
        static_cast<void>(::futimens(m_copy->get(), times.data()));
    }
}

void FileRewrite::takeAttributes() const
{
    const ssize_t length = ::flistxattr(m_source.descriptor(), nullptr, 0);
    QByteArray names(std::max<ssize_t>(length, 0), '\0');
    if (length <= 0 ||
        ::flistxattr(m_source.descriptor(), names.data(), static_cast<size_t>(length)) != length)
        return;
    for (const QByteArray &name : names.split('\0')) {
        if (name.isEmpty())
            continue;
        const ssize_t size = ::fgetxattr(m_source.descriptor(), name.constData(), nullptr, 0);
        QByteArray value(std::max<ssize_t>(size, 0), '\0');
        const bool isRead = size >= 0 && ::fgetxattr(m_source.descriptor(), name.constData(), value.data(),
                                                     static_cast<size_t>(size)) == size;
        const bool isKept = isRead && ::fsetxattr(m_copy->get(), name.constData(), value.constData(),
                                                  static_cast<size_t>(size), 0) == 0;
        // The system gives the others to each file as it sees fit.
        if (!isKept && (name.startsWith("user.") || name.startsWith("system.posix_acl")))
            refuse(m_source.path().text(),
                   u"Its attribute %1 could not be kept."_s.arg(QString::fromUtf8(name)));
    }
}

QByteArray FileRewrite::bytesOf(const FilePatch::Piece &piece, qint64 from, qint64 length) const
{
    return piece.from < 0 ? piece.own.sliced(from, length) : m_source.read(piece.from + from, length);
}

void FileRewrite::sum(FilePatch &patch) const
{
    QCryptographicHash hash(QCryptographicHash::Blake2b_256);
    for (const FilePatch::Piece &piece : patch.pieces) {
        for (qint64 done = 0; done < piece.length; done += ChunkSize)
            hash.addData(bytesOf(piece, done, std::min(ChunkSize, piece.length - done)));
    }
    patch.hashAfter = hash.result();
    patch.hashBefore = wholeHash(m_source);
    assertUnchanged();
}

// What the disk holds is compared with what it was made of, byte for byte.
void FileRewrite::check(const FilePatch &patch) const
{
    ::posix_fadvise(m_copy->get(), 0, 0, POSIX_FADV_DONTNEED);
    const SourceFile copy(FilePath::ofSource(QString::fromUtf8(m_copyName)));
    bool same = copy.size() == patch.size;
    qint64 at = 0;
    for (const FilePatch::Piece &piece : patch.pieces) {
        for (qint64 done = 0; same && done < piece.length; done += ChunkSize) {
            const qint64 count = std::min(ChunkSize, piece.length - done);
            const QByteArray written = copy.read(at + done, count);
            same = written.size() == count && written == bytesOf(piece, done, count);
        }
        at += piece.length;
    }
    assertUnchanged();
    if (!same)
        refuse(m_source.path().text(), u"The new version was not read back as it was written."_s);
}

void FileRewrite::assertUnchanged() const
{
    struct stat now = {};
    if (::stat(m_source.path().system(), &now) != 0 || !stampFrom(now).isUnchangedSince(stamp()))
        refuse(m_source.path().text(), u"The file was changed meanwhile by another program."_s);
}

void FileRewrite::takePlace()
{
    assertUnchanged();
    const char *place = m_source.path().system();
    const bool exchanged =
        ::renameat2(AT_FDCWD, m_copyName.constData(), AT_FDCWD, place, RENAME_EXCHANGE) == 0;
    if (exchanged) {
        // The version of before bears the hidden name now: a change at the last moment is still seen.
        struct stat old = {};
        if (::lstat(m_copyName.constData(), &old) == 0 && !stampFrom(old).isUnchangedSince(stamp()) &&
            ::renameat2(AT_FDCWD, m_copyName.constData(), AT_FDCWD, place, RENAME_EXCHANGE) == 0)
            refuse(m_source.path().text(), u"The file was changed meanwhile by another program."_s);
        ::unlink(m_copyName.constData());
    } else if (std::rename(m_copyName.constData(), place) != 0) {
        throwTargetError(errno, m_source.path().text());
    }
    m_copyName.clear();
    syncFolder(m_source.path().folder());
}

void FileRewrite::dropCopy()
{
    if (!m_copyName.isEmpty())
        ::unlink(m_copyName.constData());
    m_copyName.clear();
    m_copy.reset();
}

} // namespace shell
