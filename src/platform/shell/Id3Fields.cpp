// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/Id3Fields.h"

#include "platform/shell/SongReaders.h"
#include "platform/shell/TagText.h"

#include <taglib/commentsframe.h>
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

// The names of versions 2 and 3 stand beside those of version 4.
constexpr std::array<std::string_view, 31> WantedIds{
    "TIT2", "TPE1", "TALB", "TCON", "TDRC", "TDOR", "TDRL", "TRCK", "TCOM", "TBPM", "COMM",
    "TYER", "TORY", "TDAT", "TIME", "TT2",  "TP1",  "TAL",  "TCO",  "TYE",  "TOR",  "TRK",
    "TCM",  "TBP",  "COM",  "TDA",  "TIM",  "TPE2", "TP2",  "TPOS", "TPA",
};

bool isWanted(const TagLib::ByteVector &id)
{
    return std::ranges::find(WantedIds, std::string_view(id.data(), id.size())) != WantedIds.end();
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
    std::array<Id, 3> dates{"TDRC", "TDRL", "TDOR"};
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

TagLib::StringList values(const TagLib::ID3v2::Tag &tag, const TagLib::ByteVector &id)
{
    const auto &frames = tag.frameListMap();
    const auto found = frames.find(id);
    if (found == frames.end() || found->second.isEmpty())
        return {};
    const auto *frame = dynamic_cast<TagLib::ID3v2::TextIdentificationFrame *>(found->second.front());
    return frame ? frame->fieldList() : TagLib::StringList();
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
    for (const char *key : {"ALBUM ARTIST", "ALBUMARTIST"})
        fill(details.albumArtist, joined(values(key)));
    fill(details.album, joined(values("ALBUM")));
    fill(details.genre, genres(values("GENRE")));
    fill(details.year, yearOf(joined(values("YEAR"))));
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
    if (details.year.isEmpty() && tag.year() > 0)
        details.year = QString::number(tag.year());
    fill(details.track, trackText(tag.track()));
}

} // namespace shell
