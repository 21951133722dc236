// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/SongReaders.h"
#include "platform/shell/TagText.h"

#include <QtEndian>

#include <bit>
#include <functional>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

// Elements by the numbers that they are written with.
enum Element : quint32 {
    Ebml = 0x1A45DFA3,
    Segment = 0x18538067,
    SeekHead = 0x114D9B74,
    Seek = 0x4DBB,
    SeekId = 0x53AB,
    SeekPosition = 0x53AC,
    Info = 0x1549A966,
    TimecodeScale = 0x2AD7B1,
    Duration = 0x4489,
    Title = 0x7BA9,
    Cluster = 0x1F43B675,
    Tags = 0x1254C367,
    Tag = 0x7373,
    Targets = 0x63C0,
    TargetTypeValue = 0x68CA,
    SimpleTag = 0x67C8,
    TagName = 0x45A3,
    TagString = 0x4487,
};

constexpr qsizetype LongestText = 64 * 1024;
constexpr int MostElements = 20'000;
constexpr int AlbumLevel = 50;

struct Place
{
    quint32 id = 0;
    qint64 content = 0;
    /** Of one that doesn't say where it ends, that of what it stands in. */
    qint64 end = 0;
    bool open = false;
};

class MatroskaFile final
{
public:
    MatroskaFile(SongStream &stream, SongDetails &details) : m_stream(stream), m_details(details) {}

    void read()
    {
        const auto head = elementAt(0, m_stream.size());
        if (!head || head->id != Ebml)
            throw Unreadable(u"Not a Matroska file"_s);
        const auto segment = elementAt(head->end, m_stream.size());
        if (!segment || segment->id != Segment)
            throw Unreadable(u"Damaged Matroska file"_s);
        m_segment = segment->content;
        takeSegment(*segment);
        fill(m_details.title, m_title);
        const double seconds = m_duration * static_cast<double>(m_scale) / 1e9;
        takeLength(seconds, m_stream.size(), m_details);
    }

private:
    using Taker = std::function<bool(const Place &)>;

    std::optional<Place> elementAt(qint64 at, qint64 end)
    {
        const QByteArray head = m_stream.bytesAt(at, 12);
        const int idLength = head.isEmpty() ? 9 : std::countl_zero(static_cast<uchar>(head[0])) + 1;
        if (idLength > 4 || head.size() <= idLength || at >= end)
            return {};
        const int length = std::countl_zero(static_cast<uchar>(head[idLength])) + 1;
        if (length > 8 || head.size() < idLength + length)
            return {};
        Place place;
        for (int i = 0; i < idLength; ++i)
            place.id = place.id << 8 | static_cast<uchar>(head[i]);
        quint64 size = static_cast<uchar>(head[idLength]) & ((1U << (8 - length)) - 1);
        for (int i = 1; i < length; ++i)
            size = size << 8 | static_cast<uchar>(head[idLength + i]);
        place.content = at + idLength + length;
        place.open = size == (quint64(1) << (7 * length)) - 1;
        const qint64 room = std::max<qint64>(end - place.content, 0);
        place.end = place.content + (place.open ? room : static_cast<qint64>(std::min<quint64>(size, room)));
        return place;
    }

    /** Until @p take has had enough. */
    void walk(qint64 at, qint64 end, const Taker &take)
    {
        while (at < end && ++m_elements < MostElements) {
            const auto element = elementAt(at, end);
            if (!element || !take(*element))
                return;
            at = element->end;
        }
    }

    // Tags may stand behind all the sound, where the head tells of them.
    void takeSegment(const Place &segment)
    {
        bool beforeSound = true;
        walk(segment.content, segment.end, [&](const Place &element) {
            if (element.id == Cluster && (element.open || !m_later.isEmpty() || m_hasTags))
                beforeSound = false;
            else
                takePart(element);
            return beforeSound;
        });
        if (beforeSound)
            return;
        for (const qint64 at : std::as_const(m_later)) {
            if (const auto element = elementAt(m_segment + at, segment.end); element && element->id == Tags)
                takePart(*element);
        }
    }

    void takePart(const Place &part)
    {
        if (part.id == Info) {
            walk(part.content, part.end, [this](const Place &element) { return takeInfo(element); });
        } else if (part.id == SeekHead) {
            walk(part.content, part.end, [this](const Place &element) { return takeSeek(element); });
        } else if (part.id == Tags && !m_taken.contains(part.content)) {
            m_taken.append(part.content);
            m_hasTags = true;
            walk(part.content, part.end, [this](const Place &element) {
                if (element.id == Tag)
                    takeTag(element);
                return true;
            });
        }
    }

