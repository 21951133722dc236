// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/SongDetails.h"
#include "platform/shell/SongStream.h"

#include <taglib/apetag.h>
#include <taglib/id3v1tag.h>
#include <taglib/id3v2frame.h>
#include <taglib/id3v2framefactory.h>
#include <taglib/id3v2tag.h>
#include <taglib/tfile.h>

namespace shell {

// The frame header's name is for derived classes only.
struct FrameAccess : TagLib::ID3v2::Frame
{
    using FrameHeader = TagLib::ID3v2::Frame::Header;
};

/**
 * Lets TagLib build the frames that the columns need and pass over all others, pictures and chapters
 * among them, and stop where a tag holds more than any player wrote. One object a file.
 */
class WantedFrames final : public TagLib::ID3v2::FrameFactory
{
public:
    /** @param tagLength the tag's bytes; compressed frames are unpacked in short tags alone. */
    explicit WantedFrames(qint64 tagLength);

protected:
    bool updateFrame(FrameAccess::FrameHeader *header) const override;

private:
    bool m_unpack;
    mutable int m_frames = 0;
    mutable qint64 m_textBytes = 0;
};

/** What TagLib's tag classes read from; it looks for no tag by itself. */
class BareFile final : public TagLib::File
{
public:
    explicit BareFile(TagLib::IOStream &stream) : TagLib::File(&stream) {}
    TagLib::Tag *tag() const override { return nullptr; }
    TagLib::AudioProperties *audioProperties() const override { return nullptr; }
    bool save() override { return false; }
};

/** Each fills the fields that are still empty. */
void fillFromId3v2(const TagLib::ID3v2::Tag &tag, SongDetails &details);
/** From the tag at @p offset, if there is one, repaired where it needs that. True for any frame. */
bool fillFromId3v2(SongStream &stream, qint64 offset, SongDetails &details);
/** From the tag of a file that has been read; the one at its beginning is repaired where it needs that. */
void fillFromId3v2(SongStream &stream, const TagLib::ID3v2::Tag &tag, SongDetails &details);
void fillFromApe(const TagLib::APE::Tag &tag, SongDetails &details);
void fillFromId3v1(const TagLib::ID3v1::Tag &tag, SongDetails &details);

} // namespace shell
