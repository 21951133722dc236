// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/SongDetails.h"

#include "platform/shell/MusicKinds.h"
#include "platform/shell/SongReaders.h"
#include "platform/shell/TagText.h"

#include <limits>
#include <new>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

using Reader = void (*)(SongStream &, SongDetails &);

bool isAdtsHead(QByteArrayView bytes)
{
    return bytes.size() >= 2 && static_cast<uchar>(bytes[0]) == 0xFF &&
           (static_cast<uchar>(bytes[1]) & 0xF6) == 0xF0;
}

/** By what the file begins with, as people rename files; null when that tells nothing. */
Reader readerByHead(SongStream &stream)
{
    const QByteArrayView head = stream.head(16);
    if (head.startsWith("fLaC"))
        return readFlac;
    if (head.startsWith("OggS"))
        return readOgg;
    if ((head.startsWith("RIFF") || head.startsWith("RIFX") || head.startsWith("RF64")) &&
        head.indexOf("WAVE") == 8)
        return readWav;
    if (head.startsWith("FORM") && head.indexOf("AIF") == 8)
        return readAiff;
    if (head.startsWith("DSD "))
        return readDsf;
    if (head.startsWith("\x1A\x45\xDF\xA3"))
        return readMatroska;
    if (head.startsWith("wvpk"))
        return readWavPack;
    if (head.startsWith("MAC "))
        return readMonkeysAudio;
    if (head.startsWith("MPCK") || head.startsWith("MP+"))
        return readMusepack;
    if (head.startsWith("\x30\x26\xB2\x75\x8E\x66\xCF\x11"))
        return readAsf;
    if (head.size() >= 8 && head.sliced(4, 4) == "ftyp")
        return readMp4;
    const QByteArray sound = stream.bytesAt(id3v2Length(stream), 4);
    if (sound.startsWith("fLaC"))
        return readFlac;
    return isAdtsHead(sound) ? readAdts : nullptr;
}

/** Blanks are no value: the next source, or the user, may have one. */
void clearBlanks(SongDetails &details)
{
    for (QString *text :
         {&details.title, &details.artist, &details.albumArtist, &details.album, &details.genre,
          &details.year, &details.track, &details.disc, &details.composer, &details.comment}) {
        if (isBlank(*text))
            text->clear();
    }
}

void read(const QByteArray &path, SongDetails &details)
{
    const MusicKind *const kind = musicKindOf(QString::fromUtf8(path));
    if (kind == nullptr)
        throw Unreadable(u"Not a sound file"_s);
    SongStream stream(path);
    if (stream.size() == 0)
        throw Unreadable(u"The file is empty"_s);
    const Reader byHead = readerByHead(stream);
    (byHead ? byHead : kind->read)(stream, details);
}

} // namespace

qint64 id3v2Length(SongStream &stream, qint64 offset)
{
    return id3v2Length(stream.viewAt(offset, 10));
}

qint64 id3v2Length(QByteArrayView head)
{
    if (head.size() < 10 || !head.startsWith("ID3"))
        return 0;
    qint64 length = 0;
    for (const char c : head.sliced(6))
        length = length << 7 | (static_cast<uchar>(c) & 0x7F);
    const bool hasFooter = head[3] >= 4 && (head[5] & 0x10) != 0;
    return length + (hasFooter ? 20 : 10);
}

void takeProperties(const TagLib::AudioProperties *properties, SongDetails &details)
{
    if (!properties)
        return;
    if (properties->lengthInMilliseconds() > 0)
        details.milliseconds = properties->lengthInMilliseconds();
    if (properties->bitrate() > 0)
        details.bitRate = properties->bitrate();
}

void takeLength(double seconds, qint64 bytes, SongDetails &details)
{
    if (!(seconds > 0) || seconds > std::numeric_limits<int>::max())
        return;
    details.milliseconds = qRound64(seconds * 1000);
    details.bitRate = qRound64(static_cast<double>(bytes) * 8 / 1000 / seconds);
}

SongDetails readSongDetails(const QByteArray &path)
{
    useSystemCodePageInTags();
    SongDetails details;
    try {
        read(path, details);
    } catch (const Unreadable &e) {
        details.failure = e.reason();
    } catch (const std::bad_alloc &) {
        details.failure = u"Too large for the memory"_s;
    } catch (const std::exception &e) {
        details.failure = QString::fromUtf8(e.what());
    }
    clearBlanks(details);
    return details;
}

int songTypeOf(QStringView fileName)
{
    const MusicKind *const kind = musicKindOf(fileName);
    return kind == nullptr ? -1 : static_cast<int>(kind - musicKinds().data());
}

} // namespace shell
