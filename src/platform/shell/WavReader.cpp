// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/Id3Fields.h"
#include "platform/shell/SongReaders.h"
#include "platform/shell/TagText.h"

#include <taglib/infotag.h>
#include <taglib/mpegheader.h>

#include <QtEndian>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

constexpr qint64 ChunkHead = 8;
constexpr qint64 FirstChunk = 12;
constexpr qint64 LongestInfo = 256 * 1024;
constexpr int MpegLayer3 = 0x55;

/** The RIFF chunks, in whatever order; sizes beyond the file's end are cut there. */
struct WavChunks
{
    int format = 0;
    qint64 bytesPerSecond = 0;
    qint64 sound = -1;
    qint64 soundBytes = 0;
    qint64 id3 = -1;
    qint64 id3Bytes = 0;
    qint64 info = -1;
    qint64 infoBytes = 0;
};

void takeChunk(SongStream &stream, QByteArrayView name, qint64 content, qint64 length, WavChunks &chunks)
{
    if (name == "fmt ") {
        const QByteArray format = stream.bytesAt(content, 16);
        if (format.size() == 16) {
            chunks.format = qFromLittleEndian<quint16>(format.constData());
            chunks.bytesPerSecond = qFromLittleEndian<quint32>(format.constData() + 8);
        }
    } else if (name == "data" && chunks.sound < 0) {
        chunks.sound = content;
        chunks.soundBytes = length;
    } else if (name == "LIST" && stream.bytesAt(content, 4) == "INFO") {
        chunks.info = content;
        chunks.infoBytes = length;
    } else if (name == "id3 " || name == "ID3 ") {
        chunks.id3 = content;
        chunks.id3Bytes = length;
    }
}

WavChunks chunksOf(SongStream &stream)
{
    WavChunks chunks;
    for (qint64 offset = FirstChunk; offset < stream.size();) {
        const QByteArray head = stream.bytesAt(offset, ChunkHead);
        if (head.size() < ChunkHead || head.startsWith('\0'))
            break;
        const qint64 content = offset + ChunkHead;
        const qint64 length = qFromLittleEndian<quint32>(head.constData() + 4);
        takeChunk(stream, head.first(4), content, std::min(length, stream.size() - content), chunks);
        offset = content + length + (length & 1);
    }
    return chunks;
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
    const QByteArrayView head = stream.head(FirstChunk);
    if (head.size() < FirstChunk || !head.endsWith("WAVE"))
        throw Unreadable(u"Not a WAV file"_s);
    const WavChunks chunks = chunksOf(stream);
    BareFile file(stream);
    if (chunks.id3 >= 0) {
        const WantedFrames frames(chunks.id3Bytes);
        fillFromId3v2(TagLib::ID3v2::Tag(&file, chunks.id3, &frames), details);
    }
    if (chunks.info >= 0) {
        const QByteArray info = stream.bytesAt(chunks.info, std::min(chunks.infoBytes, LongestInfo));
        fillFromInfo(TagLib::RIFF::Info::Tag({info.constData(), static_cast<unsigned>(info.size())}),
                     details);
    }
    if (const qint64 rate = bytesPerSecond(file, chunks); rate > 0) {
        details.bitRate = qRound64(static_cast<double>(rate) * 8 / 1000);
        if (const qint64 length = (chunks.soundBytes * 1000 + rate / 2) / rate; length > 0)
            details.milliseconds = length;
    } else if (chunks.sound < 0) {
        throw Unreadable(u"Damaged WAV file"_s);
    }
}

} // namespace shell
