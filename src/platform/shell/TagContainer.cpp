// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/TagContainer.h"

#include "platform/shell/EndTags.h"

#include <taglib/id3v2framefactory.h>
#include <taglib/mpegfile.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

/** MPEG and ADTS sound, which is nothing but frames between the tags. */
class MpegTags final : public TagContainer
{
public:
    MpegTags(PieceStream &stream, QString format) : m_ends(stream), m_format(std::move(format))
    {
        if (m_format == "MPEG"_L1)
            m_file = std::make_unique<TagLib::MPEG::File>(&stream, TagLib::ID3v2::FrameFactory::instance());
    }

    QString format() const override { return m_format; }
    QStringList kinds() const override { return m_ends.kinds(); }
    TagLib::PropertyMap fields() const override { return m_ends.fields(); }
    QList<TagPicture> pictures() const override { return m_ends.pictures(); }
    const TagLib::AudioProperties *sound() const override
    {
        return m_file ? m_file->audioProperties() : nullptr;
    }
    bool change(const TagChange &change) override
    {
        m_ends.change(change, EndTags::Missing::GetsId3v2);
        return true;
    }

private:
    EndTags m_ends;
    QString m_format;
    std::unique_ptr<TagLib::MPEG::File> m_file;
};

bool isAdtsHead(QByteArrayView bytes)
{
    return bytes.size() >= 2 && static_cast<uchar>(bytes[0]) == 0xFF &&
           (static_cast<uchar>(bytes[1]) & 0xF6) == 0xF0;
}

/** Kinds of files begin with letters, or with the mark of Matroska. */
bool hasOwnMark(QByteArrayView head)
{
    return head == "\x1A\x45\xDF\xA3" || std::ranges::all_of(head, [](char c) {
               return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
                      c == ' ' || c == '+';
           });
}

} // namespace

std::unique_ptr<TagContainer> openMpegTags(PieceStream &stream)
{
    return std::make_unique<MpegTags>(stream, u"MPEG"_s);
}

std::unique_ptr<TagContainer> openAdtsTags(PieceStream &stream)
{
    return std::make_unique<MpegTags>(stream, u"AAC"_s);
}

std::unique_ptr<TagContainer> openTags(PieceStream &stream)
{
    const QByteArray head = stream.bytesAt(0, 16);
    const QByteArray sound = stream.bytesAt(EndTags(stream).front(), 4);
    if (sound.startsWith("fLaC"))
        return openFlacTags(stream);
    if (head.startsWith("OggS"))
        return openOggTags(stream);
    if (head.startsWith("RIFF") && head.indexOf("WAVE") == 8)
        return openWavTags(stream);
    if (head.startsWith("\x30\x26\xB2\x75\x8E\x66\xCF\x11"))
        return openAsfTags(stream);
    if (head.size() >= 8 && head.sliced(4, 4) == "ftyp")
        return openMp4Tags(stream);
    if (isAdtsHead(sound))
        return openAdtsTags(stream);
    const bool isMpeg = sound.size() >= 2 && sound[0] == '\xFF' && (sound[1] & 0xE0) == 0xE0;
    if (isMpeg || head.startsWith("ID3"))
        return openMpegTags(stream);
    // Junk may stand in front of the sound, but not the mark of another kind of file.
    if (hasOwnMark(head.first(std::min<qsizetype>(head.size(), 4))))
        return nullptr;
    auto tags = openMpegTags(stream);
    return tags->sound() && tags->sound()->lengthInMilliseconds() > 0 ? std::move(tags) : nullptr;
}

} // namespace shell
