// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/PieceStream.h"

#include <algorithm>

namespace shell {

namespace {

/** Beside the file's own bytes, some times over; a call counts as a page. */
constexpr qint64 Allowance = 64LL * 1024 * 1024;
constexpr qint64 TimesOver = 4;
constexpr qint64 CostOfCall = 256;

QByteArray toBytes(const TagLib::ByteVector &data)
{
    return {data.data(), static_cast<qsizetype>(data.size())};
}

} // namespace

PieceStream::PieceStream(const SourceFile &source)
    : m_source(source), m_size(source.size()), m_allowance(Allowance + TimesOver * source.size())
{
    if (m_size > 0)
        m_pieces[0] = {0, m_size};
}

FilePatch PieceStream::patch() const
{
    FilePatch patch;
    patch.size = m_size;
    for (const auto &[at, piece] : m_pieces) {
        FilePatch::Piece *last = patch.pieces.empty() ? nullptr : &patch.pieces.back();
        const bool goesOn =
            last &&
            (piece.from < 0 ? last->from < 0 : last->from + last->length == piece.from && last->from >= 0);
        if (!goesOn) {
            patch.pieces.push_back(piece);
            continue;
        }
        last->length += piece.length;
        last->own += piece.own;
    }
    return patch;
}

QByteArray PieceStream::bytesAt(qint64 offset, qint64 length)
{
    length = std::min(length, size() - offset);
    if (offset < 0 || length <= 0)
        return {};
    m_allowance -= length + CostOfCall;
    if (m_allowance < 0)
        return {};
    const qint64 from = offset + m_front;
    QByteArray bytes;
    bytes.reserve(length);
    for (auto piece = std::prev(m_pieces.upper_bound(from)); piece != m_pieces.end() && bytes.size() < length;
         ++piece) {
        const qint64 within = from + bytes.size() - piece->first;
        const qint64 count = std::min(length - bytes.size(), piece->second.length - within);
        const QByteArray run = piece->second.from < 0 ? piece->second.own.sliced(within, count)
                                                      : m_source.read(piece->second.from + within, count);
        bytes += run;
        // Somebody has cut the file meanwhile.
        if (run.size() < count)
            break;
    }
    return bytes;
}

void PieceStream::replace(qint64 offset, qint64 length, const QByteArray &bytes)
{
    offset = std::clamp<qint64>(offset, 0, size());
    splice(offset + m_front, std::clamp<qint64>(length, 0, size() - offset), bytes);
}

void PieceStream::setMargins(qint64 front, qint64 back)
{
    m_front = front;
    m_back = back;
    m_position = 0;
}

PieceStream::Pieces::iterator PieceStream::cutAt(qint64 offset)
{
    const auto next = m_pieces.lower_bound(offset);
    if ((next != m_pieces.end() && next->first == offset) || offset >= m_size)
        return next;
    auto &[at, piece] = *std::prev(next);
    const qint64 kept = offset - at;
    FilePatch::Piece rest{piece.from < 0 ? -1 : piece.from + kept, piece.length - kept, piece.own.mid(kept)};
    piece.length = kept;
    piece.own.truncate(kept);
    return m_pieces.emplace_hint(next, offset, std::move(rest));
}

void PieceStream::splice(qint64 offset, qint64 length, const QByteArray &bytes)
{
    const auto begin = cutAt(offset);
    // The second cut may be in the very piece that the first one made.
    const auto end = length > 0 ? cutAt(offset + length) : begin;
    m_pieces.erase(length > 0 ? cutAt(offset) : begin, end);
    if (const qint64 by = bytes.size() - length; by != 0)
        shiftFrom(offset + length, by);
    if (!bytes.isEmpty())
        m_pieces[offset] = {-1, bytes.size(), bytes};
}

void PieceStream::shiftFrom(qint64 offset, qint64 by)
{
    std::vector<Pieces::node_type> moved;
    for (auto piece = m_pieces.lower_bound(offset); piece != m_pieces.end();)
        moved.push_back(m_pieces.extract(piece++));
    for (Pieces::node_type &piece : moved) {
        piece.key() += by;
        m_pieces.insert(m_pieces.end(), std::move(piece));
    }
    m_size += by;
}

TagLib::ByteVector PieceStream::readBlock(unsigned long length)
{
    const qint64 wanted = static_cast<qint64>(std::min<unsigned long>(length, 1UL << 30));
    const QByteArray bytes = bytesAt(m_position, wanted);
    m_position += bytes.size();
    return {bytes.constData(), static_cast<unsigned>(bytes.size())};
}

void PieceStream::writeBlock(const TagLib::ByteVector &data)
{
    replace(m_position, data.size(), toBytes(data));
    m_position += data.size();
}

void PieceStream::insert(const TagLib::ByteVector &data, unsigned long start, unsigned long replaced)
{
    replace(static_cast<qint64>(start), static_cast<qint64>(replaced), toBytes(data));
}

void PieceStream::removeBlock(unsigned long start, unsigned long length)
{
    replace(static_cast<qint64>(start), static_cast<qint64>(length), {});
}

void PieceStream::seek(long offset, Position from)
{
    if (from == Current)
        offset += m_position;
    else if (from == End)
        offset += size();
    m_position = std::max(offset, 0L);
}

void PieceStream::truncate(long length)
{
    replace(length, size(), {});
}

} // namespace shell
