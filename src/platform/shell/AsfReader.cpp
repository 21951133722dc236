// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/SongReaders.h"
#include "platform/shell/TagText.h"

#include <taglib/asffile.h>

#include <QtEndian>

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

/**
 * Writers keep the first of several values in one list and the others in a second, within an extension that
 * mostly stands in front: true when TagLib has read that one first.
 */
bool isExtensionFirst(SongStream &stream)
{
    constexpr qsizetype idLength = 16;
    constexpr int mostObjects = 64;
    const QByteArrayView extension("\xB5\x03\xBF\x5F\x2E\xA9\xCF\x11\x8E\xE3\x00\xC0\x0C\x20\x53\x65",
                                   idLength);
    const QByteArrayView first("\x40\xA4\xD0\xD2\x07\xE3\xD2\x11\x97\xF0\x00\xA0\xC9\x5E\xA8\x50", idLength);
    qint64 at = 30;
    for (int i = 0; i < mostObjects; ++i) {
        const QByteArrayView head = stream.viewAt(at, idLength + 8);
        const qint64 length =
            head.size() < idLength + 8 ? 0 : qFromLittleEndian<qint64>(head.data() + idLength);
        if (length < head.size() || head.startsWith(first) || length > stream.size() - at)
            return false;
        if (head.startsWith(extension))
            return true;
        at += length;
    }
    return false;
}

class Attributes
{
public:
    Attributes(const TagLib::ASF::Tag &tag, bool isFirstLast)
        : m_map(tag.attributeListMap()), m_isFirstLast(isFirstLast)
    {}

    [[nodiscard]] QStringList values(const char *name) const
    {
        QStringList result;
        const auto found = m_map.find(name);
        if (found == m_map.end())
            return result;
        for (const TagLib::ASF::Attribute &attribute : found->second)
            result += valueText(attribute);
        if (m_isFirstLast && result.size() > 1)
            result.move(result.size() - 1, 0);
        return result;
    }
    [[nodiscard]] QString text(const char *name) const { return joined(values(name)); }
    [[nodiscard]] QString first(const char *name) const { return values(name).value(0); }

private:
    const TagLib::ASF::AttributeListMap &m_map;
    bool m_isFirstLast;
};

void takeTags(SongStream &stream, const TagLib::ASF::Tag &tag, SongDetails &details)
{
    const Attributes attributes(tag, isExtensionFirst(stream));
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
    takeTags(stream, *file.tag(), details);
    takeProperties(file.audioProperties(), details);
}

} // namespace shell
