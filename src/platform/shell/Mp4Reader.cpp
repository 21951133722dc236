// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/SongReaders.h"
#include "platform/shell/TagText.h"

#include <taglib/mp4file.h>

#include <QHash>
#include <QStringDecoder>
#include <QtEndian>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

constexpr int DeepestNesting = 12;
constexpr qint64 AtomHead = 8;
constexpr qint64 LongestText = 64 * 1024;
constexpr qsizetype LongestSoundEntry = 256;
enum DataType { Utf16 = 2 };

/** The four characters of an atom's name as one number. */
using Name = quint32;

Name nameOf(QByteArrayView four)
{
    return qFromBigEndian<Name>(four.data());
}

struct Atom
{
    Name name = 0;
    qint64 content = 0;
    qint64 end = 0;
};

std::optional<Atom> atomAt(SongStream &stream, qint64 offset)
{
    const QByteArrayView head = stream.viewAt(offset, 2 * AtomHead);
    if (head.size() < AtomHead)
        return {};
    qint64 length = qFromBigEndian<quint32>(head.data());
    qint64 headLength = AtomHead;
    if (length == 1 && head.size() == 2 * AtomHead) {
        headLength = 2 * AtomHead;
        length = qFromBigEndian<qint64>(head.data() + AtomHead);
    } else if (length == 0) {
        length = stream.size() - offset;
    }
    if (length < headLength)
        return {};
    return Atom{nameOf(head.sliced(4)), offset + headLength,
                offset + std::min(length, stream.size() - offset)};
}

/** Bytes between an atom's head and its first child; nothing for an atom without children. */
std::optional<qint64> beforeChildren(SongStream &stream, const Atom &atom)
{
    static const std::array plain{nameOf("moov"), nameOf("udta"), nameOf("mdia"),
                                  nameOf("ilst"), nameOf("stbl"), nameOf("minf"),
                                  nameOf("moof"), nameOf("traf"), nameOf("trak")};
    if (atom.name == nameOf("stsd"))
        return 8;
    // Usually four bytes of version stand in front; some writers leave them out.
    if (atom.name == nameOf("meta"))
        return stream.viewAt(atom.content + 4, 4) == "hdlr" ? 0 : 4;
    if (std::ranges::find(plain, atom.name) != plain.end())
        return 0;
    return {};
}

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

/** Bits a second from the decoder's description in a sound entry, which TagLib rounds up; 0 without one. */
qint64 averageBitRate(QByteArrayView entry)
{
    constexpr qsizetype idAndFlags = 3;
    constexpr qsizetype beforeAverage = 9;
    const qsizetype esds = entry.indexOf("esds");
    if (esds < 0 || entry.size() < esds + AtomHead)
        return 0;
    const QByteArrayView stream = descriptor(entry.sliced(esds + AtomHead), '\x03');
    if (stream.size() <= idAndFlags)
        return 0;
    const QByteArrayView decoder = descriptor(stream.sliced(idAndFlags), '\x04');
    const bool complete = decoder.size() >= beforeAverage + 4;
    return complete ? qFromBigEndian<quint32>(decoder.data() + beforeAverage) : 0;
}

/** The entries of the tag list by name and the sound's description, found in one walk over the atoms. */
class TagList
{
public:
    /** @throws Unreadable when the atoms are nested deeper than any writer does, since TagLib recurses. */
    explicit TagList(SongStream &stream) : m_stream(stream) { walk(0, stream.size(), 0, false); }

    /** Kilobits a second; 0 where the file doesn't say. */
    [[nodiscard]] qint64 bitRate() const
    {
        const QByteArray entry = m_sound < 0 ? QByteArray() : m_stream.bytesAt(m_sound, LongestSoundEntry);
        return qRound64(static_cast<double>(averageBitRate(entry)) / 1000);
    }

    [[nodiscard]] qint64 number(const char *name) const
    {
        const QByteArrayView bytes = value(name);
        if (bytes.size() <= AtomHead || bytes.size() > AtomHead + 8)
            return 0;
        qint64 result = 0;
        for (const char c : bytes.sliced(AtomHead))
            result = result << 8 | static_cast<uchar>(c);
        return result;
    }

    /** A text that claims to be UTF-8 and is not, too. */
    [[nodiscard]] QString text(const char *name) const
    {
        const QByteArrayView bytes = value(name);
        if (bytes.size() <= AtomHead)
            return {};
        const QByteArrayView content = bytes.sliced(AtomHead);
        if (bytes[3] == Utf16)
            return QStringDecoder(QStringDecoder::Utf16BE)(content);
        return fromTagBytes(content);
    }

private:
    void walk(qint64 offset, qint64 end, int depth, bool inTagList)
    {
        if (depth > DeepestNesting)
            throw Unreadable(u"Damaged: nested too deeply"_s);
        while (offset < end) {
            const auto atom = atomAt(m_stream, offset);
            if (!atom)
                return;
            if (inTagList && !m_entries.contains(atom->name))
                m_entries.insert(atom->name, atom->content);
            if (m_sound < 0 && atom->name == nameOf("mp4a"))
                m_sound = atom->content;
            if (const auto skipped = beforeChildren(m_stream, *atom))
                walk(atom->content + *skipped, atom->end, depth + 1, atom->name == nameOf("ilst"));
            offset = atom->end;
        }
    }

    /** Four bytes of type, four of country, and the value itself. */
    [[nodiscard]] QByteArrayView value(const char *name) const
    {
        const auto found = m_entries.constFind(nameOf(name));
        if (found == m_entries.constEnd())
            return {};
        const auto data = atomAt(m_stream, *found);
        if (!data || data->name != nameOf("data"))
            return {};
        return m_stream.viewAt(data->content, std::min(data->end - data->content, LongestText));
    }

    SongStream &m_stream;
    qint64 m_sound = -1;
    QHash<Name, qint64> m_entries;
};

QString textOf(const TagLib::MP4::ItemMap &items, const TagList &list, const char *name)
{
    const auto found = items.find(TagLib::String(name, TagLib::String::Latin1));
    const auto values = found == items.end() ? TagLib::StringList() : found->second.toStringList();
    // TagLib cuts a text where it stops being UTF-8.
    const QString first = values.size() > 1 ? QString() : list.text(name);
    return first.isEmpty() ? joined(values) : first;
}

void takeTags(const TagLib::MP4::ItemMap &items, const TagList &list, SongDetails &details)
{
    details.title = textOf(items, list, "\251nam");
    details.artist = textOf(items, list, "\251ART");
    details.album = textOf(items, list, "\251alb");
    details.genre = textOf(items, list, "\251gen");
    details.year = yearOf(textOf(items, list, "\251day"));
    details.composer = textOf(items, list, "\251wrt");
    details.comment = textOf(items, list, "\251cmt");
    details.beats = beatsOf(QString::number(list.number("tmpo")));
    if (const auto track = items.find("trkn"); track != items.end()) {
        const auto pair = track->second.toIntPair();
        details.track = trackText(pair.first, pair.second);
    }
}

} // namespace

void readMp4(SongStream &stream, SongDetails &details)
{
    const TagList list(stream);
    const TagLib::MP4::File file(&stream);
    if (!file.isValid() || !file.tag())
        throw Unreadable(u"Not an MP4 file"_s);
    takeTags(file.tag()->itemMap(), list, details);
    takeProperties(file.audioProperties(), details);
    if (const qint64 bitRate = list.bitRate(); bitRate > 0)
        details.bitRate = bitRate;
}

} // namespace shell
