// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/Id3Bytes.h"
#include "platform/shell/TagContainer.h"
#include "platform/shell/TagText.h"

#include <taglib/asffile.h>
#include <taglib/id3v2tag.h>
#include <taglib/infotag.h>
#include <taglib/mp4coverart.h>
#include <taglib/mp4file.h>
#include <taglib/wavfile.h>

#include <algorithm>

using namespace Qt::StringLiterals;

// Containers of boxes and chunks, in which TagLib keeps what it doesn't know.

namespace shell {

namespace {

constexpr auto Covers = "covr";
constexpr auto AsfPictures = "WM/Picture";

QString mimeTypeOf(TagLib::MP4::CoverArt::Format format)
{
    using Art = TagLib::MP4::CoverArt;
    switch (format) {
    case Art::PNG:
        return u"image/png"_s;
    case Art::BMP:
        return u"image/bmp"_s;
    case Art::GIF:
        return u"image/gif"_s;
    default:
        return u"image/jpeg"_s;
    }
}

TagLib::MP4::CoverArt::Format formatOf(const QString &mimeType)
{
    using Art = TagLib::MP4::CoverArt;
    if (mimeType == "image/png"_L1)
        return Art::PNG;
    if (mimeType == "image/bmp"_L1)
        return Art::BMP;
    return mimeType == "image/gif"_L1 ? Art::GIF : Art::JPEG;
}

/** Items with names of their writers' own; TagLib's fields leave out those that it has no name for. */
constexpr auto FreeItem = "----:com.apple.iTunes:"_L1;

QString nameOfFreeItem(const TagLib::String &key)
{
    const QString name = fromTag(key);
    return name.startsWith("----:"_L1) ? name.mid(name.lastIndexOf(u':') + 1).toUpper() : QString();
}

TagLib::PropertyMap mp4Fields(const TagLib::MP4::Tag &tag)
{
    TagLib::PropertyMap all = tag.properties();
    for (const TagLib::String &key : all.unsupportedData()) {
        const QString name = nameOfFreeItem(key);
        if (const TagLib::StringList values = tag.item(key).toStringList();
            !name.isEmpty() && !values.isEmpty())
            all.insert(toTag(name), values);
    }
    return all;
}

/** The item that holds such a field; other programs look for the gains in small letters. */
TagLib::String placeOf(const TagLib::String &field, const TagLib::StringList &present)
{
    const QString name = fromTag(field);
    for (const TagLib::String &key : present) {
        if (nameOfFreeItem(key) == name)
            return key;
    }
    return toTag(FreeItem + (name.startsWith("REPLAYGAIN_"_L1) ? name.toLower() : name));
}

void changeFields(TagLib::MP4::Tag &tag, const TagChange &change)
{
    const TagLib::PropertyMap before = tag.properties();
    const TagLib::PropertyMap refused = tag.setProperties(change.appliedTo(before));
    for (const auto &[key, values] : change.values) {
        const TagLib::String place = placeOf(key, before.unsupportedData());
        if (values.isEmpty() && tag.contains(place))
            tag.removeItem(place);
        else if (refused.contains(key))
            tag.setItem(place, values);
    }
}

class Mp4Tags final : public TagContainer
{
public:
    explicit Mp4Tags(PieceStream &stream) : m_file(&stream) {}

