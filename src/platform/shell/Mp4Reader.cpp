// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/Mp4Atoms.h"
#include "platform/shell/SongReaders.h"
#include "platform/shell/TagText.h"

#include <taglib/id3v1genres.h>
#include <taglib/tstringlist.h>

#include <QStringDecoder>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

// TagLib's reader makes an object of every atom and copies its bytes: for a usual song that takes ten
// times as long as this.

namespace shell {

namespace {

constexpr qint64 HeadLength = Mp4Atoms::HeadLength;
/** Of a value: its size, "data", its type and its country. */
constexpr qint64 ValueHead = 16;
constexpr qsizetype LongestText = 64 * 1024;
constexpr qsizetype LongestSoundEntry = 256;
/** Of the descriptions of one lossless sound. */
constexpr qint64 LengthWithLossless = 88;
enum DataType { Utf8 = 1, Utf16 = 2 };

/** The next descriptor's content, when it is of that kind; lengths have seven bits a byte. */
QByteArrayView descriptor(QByteArrayView bytes, char tag)
{
    if (!bytes.startsWith(tag))
        return {};
    qsizetype at = 1;
    while (at < bytes.size() && at < 4 && (bytes[at] & 0x80) != 0)
        ++at;
    return at < bytes.size() ? bytes.sliced(at + 1) : QByteArrayView();
}

/** Bits a second from the decoder's description in a sound entry; nothing without one. */
std::optional<qint64> averageBitRate(QByteArrayView entry)
{
    constexpr qsizetype idAndFlags = 3;
    constexpr qsizetype beforeAverage = 9;
    const qsizetype esds = entry.indexOf("esds");
    if (esds < 0 || entry.size() < esds + HeadLength)
        return {};
    const QByteArrayView stream = descriptor(entry.sliced(esds + HeadLength), '\x03');
    if (stream.size() <= idAndFlags)
        return {};
    const QByteArrayView decoder = descriptor(stream.sliced(idAndFlags), '\x04');
    if (decoder.size() < beforeAverage + 4)
        return {};
    return qFromBigEndian<quint32>(decoder.data() + beforeAverage);
}

/** The entries of the tag list. */
class TagList
{
public:
    TagList(SongStream &stream, const Mp4Atoms &atoms)
        : m_stream(stream), m_atoms(atoms), m_entries(atoms.withinAll(atomName("ilst")))
    {}

    /** Several texts are joined; a text that claims to be UTF-8 and is not is read all the same. */
    [[nodiscard]] QString text(const char *name) const
    {
        const TagLib::StringList all = textsOf(name);
        const QString first = all.size() > 1 ? QString() : firstText(name);
        return first.isEmpty() ? joined(all) : first;
    }

    [[nodiscard]] QString genre() const
    {
        const QString text = this->text("\251gen");
        const QByteArrayView number = text.isEmpty() ? value("gnre") : QByteArrayView();
        const int index = number.size() >= 2 ? qFromBigEndian<qint16>(number.data()) : 0;
        return index > 0 ? fromTag(TagLib::ID3v1::genre(index - 1)) : text;
    }

    [[nodiscard]] qint64 number(const char *name) const
    {
        const QByteArrayView bytes = value(name);
        if (bytes.size() > 8)
            return 0;
        qint64 result = 0;
        for (const char c : bytes)
            result = result << 8 | static_cast<uchar>(c);
        return result;
    }

    /** A number and how many there are. */
    [[nodiscard]] QString ofAll(const char *name) const
    {
        const QByteArrayView pair = value(name);
        const auto part = [&pair](qsizetype at) {
            return pair.size() >= at + 2 ? qFromBigEndian<qint16>(pair.data() + at) : qint16(0);
        };
        return trackText(part(2), part(4));
    }

private:
    struct Value
    {
        quint32 type = 0;
        qint64 content = 0;
        qint64 end = 0;
    };

    /** The value that stands there within an entry; nothing for anything else. */
    [[nodiscard]] std::optional<Value> valueAt(qint64 offset, qint64 end) const
    {
        const QByteArrayView head = m_stream.viewAt(offset, ValueHead);
        if (offset + ValueHead > end || head.size() < ValueHead || head.sliced(4, 4) != "data")
            return {};
        qint64 length = qFromBigEndian<quint32>(head.data());
        if (length == 0)
            length = end - offset;
        if (length < ValueHead)
            return {};
        return Value{qFromBigEndian<quint32>(head.data() + 8), offset + ValueHead,
                     std::min(offset + length, end)};
    }

    [[nodiscard]] const Atom *entry(const char *name) const
    {
        const AtomName wanted = atomName(name);
        const auto found =
            std::ranges::find_if(m_entries, [&](int place) { return m_atoms.at(place).name == wanted; });
        return found == m_entries.end() ? nullptr : &m_atoms.at(*found);
    }

    [[nodiscard]] std::optional<Value> firstValue(const char *name) const
    {
        const Atom *atom = entry(name);
        return atom ? valueAt(atom->content, atom->end) : std::nullopt;
    }

    [[nodiscard]] QByteArrayView bytesOf(const Value &value) const
    {
        return m_stream.viewAt(value.content, std::min<qint64>(value.end - value.content, LongestText));
    }

    [[nodiscard]] QByteArrayView value(const char *name) const
    {
        const auto first = firstValue(name);
        return first ? bytesOf(*first) : QByteArrayView();
    }

