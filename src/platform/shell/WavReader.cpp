// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/Id3Fields.h"
#include "platform/shell/IffChunks.h"
#include "platform/shell/SongReaders.h"
#include "platform/shell/TagText.h"

#include <taglib/infotag.h>
#include <taglib/mpegheader.h>

#include <QtEndian>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

constexpr qint64 LongestInfo = 256 * 1024;
constexpr int MpegLayer3 = 0x55;
/** Of a broadcaster's chunk: texts, day and time. */
constexpr qsizetype BroadcastHead = 338;

/** The RIFF chunks, in whatever order; sizes beyond the file's end are cut there. */
struct WavChunks
{
    bool bigEndian = false;
    int format = 0;
    qint64 bytesPerSecond = 0;
    qint64 sound = -1;
    qint64 soundBytes = 0;
    qint64 id3 = -1;
    qint64 info = -1;
    qint64 infoBytes = 0;
    qint64 broadcast = -1;
};

void takeFormat(const QByteArray &format, WavChunks &chunks)
{
    const auto two = [&](qsizetype at) {
        const char *const bytes = format.constData() + at;
        return chunks.bigEndian ? qFromBigEndian<quint16>(bytes) : qFromLittleEndian<quint16>(bytes);
    };
    const auto four = [&](qsizetype at) -> qint64 {
        const char *const bytes = format.constData() + at;
        return chunks.bigEndian ? qFromBigEndian<quint32>(bytes) : qFromLittleEndian<quint32>(bytes);
    };
    chunks.format = two(0);
    chunks.bytesPerSecond = four(8);
    // Left open, it follows from the samples and their size where these are not packed.
    constexpr std::array plain{1, 3, 6, 7, 0xFFFE};
    if (chunks.bytesPerSecond == 0 && std::ranges::find(plain, chunks.format) != plain.end())
        chunks.bytesPerSecond = four(4) * two(12);
}

void takeChunk(SongStream &stream, QByteArrayView name, qint64 content, qint64 length, WavChunks &chunks)
{
    if (name == "fmt ") {
        const QByteArray format = stream.bytesAt(content, 16);
        if (format.size() == 16)
            takeFormat(format, chunks);
    } else if (name == "data" && chunks.sound < 0) {
        chunks.sound = content;
        chunks.soundBytes = length;
    } else if (name == "LIST" && stream.bytesAt(content, 4) == "INFO") {
        chunks.info = content;
        chunks.infoBytes = length;
    } else if (name == "id3 " || name == "ID3 ") {
        chunks.id3 = content;
    } else if (name == "bext") {
        chunks.broadcast = content;
    }
}

WavChunks chunksOf(SongStream &stream)
{
    WavChunks chunks;
    chunks.bigEndian = stream.head(IffHead).startsWith("RIFX");
    walkChunks(stream, chunks.bigEndian, [&](QByteArrayView name, qint64 content, qint64 length) {
        takeChunk(stream, name, content, length, chunks);
    });
    return chunks;
}

/** The list as the other byte order has it. */
QByteArray turned(QByteArray info)
{
    constexpr qsizetype head = 8;
    for (qsizetype at = 4; at + head <= info.size();) {
        std::reverse(info.begin() + at + 4, info.begin() + at + head);
        const qint64 length = qFromLittleEndian<quint32>(info.constData() + at + 4);
        at = static_cast<qsizetype>(std::min<qint64>(info.size(), at + head + length + (length & 1)));
    }
    return info;
}

/** What broadcasters write: a description, and the day of the recording behind those who made it. */
void fillFromBroadcast(const QByteArray &chunk, SongDetails &details)
{
    constexpr qsizetype description = 256;
    constexpr qsizetype day = 320;
    fill(details.comment, fromTagBytes(chunk.first(std::min(description, chunk.size()))).trimmed());
    fill(details.year, yearOf(fromTagBytes(chunk.mid(day, 10))));
}

void fillFromInfo(const TagLib::RIFF::Info::Tag &tag, SongDetails &details)
{
    const auto text = [&tag](const char *id) { return fromTag(tag.fieldText(id)); };
    fill(details.title, text("INAM"));
    fill(details.artist, text("IART"));
    fill(details.album, text("IPRD"));
    fill(details.genre, genreName(text("IGNR")));
    fill(details.year, yearOf(text("ICRD")));
    for (const char *id : {"IPRT", "ITRK", "TRCK"})
        fill(details.track, text(id));
    fill(details.composer, text("IMUS"));
    fill(details.comment, text("ICMT"));
    fill(details.beats, beatsOf(text("IBPM")));
}

/** Writers of MPEG sound in WAV leave the rate out of the format; the first frame tells it. */
qint64 bytesPerSecond(TagLib::File &file, const WavChunks &chunks)
{
    if (chunks.bytesPerSecond > 0 || chunks.format != MpegLayer3 || chunks.sound < 0)
        return chunks.bytesPerSecond;
    const TagLib::MPEG::Header frame(&file, chunks.sound, false);
    return frame.isValid() ? qint64(frame.bitrate()) * 1000 / 8 : 0;
}

} // namespace

void readWav(SongStream &stream, SongDetails &details)
{
    const QByteArrayView head = stream.head(IffHead);
    if (head.size() < IffHead || !head.endsWith("WAVE"))
        throw Unreadable(u"Not a WAV file"_s);
    const WavChunks chunks = chunksOf(stream);
    BareFile file(stream);
    if (chunks.id3 >= 0)
        fillFromId3v2(stream, chunks.id3, details);
    if (chunks.info >= 0) {
        const QByteArray stored = stream.bytesAt(chunks.info, std::min(chunks.infoBytes, LongestInfo));
        const QByteArray info = chunks.bigEndian ? turned(stored) : stored;
        fillFromInfo(TagLib::RIFF::Info::Tag({info.constData(), static_cast<unsigned>(info.size())}),
                     details);
    }
    if (chunks.broadcast >= 0)
        fillFromBroadcast(stream.bytesAt(chunks.broadcast, BroadcastHead), details);
    if (const qint64 rate = bytesPerSecond(file, chunks); rate > 0) {
        details.bitRate = qRound64(static_cast<double>(rate) * 8 / 1000);
        if (const qint64 length = (chunks.soundBytes * 1000 + rate / 2) / rate; length > 0)
            details.milliseconds = length;
    } else if (chunks.sound < 0) {
        throw Unreadable(u"Damaged WAV file"_s);
    }
}

} // namespace shell
