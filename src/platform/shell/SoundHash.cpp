// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/SoundHash.h"

#include "platform/shell/Mp4Atoms.h"
#include "platform/shell/SongReaders.h"

#include <QCryptographicHash>

#include <algorithm>

namespace shell {

namespace {

constexpr qint64 Piece = 16 * 1024;
constexpr qsizetype HashBytes = 10;

/** Where the sound stands in the file. */
struct Range
{
    qint64 begin = 0;
    qint64 end = 0;
    [[nodiscard]] qint64 length() const { return std::max<qint64>(end - begin, 0); }
};

QString text(const QCryptographicHash &hash)
{
    return QString::fromLatin1(hash.result().first(HashBytes).toHex());
}

QString hashOf(SongStream &stream, const Range &sound)
{
    if (sound.length() == 0)
        return {};
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(QByteArray::number(sound.length()));
    const qint64 piece = std::min(Piece, sound.length());
    for (const qint64 from : {sound.begin, sound.begin + (sound.length() - piece) / 2, sound.end - piece})
        hash.addData(stream.bytesAt(from, piece));
    return text(hash);
}

/** Tags that stand behind the sound: ID3v1, APE and Lyrics3, in whatever order. */
qint64 endBeforeTags(SongStream &stream, qint64 begin)
{
    constexpr qint64 Id3v1 = 128;
    constexpr qint64 ApeFoot = 32;
    constexpr qint64 LyricsFoot = 15;
    qint64 end = stream.size();
    for (bool more = true; more;) {
        more = false;
        if (end - begin >= Id3v1 && stream.bytesAt(end - Id3v1, 3) == "TAG") {
            end -= Id3v1;
            more = true;
        }
        const QByteArray foot = stream.bytesAt(std::max(begin, end - ApeFoot), ApeFoot);
        if (foot.size() == ApeFoot && foot.startsWith("APETAGEX")) {
            const auto length = qint64(qFromLittleEndian<quint32>(foot.constData() + 12));
            const bool hasHead = (qFromLittleEndian<quint32>(foot.constData() + 20) & 0x80000000U) != 0;
            const qint64 whole = length + (hasHead ? ApeFoot : 0);
            if (length < ApeFoot || whole > end - begin)
                break;
            end -= whole;
            more = true;
        } else if (foot.endsWith("LYRICS200")) {
            const qint64 whole = foot.last(LyricsFoot).first(6).toLongLong() + LyricsFoot;
            if (whole <= LyricsFoot || whole > end - begin)
                break;
            end -= whole;
            more = true;
        }
    }
    return end;
}

QString flacSum(SongStream &stream, qint64 begin)
{
    constexpr qint64 Head = 4;
    constexpr qint64 SumPlace = 18;
    const QByteArray sum = stream.bytesAt(begin + 2 * Head + SumPlace, 16);
    return sum.size() == 16 && sum != QByteArray(16, '\0') ? QString::fromLatin1(sum.toHex()) : QString();
}

/** Behind the blocks that describe it. */
Range flacFrames(SongStream &stream, qint64 begin)
{
    qint64 at = begin + 4;
    for (bool last = false; !last;) {
        const QByteArray head = stream.bytesAt(at, 4);
        if (head.size() < 4)
            return {};
        last = (static_cast<uchar>(head[0]) & 0x80) != 0;
        at += 4 + (qFromBigEndian<quint32>(head.constData()) & 0xFFFFFF);
    }
    return {at, endBeforeTags(stream, at)};
}

/** The payload of the pages that carry sound: those in front hold the comments and all are numbered anew when
 * these are written. */
QString oggHash(SongStream &stream)
{
    constexpr qint64 PageHead = 27;
    constexpr int MostPages = 4000;
    QCryptographicHash hash(QCryptographicHash::Sha1);
    qint64 taken = 0;
    qint64 at = 0;
    for (int pages = 0; pages < MostPages && taken < 2 * Piece; ++pages) {
        const QByteArray head = stream.bytesAt(at, PageHead);
        if (head.size() < PageHead || !head.startsWith("OggS"))
            break;
        const qint64 segments = static_cast<uchar>(head[26]);
        qint64 length = 0;
        for (const char segment : stream.bytesAt(at + PageHead, segments))
            length += static_cast<uchar>(segment);
        const auto granule = qFromLittleEndian<qint64>(head.constData() + 6);
        const qint64 payload = at + PageHead + segments;
        if (granule > 0) {
            hash.addData(head.sliced(6, 8));
            hash.addData(stream.bytesAt(payload, length));
            taken += length;
        }
        at = payload + length;
    }
    const qint64 tail = std::max<qint64>(0, stream.size() - 4 * Piece);
    const QByteArray end = stream.bytesAt(tail, 4 * Piece);
    if (const qsizetype last = end.lastIndexOf("OggS"); last >= 0)
        hash.addData(end.sliced(last).mid(6, 8));
    return taken > 0 ? text(hash) : QString();
}

Range largestAtom(SongStream &stream)
{
    const Mp4Atoms atoms(stream);
    Range found;
    for (const int place : atoms.within(Mp4Atoms::Nowhere, atomName("mdat"))) {
        const Range one{atoms.at(place).content, atoms.at(place).end};
        if (one.length() > found.length())
            found = one;
    }
    return found;
}

/** The chunk of that name in a file made of chunks. */
Range chunk(SongStream &stream, const char *name, bool bigEndian)
{
    for (qint64 at = 12; at + 8 <= stream.size();) {
        const QByteArray head = stream.bytesAt(at, 8);
        if (head.size() < 8)
            break;
        const qint64 length = bigEndian ? qFromBigEndian<quint32>(head.constData() + 4)
                                        : qFromLittleEndian<quint32>(head.constData() + 4);
        if (head.startsWith(name))
            return {at + 8, std::min(at + 8 + length, stream.size())};
        at += 8 + length + (length & 1);
    }
    return {};
}

/** Behind the header object. */
Range asfData(SongStream &stream)
{
    const QByteArray head = stream.bytesAt(16, 8);
    const qint64 begin = head.size() == 8 ? qFromLittleEndian<qint64>(head.constData()) : 0;
    return begin > 0 && begin < stream.size() ? Range{begin, stream.size()} : Range{};
}

QString hashOf(SongStream &stream)
{
    const QByteArrayView head = stream.head(12);
    if (head.startsWith("OggS"))
        return oggHash(stream);
    if (head.startsWith("RIFF") || head.startsWith("RF64"))
        return hashOf(stream, chunk(stream, "data", false));
    if (head.startsWith("RIFX"))
        return hashOf(stream, chunk(stream, "data", true));
    if (head.startsWith("FORM"))
        return hashOf(stream, chunk(stream, "SSND", true));
    if (head.startsWith("\x30\x26\xB2\x75"))
        return hashOf(stream, asfData(stream));
    if (head.size() >= 8 && head.sliced(4, 4) == "ftyp")
        return hashOf(stream, largestAtom(stream));
    const qint64 begin = id3v2Length(stream);
    if (stream.bytesAt(begin, 4) == "fLaC") {
        const QString sum = flacSum(stream, begin);
        return sum.isEmpty() ? hashOf(stream, flacFrames(stream, begin)) : sum;
    }
    return hashOf(stream, Range{begin, endBeforeTags(stream, begin)});
}

} // namespace

QString soundHash(const QByteArray &path)
{
    try {
        SongStream stream(path);
        return stream.size() > 0 ? hashOf(stream) : QString();
    } catch (const std::exception &) {
        return {};
    }
}

} // namespace shell
