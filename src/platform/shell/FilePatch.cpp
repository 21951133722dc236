// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/FilePatch.h"

#include "platform/shell/FileSteps.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QIODevice>

#include <algorithm>

namespace shell {

namespace {

constexpr quint8 Form = 1;
constexpr qsizetype ChunkSize = 512 * 1024;

void addOwn(std::vector<FilePatch::Piece> &pieces, const SourceFile &source, qint64 from, qint64 end)
{
    if (from < end)
        pieces.push_back({-1, end - from, source.read(from, end - from)});
}

} // namespace

FilePatch FilePatch::backwards(const SourceFile &source) const
{
    FilePatch back{source.size(), {}, hashAfter, hashBefore};
    qint64 there = 0;
    qint64 here = 0;
    for (const Piece &piece : pieces) {
        // A run that was moved forward has been kept already.
        if (piece.from >= there) {
            addOwn(back.pieces, source, there, piece.from);
            back.pieces.push_back({here, piece.length});
            there = piece.from + piece.length;
        }
        here += piece.length;
    }
    addOwn(back.pieces, source, there, source.size());
    return back;
}

QByteArray FilePatch::packed() const
{
    QByteArray plain;
    QDataStream stream(&plain, QIODevice::WriteOnly);
    stream << size << hashBefore << hashAfter << static_cast<qint64>(pieces.size());
    for (const Piece &piece : pieces)
        stream << piece.from << piece.length << piece.own;
    return static_cast<char>(Form) + qCompress(plain);
}

std::optional<FilePatch> FilePatch::unpacked(const QByteArray &bytes)
{
    if (bytes.isEmpty() || bytes[0] != static_cast<char>(Form))
        return {};
    const QByteArray plain = qUncompress(bytes.sliced(1));
    QDataStream stream(plain);
    FilePatch patch;
    qint64 count = 0;
    stream >> patch.size >> patch.hashBefore >> patch.hashAfter >> count;
    qint64 made = 0;
    for (; count > 0 && stream.status() == QDataStream::Ok; --count) {
        Piece piece;
        stream >> piece.from >> piece.length >> piece.own;
        if (piece.length < 0 || (piece.from < 0 && piece.own.size() != piece.length))
            return {};
        made += piece.length;
        patch.pieces.push_back(std::move(piece));
    }
    const bool whole = stream.status() == QDataStream::Ok && stream.atEnd() && made == patch.size;
    return whole ? std::optional(patch) : std::nullopt;
}

QByteArray wholeHash(const SourceFile &file)
{
    QCryptographicHash hash(QCryptographicHash::Blake2b_256);
    for (qint64 at = 0; at < file.size();) {
        const QByteArray chunk = file.read(at, std::min<qint64>(ChunkSize, file.size() - at));
        if (chunk.isEmpty())
            break;
        hash.addData(chunk);
        at += chunk.size();
    }
    return hash.result();
}

} // namespace shell