    bool takeInfo(const Place &element)
    {
        if (element.id == TimecodeScale)
            m_scale = number(element);
        else if (element.id == Duration)
            m_duration = real(element);
        else if (element.id == Title)
            m_title = text(element);
        return true;
    }

    bool takeSeek(const Place &seek)
    {
        qint64 id = 0;
        qint64 position = 0;
        walk(seek.content, seek.end, [&](const Place &element) {
            if (element.id == SeekId)
                id = number(element);
            else if (element.id == SeekPosition)
                position = number(element);
            return true;
        });
        if (id == Tags && position > 0)
            m_later.append(position);
        return true;
    }

    void takeTag(const Place &tag)
    {
        int level = 0;
        walk(tag.content, tag.end, [&](const Place &element) {
            if (element.id == Targets)
                walk(element.content, element.end, [&](const Place &target) {
                    if (target.id == TargetTypeValue)
                        level = static_cast<int>(number(target));
                    return true;
                });
            else if (element.id == SimpleTag)
                takeSimple(element, level >= AlbumLevel);
            return true;
        });
    }

    void takeSimple(const Place &simple, bool ofAlbum)
    {
        QString name;
        QString value;
        walk(simple.content, simple.end, [&](const Place &element) {
            if (element.id == TagName)
                name = text(element).toUpper();
            else if (element.id == TagString)
                value = text(element);
            return true;
        });
        if (value.trimmed().isEmpty())
            return;
        if (QString *field = fieldOf(name, ofAlbum))
            *field = joined(QStringList{*field, value});
        else if (name == "DATE_RELEASED"_L1 || name == "DATE"_L1 || name == "DATE_RECORDED"_L1)
            fill(m_details.year, yearOf(value));
        else if (name == "BPM"_L1)
            fill(m_details.beats, beatsOf(value));
    }

    QString *fieldOf(const QString &name, bool ofAlbum)
    {
        struct Named
        {
            QLatin1StringView name;
            QString SongDetails::*ofSong;
            QString SongDetails::*ofAlbum;
        };
        static constexpr Named known[] = {
            {"TITLE"_L1, &SongDetails::title, &SongDetails::album},
            {"ARTIST"_L1, &SongDetails::artist, &SongDetails::albumArtist},
            {"ALBUM"_L1, &SongDetails::album, &SongDetails::album},
            {"ALBUM_ARTIST"_L1, &SongDetails::albumArtist, &SongDetails::albumArtist},
            {"ALBUMARTIST"_L1, &SongDetails::albumArtist, &SongDetails::albumArtist},
            {"GENRE"_L1, &SongDetails::genre, &SongDetails::genre},
            {"COMPOSER"_L1, &SongDetails::composer, &SongDetails::composer},
            {"COMMENT"_L1, &SongDetails::comment, &SongDetails::comment},
            {"PART_NUMBER"_L1, &SongDetails::track, &SongDetails::disc},
            {"TRACK"_L1, &SongDetails::track, &SongDetails::track},
            {"DISC"_L1, &SongDetails::disc, &SongDetails::disc},
        };
        for (const Named &one : known) {
            if (name == one.name)
                return &(m_details.*(ofAlbum ? one.ofAlbum : one.ofSong));
        }
        return nullptr;
    }

    qint64 number(const Place &element)
    {
        qint64 result = 0;
        for (const char c :
             m_stream.bytesAt(element.content, std::min<qint64>(element.end - element.content, 8)))
            result = result << 8 | static_cast<uchar>(c);
        return result;
    }

    double real(const Place &element)
    {
        const auto bits = static_cast<quint64>(number(element));
        if (element.end - element.content == 4)
            return std::bit_cast<float>(static_cast<quint32>(bits));
        return element.end - element.content == 8 ? std::bit_cast<double>(bits) : 0;
    }

    QString text(const Place &element)
    {
        return fromTagBytes(
            m_stream.bytesAt(element.content, std::min<qint64>(element.end - element.content, LongestText)));
    }

    SongStream &m_stream;
    SongDetails &m_details;
    qint64 m_segment = 0;
    qint64 m_scale = 1'000'000;
    double m_duration = 0;
    QString m_title;
    QList<qint64> m_later;
    QList<qint64> m_taken;
    bool m_hasTags = false;
    int m_elements = 0;
};

} // namespace

void readMatroska(SongStream &stream, SongDetails &details)
{
    MatroskaFile(stream, details).read();
}

} // namespace shell
