// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/SongReaders.h"
#include "platform/shell/TagText.h"

#include <taglib/asffile.h>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

QString valueText(const TagLib::ASF::Attribute &attribute)
{
    using Attribute = TagLib::ASF::Attribute;
    switch (attribute.type()) {
    case Attribute::UnicodeType:
        return fromTag(attribute.toString());
    case Attribute::DWordType:
        return QString::number(attribute.toUInt());
    case Attribute::QWordType:
        return QString::number(attribute.toULongLong());
    case Attribute::WordType:
        return QString::number(attribute.toUShort());
    case Attribute::BoolType:
    case Attribute::BytesType:
    case Attribute::GuidType:
        break;
    }
    return {};
}

class Attributes
{
public:
    explicit Attributes(const TagLib::ASF::Tag &tag) : m_map(tag.attributeListMap()) {}

    [[nodiscard]] QStringList values(const char *name) const
    {
        QStringList result;
        const auto found = m_map.find(name);
        if (found == m_map.end())
            return result;
        for (const TagLib::ASF::Attribute &attribute : found->second)
            result += valueText(attribute);
        return result;
    }
    [[nodiscard]] QString text(const char *name) const { return joined(values(name)); }
    [[nodiscard]] QString first(const char *name) const { return values(name).value(0); }

private:
    const TagLib::ASF::AttributeListMap &m_map;
};

void takeTags(const TagLib::ASF::Tag &tag, SongDetails &details)
{
    const Attributes attributes(tag);
    QStringList genreNames;
    for (const QString &genre : attributes.values("WM/Genre"))
        genreNames += genreName(genre);
    details.title = fromTag(tag.title());
    details.artist = joined(QStringList{fromTag(tag.artist())} + attributes.values("Author"));
    details.albumArtist = attributes.text("WM/AlbumArtist");
    details.album = attributes.text("WM/AlbumTitle");
    details.genre = joined(genreNames);
    details.year = yearOf(attributes.first("WM/Year"));
    details.track = attributes.first("WM/TrackNumber").trimmed();
    // The older field counts from zero.
    bool isNumber = false;
    const qint64 track = attributes.first("WM/Track").toLongLong(&isNumber);
    if (isNumber)
        fill(details.track, trackText(track + 1));
    details.disc = attributes.first("WM/PartOfSet").trimmed();
    details.composer = attributes.text("WM/Composer");
    details.beats = beatsOf(attributes.first("WM/BeatsPerMinute"));
    details.comment = fromTag(tag.comment());
    for (const char *name : {"WM/Comments", "Description"})
        fill(details.comment, attributes.text(name));
}

} // namespace

void readAsf(SongStream &stream, SongDetails &details)
{
    const TagLib::ASF::File file(&stream);
    if (!file.isValid() || !file.tag())
        throw Unreadable(u"Not a Windows Media file"_s);
    takeTags(*file.tag(), details);
    takeProperties(file.audioProperties(), details);
}

} // namespace shell