    [[nodiscard]] bool isValid() const { return m_file.isValid() && m_file.tag(); }
    QString format() const override { return u"MP4"_s; }
    QStringList kinds() const override { return m_file.hasMP4Tag() ? QStringList{u"MP4"_s} : QStringList(); }
    TagLib::PropertyMap fields() const override { return mp4Fields(*m_file.tag()); }
    QList<TagPicture> pictures() const override
    {
        QList<TagPicture> all;
        if (m_file.tag()->contains(Covers)) {
            for (const TagLib::MP4::CoverArt &art : m_file.tag()->item(Covers).toCoverArtList())
                all.push_back({fromVector(art.data()), mimeTypeOf(art.format())});
        }
        return all;
    }
    const TagLib::AudioProperties *sound() const override { return m_file.audioProperties(); }
    bool change(const TagChange &change) override
    {
        TagLib::MP4::Tag &tag = *m_file.tag();
        changeFields(tag, change);
        if (change.pictures) {
            TagLib::MP4::CoverArtList list;
            for (const TagPicture &picture : *change.pictures)
                list.append({formatOf(picture.mimeType), toVector(picture.bytes)});
            if (list.isEmpty())
                tag.removeItem(Covers);
            else
                tag.setItem(Covers, list);
        }
        return m_file.save();
    }

private:
    TagLib::MP4::File m_file;
};

/** Attributes that TagLib's fields leave out, by their own names. */
QString asfName(const TagLib::String &field)
{
    return field == "COMPILATION" ? u"WM/IsCompilation"_s : fromTag(field);
}

TagLib::PropertyMap asfFields(const TagLib::ASF::Tag &tag)
{
    const TagLib::PropertyMap known = tag.properties();
    TagLib::PropertyMap all = known;
    for (const auto &[name, attributes] : tag.attributeListMap()) {
        const bool isCompilation = name == "WM/IsCompilation";
        for (const TagLib::ASF::Attribute &attribute : attributes) {
            const bool isText = attribute.type() == TagLib::ASF::Attribute::UnicodeType;
            const TagLib::String key = isCompilation ? "COMPILATION" : name.upper();
            if (known.contains(key))
                continue;
            if (isCompilation && !isText)
                all.insert(key, TagLib::StringList(attribute.toBool() ? "1" : "0"));
            else if (isText && known.unsupportedData().contains(name))
                all.insert(key, attribute.toString());
        }
    }
    return all;
}

void changeFields(TagLib::ASF::Tag &tag, const TagChange &change)
{
    const TagLib::PropertyMap before = tag.properties();
    TagLib::PropertyMap wanted = change.appliedTo(before);
    // These have one text alone; TagLib would put blanks between several.
    for (const char *single : {"TITLE", "ARTIST", "COMMENT", "COPYRIGHT"}) {
        if (wanted.contains(single))
            wanted[single] = TagLib::StringList(wanted[single].toString("; "));
    }
    const TagLib::PropertyMap refused = tag.setProperties(wanted);
    for (const auto &[key, values] : change.values) {
        TagLib::String name = toTag(asfName(key));
        for (const TagLib::String &other : before.unsupportedData()) {
            if (other.upper() == name.upper())
                name = other;
            else if (other.upper() == key)
                tag.removeItem(other);
        }
        tag.removeItem(name);
        for (const TagLib::String &value : refused.contains(key) ? values : TagLib::StringList())
            tag.addAttribute(name, TagLib::ASF::Attribute(value));
    }
}

class AsfTags final : public TagContainer
{
public:
    explicit AsfTags(PieceStream &stream) : m_file(&stream) {}

    [[nodiscard]] bool isValid() const { return m_file.isValid() && m_file.tag(); }
    QString format() const override { return u"Windows Media"_s; }
    QStringList kinds() const override { return {u"ASF"_s}; }
    TagLib::PropertyMap fields() const override { return asfFields(*m_file.tag()); }
    QList<TagPicture> pictures() const override
    {
        QList<TagPicture> all;
        for (const TagLib::ASF::Attribute &attribute : m_file.tag()->attribute(AsfPictures)) {
            const TagLib::ASF::Picture picture = attribute.toPicture();
            if (picture.isValid())
                all.push_back({fromVector(picture.picture()), fromTag(picture.mimeType()), picture.type(),
                               fromTag(picture.description())});
        }
        return all;
    }
    const TagLib::AudioProperties *sound() const override { return m_file.audioProperties(); }
    bool change(const TagChange &change) override
    {
        TagLib::ASF::Tag &tag = *m_file.tag();
        changeFields(tag, change);
        if (change.pictures) {
            tag.removeItem(AsfPictures);
            for (const TagPicture &picture : *change.pictures)
                tag.addAttribute(AsfPictures, TagLib::ASF::Attribute(asfPicture(picture)));
        }
        return m_file.save();
    }

private:
    static TagLib::ASF::Picture asfPicture(const TagPicture &picture)
    {
        TagLib::ASF::Picture made;
        made.setMimeType(toTag(picture.mimeType));
        made.setType(static_cast<TagLib::ASF::Picture::Type>(picture.role));
        made.setDescription(toTag(picture.description));
        made.setPicture(toVector(picture.bytes));
        return made;
    }

