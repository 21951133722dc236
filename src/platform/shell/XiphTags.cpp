// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/EndTags.h"
#include "platform/shell/TagContainer.h"
#include "platform/shell/TagText.h"

#include <taglib/flacfile.h>
#include <taglib/id3v2framefactory.h>
#include <taglib/oggflacfile.h>
#include <taglib/opusfile.h>
#include <taglib/speexfile.h>
#include <taglib/vorbisfile.h>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

using FlacPictures = TagLib::List<TagLib::FLAC::Picture *>;

QList<TagPicture> picturesOf(const FlacPictures &list)
{
    QList<TagPicture> all;
    for (const TagLib::FLAC::Picture *picture : list)
        all.push_back({fromVector(picture->data()), fromTag(picture->mimeType()), picture->type(),
                       fromTag(picture->description())});
    return all;
}

/** For the container to own. */
TagLib::FLAC::Picture *flacPicture(const TagPicture &picture)
{
    auto *made = new TagLib::FLAC::Picture;
    made->setData(toVector(picture.bytes));
    made->setMimeType(toTag(picture.mimeType));
    made->setType(static_cast<TagLib::FLAC::Picture::Type>(picture.role));
    made->setDescription(toTag(picture.description));
    return made;
}

/** FLAC between tags of other kinds, which TagLib is not shown: it would write them in versions of its own.
 */
class FlacTags final : public TagContainer
{
public:
    explicit FlacTags(PieceStream &stream) : m_stream(stream), m_ends(stream)
    {
        m_front = m_ends.front();
        m_back = m_ends.back();
        stream.setMargins(m_front, m_back);
        m_file = std::make_unique<TagLib::FLAC::File>(&stream, TagLib::ID3v2::FrameFactory::instance());
    }

    [[nodiscard]] bool isValid() const { return m_file->isValid(); }
    QString format() const override { return u"FLAC"_s; }
    QStringList kinds() const override
    {
        QStringList all = m_ends.kinds();
        if (m_file->hasXiphComment())
            all.prepend(u"Vorbis comment"_s);
        return all;
    }
    TagLib::PropertyMap fields() const override
    {
        TagLib::PropertyMap all =
            m_file->hasXiphComment() ? m_file->xiphComment()->properties() : TagLib::PropertyMap();
        for (const auto &[key, values] : m_ends.fields()) {
            if (!all.contains(key))
                all[key] = values;
        }
        return all;
    }
    QList<TagPicture> pictures() const override { return picturesOf(m_file->pictureList()); }
    const TagLib::AudioProperties *sound() const override { return m_file->audioProperties(); }

    bool change(const TagChange &change) override
    {
        TagLib::Ogg::XiphComment *comment = m_file->xiphComment(true);
        comment->setProperties(change.appliedTo(comment->properties()));
        if (change.pictures) {
            m_file->removePictures();
            for (const TagPicture &picture : *change.pictures)
                m_file->addPicture(flacPicture(picture));
        }
        const bool saved = m_file->save();
        m_stream.setMargins(0, 0);
        if (saved && (m_front > 0 || m_back > 0))
            EndTags(m_stream).change(change, EndTags::Missing::StaysAway);
        return saved;
    }

private:
    PieceStream &m_stream;
    EndTags m_ends;
    qint64 m_front = 0;
    qint64 m_back = 0;
    std::unique_ptr<TagLib::FLAC::File> m_file;
};

template <typename File> class OggTags final : public TagContainer
{
public:
    OggTags(PieceStream &stream, QString format) : m_file(&stream), m_format(std::move(format)) {}

    [[nodiscard]] bool isValid() const { return m_file.isValid() && m_file.tag(); }
    QString format() const override { return m_format; }
    QStringList kinds() const override { return {u"Vorbis comment"_s}; }
    TagLib::PropertyMap fields() const override { return m_file.tag()->properties(); }
    QList<TagPicture> pictures() const override { return picturesOf(comment().pictureList()); }
    const TagLib::AudioProperties *sound() const override { return m_file.audioProperties(); }
    bool change(const TagChange &change) override
    {
        comment().setProperties(change.appliedTo(comment().properties()));
        if (change.pictures) {
            comment().removeAllPictures();
            for (const TagPicture &picture : *change.pictures)
                comment().addPicture(flacPicture(picture));
        }
        return m_file.save();
    }

private:
    [[nodiscard]] TagLib::Ogg::XiphComment &comment() const
    {
        return *static_cast<TagLib::Ogg::XiphComment *>(m_file.tag());
    }

    mutable File m_file;
    QString m_format;
};

template <typename File> std::unique_ptr<TagContainer> opened(PieceStream &stream, const QString &format)
{
    auto tags = std::make_unique<OggTags<File>>(stream, format);
    return tags->isValid() ? std::move(tags) : nullptr;
}

} // namespace

std::unique_ptr<TagContainer> openFlacTags(PieceStream &stream)
{
    auto tags = std::make_unique<FlacTags>(stream);
    return tags->isValid() ? std::move(tags) : nullptr;
}

std::unique_ptr<TagContainer> openOggTags(PieceStream &stream)
{
    const QByteArray head = stream.bytesAt(0, 512);
    if (head.contains("OpusHead"))
        return opened<TagLib::Ogg::Opus::File>(stream, u"Opus"_s);
    if (head.contains("\x7F"
                      "FLAC"))
        return opened<TagLib::Ogg::FLAC::File>(stream, u"FLAC in Ogg"_s);
    if (head.contains("Speex   "))
        return opened<TagLib::Ogg::Speex::File>(stream, u"Speex"_s);
    return opened<TagLib::Vorbis::File>(stream, u"Vorbis"_s);
}

} // namespace shell
