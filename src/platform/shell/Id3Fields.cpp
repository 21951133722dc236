// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/Id3Fields.h"

#include "platform/shell/Id3v2Repair.h"
#include "platform/shell/SongReaders.h"
#include "platform/shell/TagText.h"

#include <taglib/commentsframe.h>
#include <taglib/tbytevectorstream.h>
#include <taglib/textidentificationframe.h>

#include <algorithm>
#include <array>
#include <string_view>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

constexpr int MostFrames = 5'000;
constexpr qint64 MostTextBytes = 512 * 1024;
constexpr qint64 LongestUnpacked = 64 * 1024;

bool isWanted(const TagLib::ByteVector &id)
{
    return isWantedFrame(std::string_view(id.data(), id.size()));
}

/** The names of the frames that are read, as TagLib looks them up. */
struct FrameIds
{
    using Id = TagLib::ByteVector;
    Id title{"TIT2"};
    Id artist{"TPE1"};
    Id albumArtist{"TPE2"};
    Id album{"TALB"};
    Id genre{"TCON"};
    std::array<Id, 5> dates{"TDRC", "TDRL", "TDOR", "TYER", "TORY"};
    Id track{"TRCK"};
    Id disc{"TPOS"};
    Id composer{"TCOM"};
    Id beats{"TBPM"};
    Id comment{"COMM"};
};

const FrameIds &frameIds()
{
    static const FrameIds ids;
    return ids;
}

/** Of all frames of that name: some writers make one for each value. */
TagLib::StringList values(const TagLib::ID3v2::Tag &tag, const TagLib::ByteVector &id)
{
    const auto &frames = tag.frameListMap();
    const auto found = frames.find(id);
    TagLib::StringList all;
    if (found == frames.end())
        return all;
    for (const TagLib::ID3v2::Frame *frame : found->second) {
        if (const auto *text = dynamic_cast<const TagLib::ID3v2::TextIdentificationFrame *>(frame))
            all.append(text->fieldList());
    }
    return all;
}

QString firstValue(const TagLib::ID3v2::Tag &tag, const TagLib::ByteVector &id)
{
    const TagLib::StringList list = values(tag, id);
    return list.isEmpty() ? QString() : fromTag(list.front()).trimmed();
}

/** The first comment without a description, else the first that is not a player's own numbers. */
QString comment(const TagLib::ID3v2::Tag &tag)
{
    const auto &frames = tag.frameListMap();
    const auto found = frames.find(frameIds().comment);
    if (found == frames.end())
        return {};
    QString described;
    for (const TagLib::ID3v2::Frame *frame : found->second) {
        const auto *comments = dynamic_cast<const TagLib::ID3v2::CommentsFrame *>(frame);
        if (!comments)
            continue;
        QString text = fromTag(comments->text());
        const QString description = fromTag(comments->description());
        if (description.isEmpty() && !text.isEmpty())
            return text;
        if (described.isEmpty() && !description.startsWith("iTun"_L1))
            described = text;
    }
    return described;
}

void fillFromRepaired(const QByteArray &bytes, SongDetails &details)
{
    TagLib::ByteVectorStream stream({bytes.constData(), static_cast<unsigned>(bytes.size())});
    BareFile file(stream);
    const WantedFrames frames(bytes.size());
    fillFromId3v2(TagLib::ID3v2::Tag(&file, 0, &frames), details);
}

} // namespace

WantedFrames::WantedFrames(qint64 tagLength) : m_unpack(tagLength <= LongestUnpacked)
{}

bool WantedFrames::updateFrame(FrameAccess::FrameHeader *header) const
{
    if (++m_frames > MostFrames) {
        // A frame that reaches past the tag's end is the last one.
        header->setFrameSize(1U << 30);
        return false;
    }
    if (header->compression() && !m_unpack) {
        // Even an unknown frame would be unpacked; without its flags it isn't.
        const unsigned size = header->frameSize();
        header->setData(TagLib::ByteVector("XXXX\0\0\0\0\0\0", 10), 4U);
        header->setFrameSize(size);
        return false;
    }
    if (!isWanted(header->frameID()))
        return false;
    m_textBytes += header->frameSize();
    return m_textBytes <= MostTextBytes && FrameFactory::updateFrame(header);
}

