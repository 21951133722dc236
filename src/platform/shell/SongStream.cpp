// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/SongStream.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

constexpr qsizetype HeadSize = 16 * 1024;
constexpr qsizetype SmallestWindow = 4 * 1024;
constexpr qsizetype LargestWindow = 64 * 1024;

// A tag with its cover stands in front; nothing else is read in large pieces.
constexpr qsizetype LargestFirstBlock = 16 << 20;
constexpr qsizetype LargestBlock = 4 << 20;

// Few large pieces are a tag; many small ones are a search for something that isn't there.
constexpr qint64 AllowanceForSearch = 4 << 20;
constexpr qint64 AllowanceForPieces = 64 << 20;
constexpr qsizetype SmallestPiece = 16 * 1024;
constexpr qint64 CostOfCall = 64;
// A loop that doesn't notice the end of the file still has to stop.
constexpr qint64 CallsPastAllowance = 5'000'000;

int openForReading(const QByteArray &path)
{
    // Without O_NONBLOCK the opening of a pipe would wait for a writer.
    const int fd = ::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (fd < 0)
        throw Unreadable(QString::fromLocal8Bit(std::strerror(errno)));
    return fd;
}

/** The memory of a stream that is gone, for the next one of the same thread. */
std::unique_ptr<char[]> &spareMemory()
{
    thread_local std::unique_ptr<char[]> spare;
    return spare;
}

} // namespace

// Fresh memory of that size for every file would have the allocator tidy up after each.
SongStream::Buffer::Buffer() : m_bytes(std::move(spareMemory()))
{
    if (!m_bytes)
        m_bytes = std::make_unique_for_overwrite<char[]>(HeadSize + LargestWindow);
}

SongStream::Buffer::~Buffer()
{
    spareMemory() = std::move(m_bytes);
}

bool SongStream::Window::holds(qint64 offset, qsizetype count) const
{
    return offset >= start && offset + count <= start + length;
}

SongStream::SongStream(const QByteArray &path)
    : m_path(path), m_file(openForReading(path)), m_windowSize(SmallestWindow),
      m_allowanceForSearch(AllowanceForSearch), m_allowanceForPieces(AllowanceForPieces)
{
    struct stat about;
    if (::fstat(m_file.get(), &about) != 0)
        throw Unreadable(QString::fromLocal8Bit(std::strerror(errno)));
    if (!S_ISREG(about.st_mode))
        throw Unreadable(u"Not a regular file"_s);
    m_size = about.st_size;
    m_head.bytes = m_buffer.bytes();
    m_head.length = readInto(m_head.bytes, 0, std::min<qint64>(HeadSize, m_size));
    m_window.bytes = m_head.bytes + HeadSize;
}

SongStream::~SongStream() = default;

QByteArrayView SongStream::head(qsizetype length) const
{
    return {m_head.bytes, std::min(length, m_head.length)};
}

qsizetype SongStream::readInto(char *to, qint64 offset, qsizetype count) const
{
    qsizetype done = 0;
    while (done < count) {
        const ssize_t got =
            ::pread(m_file.get(), to + done, static_cast<size_t>(count - done), offset + done);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            throw Unreadable(QString::fromLocal8Bit(std::strerror(errno)));
        if (got == 0)
            break;
        done += got;
    }
    return done;
}

void SongStream::moveWindow(qint64 offset, qsizetype count)
{
    const bool adjoins = m_window.length > 0 && std::abs(offset - m_window.start) <= 2 * LargestWindow;
    m_windowSize = adjoins ? std::min(2 * m_windowSize, LargestWindow) : SmallestWindow;
    const qsizetype length = std::max(m_windowSize, count);
    qint64 start = offset;
    if (offset < m_window.start && m_window.length > 0)
        start = offset + count - length;
    start = std::max<qint64>(0, std::min(start, m_size - length));
    m_window.length = 0;
    m_window.length = readInto(m_window.bytes, start, std::min<qint64>(length, m_size - start));
    m_window.start = start;
}

bool SongStream::spend(qsizetype count)
{
    qint64 &allowance = count < SmallestPiece ? m_allowanceForSearch : m_allowanceForPieces;
    allowance -= CostOfCall;
    if (allowance < -CallsPastAllowance * CostOfCall)
        throw Unreadable(u"Too much to read"_s);
    if (allowance < count)
        return false;
    allowance -= count;
    return true;
}

QByteArray SongStream::bytesAt(qint64 offset, qsizetype length)
{
    if (length <= LargestWindow)
        return viewAt(offset, length).toByteArray();
    if (offset < 0 || offset >= m_size)
        return {};
    length = std::min<qint64>({length, m_size - offset, LargestBlock});
    if (!spend(length))
        return {};
    QByteArray bytes(length, Qt::Uninitialized);
    bytes.truncate(readInto(bytes.data(), offset, length));
    return bytes;
}

QByteArrayView SongStream::viewAt(qint64 offset, qsizetype length)
{
    if (offset < 0 || offset >= m_size || length <= 0)
        return {};
    length = std::min<qint64>({length, m_size - offset, LargestWindow});
    if (!spend(length))
        return {};
    if (m_head.holds(offset, length))
        return {m_head.bytes + offset, length};
    if (!m_window.holds(offset, length))
        moveWindow(offset, length);
    if (!m_window.holds(offset, length))
        return {};
    return {m_window.bytes + (offset - m_window.start), length};
}

TagLib::ByteVector SongStream::readBlock(unsigned long length)
{
    const qint64 offset = m_position;
    if (offset < 0 || offset >= m_size || length == 0)
        return {};
    const qint64 largest = offset < SmallestWindow ? LargestFirstBlock : LargestBlock;
    const qsizetype count = std::min<qint64>(
        std::min<qint64>(static_cast<qint64>(std::min<unsigned long>(length, LargestFirstBlock)), largest),
        m_size - offset);
    if (!spend(count))
        return {};
    m_position += count;
    if (m_head.holds(offset, count))
        return {m_head.bytes + offset, static_cast<unsigned>(count)};
    if (count > LargestWindow) {
        TagLib::ByteVector block(static_cast<unsigned>(count));
        block.resize(static_cast<unsigned>(readInto(block.data(), offset, count)));
        return block;
    }
    if (!m_window.holds(offset, count))
        moveWindow(offset, count);
    if (!m_window.holds(offset, count))
        return {};
    return {m_window.bytes + (offset - m_window.start), static_cast<unsigned>(count)};
}

void SongStream::seek(long offset, Position from)
{
    if (from == Current)
        offset += m_position;
    else if (from == End)
        offset += m_size;
    // Sizes taken from a damaged file lead anywhere; in front of the file there is nothing to read.
    m_position = std::max(offset, 0L);
}

} // namespace shell
