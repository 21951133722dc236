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
/** Of the samples told in one run of a file made in pieces. */
constexpr qint64 LongestRun = 1 << 20;
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

    /** Some writers make one for each of several values. */
    [[nodiscard]] std::vector<const Atom *> entriesOf(const char *name) const
    {
        const AtomName wanted = atomName(name);
        std::vector<const Atom *> found;
        for (const int place : m_entries) {
            if (m_atoms.at(place).name == wanted)
                found.push_back(&m_atoms.at(place));
        }
        return found;
    }

    [[nodiscard]] std::optional<Value> firstValue(const char *name) const
    {
        const std::vector<const Atom *> entries = entriesOf(name);
        return entries.empty() ? std::nullopt : valueAt(entries.front()->content, entries.front()->end);
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
        for (const Atom *atom : entriesOf(name))
            takeTexts(*atom, texts);
        return texts;
    }

    void takeTexts(const Atom &atom, TagLib::StringList &texts) const
    {
        for (auto next = valueAt(atom.content, atom.end); next; next = valueAt(next->end, atom.end)) {
            const QByteArrayView bytes = next->type == Utf8 ? bytesOf(*next) : QByteArrayView();
            if (next->type == Utf8)
                texts.append(
                    TagLib::String(TagLib::ByteVector(bytes.data(), static_cast<unsigned>(bytes.size())),
                                   TagLib::String::UTF8));
        }
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

/** How long the samples of a piece are together, in the track's own units. */
qint64 lengthOfPiece(SongStream &stream, const Mp4Atoms &atoms, int piece, qint64 usualLength)
{
    enum Flag { Offset = 0x1, FirstFlags = 0x4, Length = 0x100, Size = 0x200, Flags = 0x400, Shift = 0x800 };
    const int head = atoms.find(piece, {"tfhd"});
    if (head >= 0) {
        const QByteArrayView bytes = stream.viewAt(atoms.at(head).content, 24);
        const quint32 flags = bytes.size() < 8 ? 0 : qFromBigEndian<quint32>(bytes.data());
        const qsizetype at = 8 + ((flags & 0x1U) != 0 ? 8 : 0) + ((flags & 0x2U) != 0 ? 4 : 0);
        if ((flags & 0x8U) != 0 && bytes.size() >= at + 4)
            usualLength = qFromBigEndian<quint32>(bytes.data() + at);
    }
    qint64 sum = 0;
    for (const int run : atoms.within(piece, atomName("trun"))) {
        const Atom &atom = atoms.at(run);
        const QByteArray bytes = stream.bytesAt(atom.content, std::min(atom.end - atom.content, LongestRun));
        if (bytes.size() < 8)
            continue;
        const auto flags = qFromBigEndian<quint32>(bytes.constData());
        const qint64 samples = qFromBigEndian<quint32>(bytes.constData() + 4);
        const auto has = [flags](Flag flag) { return (flags & flag) != 0; };
        const qsizetype step = 4 * (has(Length) + has(Size) + has(Flags) + has(Shift));
        if (!has(Length)) {
            sum += samples * usualLength;
            continue;
        }
        qsizetype at = 8 + (has(Offset) ? 4 : 0) + (has(FirstFlags) ? 4 : 0);
        for (qint64 i = 0; i < samples && at + step <= bytes.size(); ++i, at += step)
            sum += qFromBigEndian<quint32>(bytes.constData() + at);
    }
    return sum;
}

/** A file made in pieces tells its length in them alone. Not of one with several tracks. */
std::optional<qint64> millisecondsOfPieces(SongStream &stream, const Mp4Atoms &atoms, const Atom &head)
{
    const QByteArrayView bytes = stream.viewAt(head.content, 24);
    const bool wide = !bytes.isEmpty() && bytes[0] == 1;
    const int movie = atoms.find(Mp4Atoms::Nowhere, {"moov"});
    if (bytes.size() < 24 || atoms.within(movie, atomName("trak")).size() != 1)
        return {};
    const qint64 unit = qFromBigEndian<quint32>(bytes.data() + (wide ? 20 : 12));
    const int usual = atoms.find(movie, {"mvex", "trex"});
    const QByteArrayView usualBytes =
        usual < 0 ? QByteArrayView() : stream.viewAt(atoms.at(usual).content, 16);
    const qint64 usualLength = usualBytes.size() < 16 ? 0 : qFromBigEndian<quint32>(usualBytes.data() + 12);
    qint64 sum = 0;
    for (const int piece : atoms.withinAll(atomName("moof"))) {
        if (atoms.at(piece).name == atomName("traf"))
            sum += lengthOfPiece(stream, atoms, piece, usualLength);
    }
    const double milliseconds = unit > 0 ? static_cast<double>(sum) * 1000.0 / static_cast<double>(unit) : 0;
    if (milliseconds < 1 || milliseconds > std::numeric_limits<int>::max())
        return {};
    return qRound64(milliseconds);
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
    if (head >= 0 && !details.milliseconds)
        details.milliseconds = millisecondsOfPieces(stream, atoms, atoms.at(head));
    const int descriptions = head < 0 ? head : atoms.find(track, {"mdia", "minf", "stbl", "stsd"});
    const auto stated = statedBitRate(stream, atoms, descriptions);
    const int movie = atoms.find(Mp4Atoms::Nowhere, {"moov"});
    // With a film beside the sound, the bytes are not the sound's.
    if (!stated && atoms.within(movie, atomName("trak")).size() != 1)
        return;
    const qint64 rate = stated.value_or(0);
    // Where it is left open, the sound's bytes tell.
    details.bitRate = rate == 0 && descriptions >= 0 && details.milliseconds
                          ? atoms.lengthOfAll(atomName("mdat")) * 8 / *details.milliseconds
                          : qRound64(static_cast<double>(rate) / 1000);
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