    TagLib::ASF::File m_file;
};

class WavTags final : public TagContainer
{
public:
    explicit WavTags(PieceStream &stream) : m_file(&stream) {}

    [[nodiscard]] bool isValid() const { return m_file.isValid(); }
    QString format() const override { return u"WAV"_s; }
    QStringList kinds() const override
    {
        QStringList all;
        if (m_file.hasID3v2Tag())
            all += id3().kind();
        if (m_file.hasInfoTag())
            all += u"INFO"_s;
        return all;
    }
    TagLib::PropertyMap fields() const override
    {
        TagLib::PropertyMap all = m_file.ID3v2Tag()->properties();
        if (m_file.hasInfoTag()) {
            for (const auto &[key, values] : m_file.InfoTag()->properties()) {
                if (!all.contains(key))
                    all[key] = values;
            }
        }
        return all;
    }
    QList<TagPicture> pictures() const override { return id3().pictures(); }
    const TagLib::AudioProperties *sound() const override { return m_file.audioProperties(); }
    bool change(const TagChange &change) override
    {
        using File = TagLib::RIFF::WAV::File;
        const bool isOld = !m_file.hasID3v2Tag() || m_file.ID3v2Tag()->header()->majorVersion() < 4;
        int written = 0;
        if (m_file.hasID3v2Tag() || !m_file.hasInfoTag() || !fitsInfo(change)) {
            TagLib::ID3v2::Tag &tag = *m_file.ID3v2Tag();
            tag.setProperties(change.appliedTo(tag.properties()));
            if (change.pictures)
                setPictures(tag, *change.pictures);
            written |= File::ID3v2;
        }
        if (m_file.hasInfoTag()) {
            TagLib::RIFF::Info::Tag &info = *m_file.InfoTag();
            const TagLib::PropertyMap before = info.properties();
            info.setProperties(change.appliedTo(before));
            if (!(info.properties() == before))
                written |= File::Info;
        }
        return m_file.save(static_cast<File::TagTypes>(written), TagLib::File::StripNone,
                           isOld ? TagLib::ID3v2::v3 : TagLib::ID3v2::v4);
    }

private:
    /** The list of the RIFF family holds single values of few fields. */
    static bool fitsInfo(const TagChange &change)
    {
        const TagLib::StringList held = TagLib::StringList::split("TITLE ARTIST ALBUM GENRE COMMENT", " ");
        return !change.pictures && std::ranges::all_of(change.values, [&](const auto &field) {
            return held.contains(field.first) && field.second.size() <= 1;
        });
    }

    [[nodiscard]] Id3Bytes id3() const
    {
        const TagLib::ID3v2::Tag &tag = *m_file.ID3v2Tag();
        const bool isOld = tag.header()->majorVersion() < 4;
        return Id3Bytes(m_file.hasID3v2Tag() ? fromVector(m_file.ID3v2Tag()->render(
                                                   isOld ? TagLib::ID3v2::v3 : TagLib::ID3v2::v4))
                                             : QByteArray());
    }

    TagLib::RIFF::WAV::File m_file;
};

template <typename Tags> std::unique_ptr<TagContainer> opened(PieceStream &stream)
{
    auto tags = std::make_unique<Tags>(stream);
    return tags->isValid() ? std::move(tags) : nullptr;
}

} // namespace

std::unique_ptr<TagContainer> openMp4Tags(PieceStream &stream)
{
    return opened<Mp4Tags>(stream);
}

std::unique_ptr<TagContainer> openAsfTags(PieceStream &stream)
{
    return opened<AsfTags>(stream);
}

std::unique_ptr<TagContainer> openWavTags(PieceStream &stream)
{
    return opened<WavTags>(stream);
}

} // namespace shell