void fillFromId3v2(const TagLib::ID3v2::Tag &tag, SongDetails &details)
{
    const FrameIds &ids = frameIds();
    fill(details.title, joined(values(tag, ids.title)));
    fill(details.artist, joined(values(tag, ids.artist)));
    fill(details.albumArtist, joined(values(tag, ids.albumArtist)));
    fill(details.album, joined(values(tag, ids.album)));
    fill(details.genre, genres(values(tag, ids.genre)));
    for (const TagLib::ByteVector &id : ids.dates)
        fill(details.year, yearOf(firstValue(tag, id)));
    fill(details.track, firstValue(tag, ids.track));
    fill(details.disc, firstValue(tag, ids.disc));
    fill(details.composer, joined(values(tag, ids.composer)));
    fill(details.beats, beatsOf(firstValue(tag, ids.beats)));
    fill(details.comment, comment(tag));
}

bool fillFromId3v2(SongStream &stream, qint64 offset, SongDetails &details)
{
    if (const auto repaired = repairedId3v2(stream, offset)) {
        fillFromRepaired(*repaired, details);
        return true;
    }
    if (stream.bytesAt(offset, 3) != "ID3")
        return false;
    BareFile file(stream);
    const WantedFrames frames(id3v2Length(stream, offset));
    const TagLib::ID3v2::Tag tag(&file, offset, &frames);
    fillFromId3v2(tag, details);
    return !tag.isEmpty();
}

void fillFromId3v2(SongStream &stream, const TagLib::ID3v2::Tag &tag, SongDetails &details)
{
    if (const auto repaired = repairedId3v2(stream, 0))
        fillFromRepaired(*repaired, details);
    else
        fillFromId3v2(tag, details);
}

void fillFromApe(const TagLib::APE::Tag &tag, SongDetails &details)
{
    const TagLib::APE::ItemListMap &items = tag.itemListMap();
    if (items.isEmpty())
        return;
    const auto values = [&items](const char *key) {
        const auto found = items.find(key);
        const bool isText = found != items.end() && found->second.type() == TagLib::APE::Item::Text;
        return isText ? found->second.values() : TagLib::StringList();
    };
    fill(details.title, joined(values("TITLE")));
    fill(details.artist, joined(values("ARTIST")));
    for (const char *key : {"ALBUM ARTIST", "ALBUMARTIST", "ALBUM_ARTIST"})
        fill(details.albumArtist, joined(values(key)));
    fill(details.album, joined(values("ALBUM")));
    fill(details.genre, genres(values("GENRE")));
    for (const char *key : {"YEAR", "DATE"})
        fill(details.year, yearOf(joined(values(key))));
    fill(details.track, joined(values("TRACK")));
    for (const char *key : {"DISC", "DISCNUMBER"})
        fill(details.disc, joined(values(key)));
    fill(details.composer, joined(values("COMPOSER")));
    fill(details.comment, joined(values("COMMENT")));
    fill(details.beats, beatsOf(joined(values("BPM"))));
}

void fillFromId3v1(const TagLib::ID3v1::Tag &tag, SongDetails &details)
{
    fill(details.title, fromTag(tag.title()));
    fill(details.artist, fromTag(tag.artist()));
    fill(details.album, fromTag(tag.album()));
    fill(details.comment, fromTag(tag.comment()));
    if (details.genre.isEmpty())
        details.genre = fromTag(tag.genre());
    // Four digits and one byte: anything else is what a minus sign became.
    if (details.year.isEmpty() && tag.year() > 0 && tag.year() <= 9999)
        details.year = QString::number(tag.year());
    if (tag.track() < 255)
        fill(details.track, trackText(tag.track()));
}

} // namespace shell
