// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/FileSteps.h"

#include "platform/shell/Directory.h"
#include "platform/shell/FileErrors.h"
#include "platform/store/DaoError.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

constexpr qsizetype ChunkSize = 512 * 1024;

/** ".part" and ".song". */
constexpr int TemporaryEnding = 5;

constexpr mode_t Rights = S_IRWXU | S_IRWXG | S_IRWXO;

/** Empty for a text that the system would take for another name. */
QByteArray exactBytes(const QString &path)
{
    QByteArray bytes = path.toUtf8();
    if (bytes.contains('\0') || QString::fromUtf8(bytes) != path)
        bytes.clear();
    return bytes;
}

bool isSameTime(const timespec &left, const timespec &right)
{
    return left.tv_sec == right.tv_sec && left.tv_nsec == right.tv_nsec;
}

/** Reads until @p length or the end; -1 on failure. */
qsizetype readAt(int fd, char *to, qint64 from, qsizetype length)
{
    qsizetype done = 0;
    while (done < length) {
        const ssize_t got = ::pread(fd, to + done, static_cast<size_t>(length - done), from + done);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            return got < 0 ? -1 : done;
        done += got;
    }
    return done;
}

QByteArray bytesAt(int fd, qint64 from, qsizetype length, const FilePath &path)
{
    QByteArray bytes(length, Qt::Uninitialized);
    const qsizetype got = readAt(fd, bytes.data(), from, length);
    if (got < 0)
        throwFileError(errno, path.text());
    bytes.truncate(got);
    return bytes;
}

} // namespace

FilePath FilePath::ofSource(const QString &path)
{
    QByteArray bytes = exactBytes(path);
    if (bytes.isEmpty())
        throwFileError(ENOENT, path);
    return {path, bytes};
}

FilePath FilePath::ofTarget(const QString &path)
{
    QByteArray bytes = exactBytes(path);
    if (bytes.isEmpty())
        throwTargetError(EINVAL, path);
    return {path, bytes};
}

QByteArray FilePath::folder() const
{
    const qsizetype end = m_bytes.lastIndexOf('/');
    return end < 0 ? QByteArray("./") : m_bytes.first(end + 1);
}

QString FilePath::name() const
{
    return m_text.mid(m_text.lastIndexOf(u'/') + 1);
}

// Opened without waiting: a pipe of that name would wait for its other end for ever.
SourceFile::SourceFile(const FilePath &path)
    : m_path(path), m_file(::open(path.system(), O_RDONLY | O_CLOEXEC | O_NONBLOCK))
{
    if (m_file.get() < 0 || ::fstat(m_file.get(), &m_about) != 0)
        throwFileError(errno, path.text());
    if (!S_ISREG(m_about.st_mode))
        throwFileError(ENOENT, path.text());
}

QByteArray SourceFile::read(qint64 from, qsizetype length) const
{
    return bytesAt(m_file.get(), from, length, m_path);
}

bool SourceFile::hasChanged() const
{
    struct stat now = {};
    return ::fstat(m_file.get(), &now) != 0 || now.st_size != m_about.st_size ||
           !isSameTime(now.st_mtim, m_about.st_mtim);
}

int makeTemporary(const FilePath &target, const char *pattern, QByteArray *name)
{
    *name = target.folder() + pattern;
    return ::mkostemps(name->data(), TemporaryEnding, O_CLOEXEC);
}

TemporaryCopy::TemporaryCopy(FilePath target)
    : m_target(std::move(target)), m_file(makeTemporary(m_target, CopyName, &m_name))
{
    if (m_file.get() < 0)
        throwTargetError(errno, m_target.text());
    // Tells it from one whose maker was killed. Where nothing can be locked, it looks abandoned to others.
    static_cast<void>(::flock(m_file.get(), LOCK_EX | LOCK_NB));
}

TemporaryCopy::~TemporaryCopy()
{
    if (!m_named && m_file.get() >= 0)
        ::unlink(m_name.constData());
}

bool TemporaryCopy::fill(const SourceFile &source, const CopyProgress &progress)
{
    qint64 done = 0;
    for (;;) {
        if (progress && !progress(done, source.size()))
            return false;
        const QByteArray chunk = source.read(done, ChunkSize);
        if (chunk.isEmpty())
            break;
        write(chunk);
        done += chunk.size();
    }
    if (done != source.size() || source.hasChanged())
        throw dao::DaoError(dao::PathFileAccess, u"Path/File access error: '%1'.  The file changed while it "
                                                 "was being copied."_s.arg(source.path().text()));
    return true;
}

void TemporaryCopy::write(const QByteArray &bytes)
{
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t written =
            ::write(m_file.get(), bytes.constData() + done, static_cast<size_t>(bytes.size() - done));
        if (written < 0 && errno != EINTR)
            throwTargetError(errno, m_target.text());
        done += std::max<ssize_t>(written, 0);
    }
}

void TemporaryCopy::finish(const SourceFile &source)
{
    const std::array<timespec, 2> times{source.about().st_atim, source.about().st_mtim};
    // Sticks know neither rights nor exact times; the file is worth having all the same.
    static_cast<void>(::fchmod(m_file.get(), source.about().st_mode & Rights));
    static_cast<void>(::futimens(m_file.get(), times.data()));
    if (::fsync(m_file.get()) != 0)
        throwTargetError(errno, m_target.text());
}

void TemporaryCopy::compare(const SourceFile &source) const
{
    // What the disk holds is to be compared, not what waits in memory for it.
    ::posix_fadvise(m_file.get(), 0, 0, POSIX_FADV_DONTNEED);
    for (qint64 at = 0; at <= source.size(); at += ChunkSize) {
        if (bytesAt(m_file.get(), at, ChunkSize, m_target) != source.read(at, ChunkSize))
            throw dao::DaoError(dao::PathFileAccess, u"Path/File access error: '%1'.  The copy differs from "
                                                     "its original."_s.arg(m_target.text()));
    }
}

void TemporaryCopy::takeName(bool overwrite)
{
    int error = 0;
    if (!overwrite)
        error = renameKeeping(m_name, m_target.bytes());
    else if (std::rename(m_name.constData(), m_target.system()) != 0)
        error = errno;
    if (error != 0)
        throwTargetError(error, m_target.text());
    m_named = true;
    syncFolder(m_target.folder());
}

std::optional<struct stat> aboutName(const FilePath &path)
{
    struct stat about = {};
    if (::lstat(path.system(), &about) != 0)
        return {};
    return about;
}

bool isSameFile(const struct stat &left, const struct stat &right)
{
    return left.st_dev == right.st_dev && left.st_ino == right.st_ino;
}

bool isListed(const FilePath &path)
{
    const auto listing = listFolder(QString::fromUtf8(path.folder()));
    if (!listing)
        return false;
    const auto entries = entriesOf(*listing, nullptr);
    const QString name = path.name();
    return std::ranges::any_of(entries, [&](const Entry &entry) { return entry.name == name; });
}

void syncFolder(const QByteArray &folder)
{
    // Where folders can't be synced, the new name is as safe as that file system makes it.
    const Descriptor handle(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (handle.get() >= 0)
        ::fsync(handle.get());
}

} // namespace shell