    [[nodiscard]] QString firstText(const char *name) const
    {
        const auto first = firstValue(name);
        if (!first)
            return {};
        const QByteArrayView bytes = bytesOf(*first);
        return first->type == Utf16 ? QStringDecoder(QStringDecoder::Utf16BE)(bytes) : fromTagBytes(bytes);
    }

    [[nodiscard]] TagLib::StringList textsOf(const char *name) const
    {
        TagLib::StringList texts;
        const Atom *atom = entry(name);
        if (!atom)
            return texts;
        for (auto next = valueAt(atom->content, atom->end); next; next = valueAt(next->end, atom->end)) {
            const QByteArrayView bytes = next->type == Utf8 ? bytesOf(*next) : QByteArrayView();
            if (next->type == Utf8)
                texts.append(
                    TagLib::String(TagLib::ByteVector(bytes.data(), static_cast<unsigned>(bytes.size())),
                                   TagLib::String::UTF8));
        }
        return texts;
    }

    SongStream &m_stream;
    const Mp4Atoms &m_atoms;
    std::vector<int> m_entries;
};

/** The first track that holds sound; Nowhere without one. */
int soundTrack(SongStream &stream, const Mp4Atoms &atoms)
{
    const int movie = atoms.find(Mp4Atoms::Nowhere, {"moov"});
    for (const int track : atoms.within(movie, atomName("trak"))) {
        const int handler = atoms.find(track, {"mdia", "hdlr"});
        if (handler == Mp4Atoms::Nowhere)
            break;
        if (stream.viewAt(atoms.at(handler).offset + 16, 4) == "soun")
            return track;
    }
    return Mp4Atoms::Nowhere;
}

std::optional<qint64> millisecondsOf(SongStream &stream, const Atom &head)
{
    const QByteArrayView bytes = stream.viewAt(head.offset, std::min<qint64>(head.end - head.offset, 44));
    const bool wide = bytes.size() > 8 && bytes[8] == 1;
    if (bytes.size() < (wide ? 44 : 32))
        return {};
    const qint64 unit = qFromBigEndian<quint32>(bytes.data() + (wide ? 28 : 20));
    const qint64 length =
        wide ? qFromBigEndian<qint64>(bytes.data() + 32) : qint64(qFromBigEndian<quint32>(bytes.data() + 24));
    if (unit <= 0 || length <= 0)
        return {};
    const double milliseconds = static_cast<double>(length) * 1000.0 / static_cast<double>(unit) + 0.5;
    if (milliseconds > std::numeric_limits<int>::max() || milliseconds < 1)
        return {};
    return static_cast<qint64>(milliseconds);
}

/** What the decoder's description says; nothing without one. */
std::optional<qint64> statedBitRate(SongStream &stream, const Mp4Atoms &atoms, int descriptions)
{
    if (const int entry = atoms.findAnywhere(atomName("mp4a")); entry >= 0)
        return averageBitRate(stream.viewAt(atoms.at(entry).content, LongestSoundEntry));
    if (descriptions < 0 || atoms.at(descriptions).end - atoms.at(descriptions).offset != LengthWithLossless)
        return {};
    const QByteArrayView bytes = stream.viewAt(atoms.at(descriptions).offset, LengthWithLossless);
    const bool isLossless =
        bytes.size() == LengthWithLossless && bytes.sliced(20, 4) == "alac" && bytes.sliced(56, 4) == "alac";
    return isLossless ? std::optional<qint64>(qFromBigEndian<quint32>(bytes.data() + 80)) : std::nullopt;
}

void takeSound(SongStream &stream, const Mp4Atoms &atoms, SongDetails &details)
{
    const int track = soundTrack(stream, atoms);
    const int head = track < 0 ? track : atoms.find(track, {"mdia", "mdhd"});
    if (head >= 0)
        details.milliseconds = millisecondsOf(stream, atoms.at(head));
    const int descriptions = head < 0 ? head : atoms.find(track, {"mdia", "minf", "stbl", "stsd"});
    const auto stated = statedBitRate(stream, atoms, descriptions);
    if (!stated)
        return;
    // Where it is left open, the sound's bytes tell.
    details.bitRate = *stated == 0 && descriptions >= 0 && details.milliseconds
                          ? atoms.lengthOfAll(atomName("mdat")) * 8 / *details.milliseconds
                          : qRound64(static_cast<double>(*stated) / 1000);
}

void takeTags(const TagList &list, SongDetails &details)
{
    details.title = list.text("\251nam");
    details.artist = list.text("\251ART");
    details.albumArtist = list.text("aART");
    details.album = list.text("\251alb");
    details.genre = list.genre();
    details.year = yearOf(list.text("\251day"));
    details.composer = list.text("\251wrt");
    details.comment = list.text("\251cmt");
    details.beats = beatsOf(QString::number(list.number("tmpo")));
    details.track = list.ofAll("trkn");
    details.disc = list.ofAll("disk");
}

} // namespace

void readMp4(SongStream &stream, SongDetails &details)
{
    const Mp4Atoms atoms(stream);
    if (atoms.find(Mp4Atoms::Nowhere, {"moov"}) == Mp4Atoms::Nowhere)
        throw Unreadable(u"Not an MP4 file"_s);
    takeTags(TagList(stream, atoms), details);
    takeSound(stream, atoms, details);
}

} // namespace shell
