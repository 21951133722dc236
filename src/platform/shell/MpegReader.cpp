// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/AdtsFrames.h"
#include "platform/shell/Id3Fields.h"
#include "platform/shell/SongReaders.h"

#include <taglib/apefooter.h>
#include <taglib/mpegfile.h>
#include <taglib/xingheader.h>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

constexpr qint64 Id3v1Length = 128;
constexpr qsizetype LongestJunk = 16 * 1024;
// TagLib looks for the last frame from the end on, kilobyte by kilobyte.
constexpr qint64 LargestSearched = 4LL << 30;

/** True when the file held a tag of any kind. */
bool takeTags(TagLib::MPEG::File &file, SongStream &stream, SongDetails &details)
{
    const bool hasId3v2 = id3v2Length(stream) > 0 || file.hasID3v2Tag();
    if (hasId3v2)
        fillFromId3v2(stream, *file.ID3v2Tag(true), details);
    if (file.hasAPETag())
        fillFromApe(*file.APETag(), details);
    if (file.hasID3v1Tag())
        fillFromId3v1(*file.ID3v1Tag(), details);
    return hasId3v2 || file.hasAPETag() || file.hasID3v1Tag();
}

/**
 * The same tags where TagLib's own search would go through the whole file for a frame of MPEG sound.
 * An APE tag stands at the end, or in front of the ID3v1 tag there.
 */
bool takeTagsAtEnds(SongStream &stream, SongDetails &details)
{
    BareFile file(stream);
    const qint64 id3v2 = id3v2Length(stream);
    fillFromId3v2(stream, 0, details);
    const qint64 id3v1 = stream.size() - Id3v1Length;
    const bool hasId3v1 = stream.bytesAt(id3v1, 3) == "TAG";
    const qint64 ape = (hasId3v1 ? id3v1 : stream.size()) - TagLib::APE::Footer::size();
    const bool hasApe = stream.bytesAt(ape, 8) == "APETAGEX";
    if (hasApe)
        fillFromApe(TagLib::APE::Tag(&file, ape), details);
    if (hasId3v1)
        fillFromId3v1(TagLib::ID3v1::Tag(&file, id3v1), details);
    return id3v2 > 0 || hasApe || hasId3v1;
}

/** The bytes that a Xing head counts include the frame it lies in, the frames don't. */
void correctBitRate(TagLib::MPEG::File &file, SongDetails &details)
{
    const TagLib::MPEG::XingHeader *xing = file.audioProperties()->xingHeader();
    if (!xing || xing->type() != TagLib::MPEG::XingHeader::Xing || !details.milliseconds)
        return;
    const TagLib::MPEG::Header frame(&file, file.firstFrameOffset(), false);
    if (!frame.isValid() || frame.sampleRate() <= 0)
        return;
    const qint64 sound = qint64(xing->totalSize()) - frame.frameLength();
    const double seconds = double(xing->totalFrames()) * frame.samplesPerFrame() / frame.sampleRate();
    if (sound > 0 && seconds > 0)
        details.bitRate = qRound64(static_cast<double>(sound) * 8 / 1000 / seconds);
}

/** A file that was cut goes on telling how long it was. */
void correctLength(TagLib::MPEG::File &file, SongStream &stream, SongDetails &details)
{
    const TagLib::MPEG::XingHeader *xing = file.audioProperties()->xingHeader();
    if (!xing || !xing->isValid() || xing->totalSize() == 0 || !details.milliseconds)
        return;
    // Some writers count the tags too.
    constexpr double almost = 0.98;
    const double told = xing->totalSize();
    const auto there = static_cast<double>(stream.size() - file.firstFrameOffset());
    if (there > 0 && there + static_cast<double>(file.firstFrameOffset()) < told * almost)
        details.milliseconds = qRound64(static_cast<double>(*details.milliseconds) * there / told);
}

/** TagLib wants a second frame to believe the first; one that ends with the file is as good. */
void takeLoneFrame(TagLib::MPEG::File &file, SongStream &stream, SongDetails &details)
{
    const qint64 start = id3v2Length(stream);
    const qint64 end = stream.size() - (file.hasID3v1Tag() ? Id3v1Length : 0);
    const QByteArray bytes = stream.bytesAt(start, LongestJunk);
    for (qsizetype at = bytes.indexOf('\xFF'); at >= 0; at = bytes.indexOf('\xFF', at + 1)) {
        const TagLib::MPEG::Header frame(&file, start + at, false);
        if (frame.isValid() && start + at + frame.frameLength() == end && frame.sampleRate() > 0) {
            details.bitRate = frame.bitrate();
            details.milliseconds = qint64(frame.samplesPerFrame()) * 1000 / frame.sampleRate();
            return;
        }
    }
}

} // namespace

void readMpeg(SongStream &stream, SongDetails &details)
{
    WantedFrames frames(id3v2Length(stream));
    TagLib::MPEG::File file(&stream, &frames, stream.size() <= LargestSearched);
    const bool tagged = takeTags(file, stream, details);
    takeProperties(file.audioProperties(), details);
    if (file.audioProperties()) {
        correctBitRate(file, details);
        correctLength(file, stream, details);
    }
    if (details.bitRate == 0)
        takeLoneFrame(file, stream, details);
    if (!tagged && details.bitRate == 0)
        throw Unreadable(u"No MPEG sound found"_s);
}

void readAdts(SongStream &stream, SongDetails &details)
{
    const bool tagged = takeTagsAtEnds(stream, details);
    const auto sound = countAdtsFrames(stream, id3v2Length(stream));
    if (sound) {
        details.milliseconds = sound->milliseconds;
        details.bitRate = sound->bitRate;
    } else if (!tagged) {
        throw Unreadable(u"No AAC sound found"_s);
    }
}

} // namespace shell
