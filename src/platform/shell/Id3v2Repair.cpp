// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/Id3v2Repair.h"

#include <QStringDecoder>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <functional>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

constexpr qint64 HeadLength = 10;
constexpr int MostFrames = 5'000;
constexpr qint64 MostTextBytes = 512 * 1024;
constexpr qsizetype LongestFrame = 64 * 1024;
constexpr qint64 LongestDecoded = 16 << 20;
constexpr qsizetype LongestSearch = 64 * 1024;
constexpr int MostSearches = 8;

struct Names
{
    std::string_view four;
    /** As version 2 has it; empty where it has none. */
    std::string_view three;
};

constexpr std::array WantedFrames{
    Names{"TIT2", "TT2"}, Names{"TPE1", "TP1"}, Names{"TPE2", "TP2"}, Names{"TALB", "TAL"},
    Names{"TCON", "TCO"}, Names{"TYER", "TYE"}, Names{"TORY", "TOR"}, Names{"TRCK", "TRK"},
    Names{"TPOS", "TPA"}, Names{"TCOM", "TCM"}, Names{"TBPM", "TBP"}, Names{"COMM", "COM"},
    Names{"TDAT", "TDA"}, Names{"TIME", "TIM"}, Names{"TDRC", {}},    Names{"TDOR", {}},
    Names{"TDRL", {}},
};

std::string_view view(const QByteArray &bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

bool isIdLetter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

qint64 plainSize(QByteArrayView bytes)
{
    qint64 size = 0;
    for (const char c : bytes)
        size = size << 8 | static_cast<uchar>(c);
    return size;
}

/** Seven bits a byte; -1 where an eighth is set. */
qint64 packedSize(QByteArrayView bytes)
{
    qint64 size = 0;
    for (const char c : bytes) {
        if ((c & 0x80) != 0)
            return -1;
        size = size << 7 | c;
    }
    return size;
}

QByteArray packed(qint64 size)
{
    QByteArray bytes(4, '\0');
    for (int i = 3; i >= 0; --i, size >>= 7)
        bytes[i] = static_cast<char>(size & 0x7F);
    return bytes;
}

/** Without the zeros that keep players from taking a byte of 255 for sound. */
QByteArray withoutSync(const QByteArray &bytes)
{
    if (!bytes.contains(QByteArrayView("\xFF\0", 2)))
        return bytes;
    QByteArray decoded;
    decoded.reserve(bytes.size());
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        decoded += bytes[i];
        if (bytes[i] == '\xFF' && i + 1 < bytes.size() && bytes[i + 1] == '\0')
            ++i;
    }
    return decoded;
}

bool hasByteOrder(QByteArrayView text)
{
    return text.startsWith("\xFF\xFE") || text.startsWith("\xFE\xFF");
}

/** UTF-16 in the byte order that its zeros tell; that of most players where they don't. */
QByteArray utf8Of(QByteArrayView wide)
{
    if (hasByteOrder(wide))
        return QString(QStringDecoder(QStringDecoder::Utf16)(wide)).toUtf8();
    int first = 0;
    int second = 0;
    for (qsizetype i = 0; i + 1 < wide.size(); i += 2) {
        first += wide[i] == '\0' ? 1 : 0;
        second += wide[i + 1] == '\0' ? 1 : 0;
    }
    const auto order = first > second ? QStringDecoder::Utf16BE : QStringDecoder::Utf16LE;
    return QString(QStringDecoder(order)(wide)).toUtf8();
}

/** True for a frame at the view's beginning that a reader to the letter understands as well. */
bool isPlainFrame(QByteArrayView bytes, int version, qint64 size)
{
    const qsizetype head = version == 2 ? 6 : HeadLength;
    const uint oddFlags = version == 2 ? 0U : static_cast<uchar>(bytes[9]) & (version == 4 ? 0x4FU : 0xE0U);
    const bool isWide = bytes.size() > head && bytes[head] == '\1';
    if (size <= 0 || (oddFlags == 0 && !isWide))
        return size > 0;
    const std::string_view id(bytes.data(), version == 2 ? 3 : 4);
    if (!isWantedFrame(id))
        return true;
    QByteArrayView text = bytes.sliced(std::min(bytes.size(), head + (id.starts_with("COM") ? 4 : 1)));
    if (id.starts_with("COM") && text.startsWith(QByteArrayView("\0\0", 2)))
        text = text.sliced(2);
    return oddFlags == 0 && hasByteOrder(text);
}

/** A quick look, since nearly all tags are without fault. */
bool isPlainTag(SongStream &stream, qint64 frames, int version, qint64 length)
{
    constexpr qsizetype seen = HeadLength + 8;
    const qsizetype idLength = version == 2 ? 3 : 4;
    const qsizetype head = version == 2 ? 6 : HeadLength;
    bool isSure = true;
    for (qint64 at = 0; at + head <= length;) {
        const QByteArrayView bytes = stream.viewAt(frames + at, std::min<qint64>(seen, length - at));
        if (bytes.size() < head)
            return true;
        if (bytes[0] == '\0')
            return isSure || bytes.first(head).count('\0') == head;
        const QByteArrayView number = bytes.sliced(idLength, version == 2 ? 3 : 4);
        const qint64 size = version == 4 ? packedSize(number) : plainSize(number);
        if (!std::all_of(bytes.begin(), bytes.begin() + idLength, isIdLetter) || at + head + size > length ||
            !isPlainFrame(bytes, version, size))
            return false;
        // What looks like zeros behind it may be within it, by the other way of writing sizes.
        isSure = size < 0x80 || version == 2;
        at += head + size;
    }
    return true;
}

/** One way to go through a tag's frames. */
class FrameWalk final
{
public:
    using Read = std::function<QByteArray(qint64 at, qsizetype length)>;

    FrameWalk(Read read, int version, qint64 length, bool unsynchronised)
        : m_read(std::move(read)), m_version(version), m_length(length), m_unsynchronised(unsynchronised),
          m_idLength(version == 2 ? 3 : 4), m_head(version == 2 ? 6 : HeadLength)
    {}

    void walk(qint64 at)
    {
        for (int frames = 0; frames < MostFrames && at + m_head <= m_length; ++frames) {
            const QByteArray head = m_read(at, m_head);
            if (head.size() < m_head || head[0] == '\0')
                return;
            const QByteArray id = idOf(head);
            const qint64 size = id.isEmpty() ? -1 : sizeAt(at, head);
            if (size < 0 || at + m_head + size > m_length) {
                at = ++m_searches <= MostSearches ? nextWanted(at + 1) : -1;
                if (at < 0)
                    return;
                m_odd = true;
                continue;
            }
            if (size == 0)
                m_odd = true;
            else if (isWantedFrame(view(id)))
                take(id, at, size, head);
            at += m_head + size;
        }
    }

    [[nodiscard]] bool isOdd() const { return m_odd; }
    void setOdd() { m_odd = true; }
    [[nodiscard]] int found() const { return m_found; }
    [[nodiscard]] const QByteArray &frames() const { return m_frames; }

    /** A frame begins there, or what is behind the last one: 2 for sure, 1 for zeros, 0 for neither. */
    [[nodiscard]] int isPlaceOfFrame(qint64 at)
    {
        if (at == m_length)
            return 2;
        const QByteArray head = at > m_length ? QByteArray() : m_read(at, m_head);
        if (head.isEmpty())
            return 0;
        if (head.count('\0') == head.size())
            return 1;
        return std::all_of(head.begin(), head.begin() + std::min(m_idLength, head.size()), isIdLetter) ? 2
                                                                                                       : 0;
    }

private:
    /** In upper case and as the tag's version spells it; empty for none. */
    QByteArray idOf(const QByteArray &head)
    {
        const QByteArray written = head.first(m_idLength);
        QByteArray id = written.toUpper();
        if (m_idLength == 4 && (id.endsWith(' ') || id.endsWith('\0'))) {
            id.chop(1);
            const auto *known = std::ranges::find(WantedFrames, view(id), &Names::three);
            if (known != WantedFrames.end())
                id = QByteArray(known->four.data(), static_cast<qsizetype>(known->four.size()));
        }
        if (!std::ranges::all_of(id, isIdLetter))
            return {};
        m_odd = m_odd || id != written;
        return id;
    }

    qint64 sizeAt(qint64 at, const QByteArray &head)
    {
        const QByteArrayView bytes = QByteArrayView(head).sliced(m_idLength, m_version == 2 ? 3 : 4);
        const qint64 plain = plainSize(bytes);
        const qint64 packed = packedSize(bytes);
        if (m_version == 2 || plain == packed)
            return plain;
        const qint64 usual = m_version == 4 ? packed : plain;
        const qint64 other = m_version == 4 ? plain : packed;
        const int ofUsual = usual < 0 ? -1 : isPlaceOfFrame(at + m_head + usual);
        const int ofOther = other < 0 ? -1 : isPlaceOfFrame(at + m_head + other);
        if (ofOther <= ofUsual)
            return usual;
        m_odd = true;
        return other;
    }

    qint64 nextWanted(qint64 at)
    {
        const QByteArray bytes = m_read(at, LongestSearch);
        const auto idLength = static_cast<std::size_t>(m_idLength);
        for (qsizetype i = 0; i + m_head <= bytes.size(); ++i) {
            const char first = bytes[i];
            if ((first != 'T' && first != 'C') ||
                !isWantedFrame(view(bytes).substr(static_cast<std::size_t>(i), idLength)))
                continue;
            const QByteArrayView size = QByteArrayView(bytes).sliced(i + m_idLength, m_version == 2 ? 3 : 4);
            if (isPlaceOfFrame(at + i + m_head + plainSize(size)) > 0)
                return at + i;
        }
        return -1;
    }

    void take(const QByteArray &id, qint64 at, qint64 size, const QByteArray &head)
    {
        if (size > LongestFrame || m_frames.size() + size > MostTextBytes)
            return;
        const std::optional<QByteArray> plain =
            withoutFlags(m_read(at + m_head, size), m_version == 2 ? 0 : static_cast<uchar>(head[9]));
        if (!plain || plain->isEmpty())
            return;
        const QByteArray content = withByteOrder(*plain, id.startsWith("COM") ? 3 : 0);
        QByteArray length = packed(content.size());
        if (m_version < 4) {
            const auto big = qToBigEndian(static_cast<quint32>(content.size()));
            length =
                QByteArray(reinterpret_cast<const char *>(&big), sizeof big).last(m_version == 2 ? 3 : 4);
        }
        m_frames += id + length + (m_version == 2 ? QByteArray() : QByteArray(2, '\0')) + content;
        ++m_found;
    }

    /** The frame's content as it was before its flags were set; nothing for an encrypted one. */
    std::optional<QByteArray> withoutFlags(QByteArray content, uint flags)
    {
        const bool four = m_version == 4;
        const bool grouped = (flags & (four ? 0x40U : 0x20U)) != 0;
        const bool compressed = (flags & (four ? 0x08U : 0x80U)) != 0;
        const bool lengthTold = four && (flags & 0x01U) != 0;
        if ((flags & (four ? 0x04U : 0x40U)) != 0)
            return {};
        if (grouped) {
            content.remove(compressed && !four ? 4 : 0, 1);
            m_odd = true;
        }
        if (m_unsynchronised || (four && (flags & 0x02U) != 0)) {
            const qsizetype stored = content.size();
            content = withoutSync(content);
            m_odd = m_odd || content.size() != stored;
        }
        if (!compressed)
            return lengthTold ? content.sliced(std::min<qsizetype>(4, content.size())) : content;
        const qint64 unpacked = content.size() < 4 ? -1
                                : four             ? packedSize(content.first(4))
                                                   : plainSize(content.first(4));
        if (unpacked < 0 || unpacked > LongestFrame || (four && !lengthTold))
            return {};
        const auto big = qToBigEndian(static_cast<quint32>(unpacked));
        return qUncompress(QByteArray(reinterpret_cast<const char *>(&big), 4) + content.sliced(4));
    }

    QByteArray withByteOrder(const QByteArray &content, qsizetype language)
    {
        if (content[0] != '\1' || content.size() < 3 + language)
            return content;
        const QByteArrayView text = QByteArrayView(content).sliced(1 + language);
        // A comment's description is often empty, and then says nothing of the text behind it.
        const bool isEmptyDescription = language > 0 && text.startsWith(QByteArrayView("\0\0", 2));
        if (hasByteOrder(isEmptyDescription ? text.sliced(2) : text))
            return content;
        m_odd = true;
        return '\3' + content.mid(1, language) + utf8Of(text);
    }

    Read m_read;
    int m_version;
    qint64 m_length;
    bool m_unsynchronised;
    qsizetype m_idLength;
    qsizetype m_head;
    bool m_odd = false;
    int m_found = 0;
    int m_searches = 0;
    QByteArray m_frames;
};

/** What stands in front of the frames: how long it is depends on who wrote it. */
qint64 extendedLength(FrameWalk &walk, const QByteArray &size, int version)
{
    if (size.size() < 4)
        return 0;
    if (version == 4)
        return std::max<qint64>(packedSize(size), 0);
    const qint64 length = plainSize(size);
    walk.setOdd();
    return walk.isPlaceOfFrame(4 + length) > 0 ? 4 + length : length;
}

FrameWalk walked(const FrameWalk::Read &read, int version, qint64 length, uint flags, bool unsynchronised)
{
    FrameWalk walk(read, version, length, unsynchronised);
    const bool extended = version > 2 && (flags & 0x40U) != 0;
    walk.walk(extended ? extendedLength(walk, read(0, 4), version) : 0);
    return walk;
}

FrameWalk bestWalk(SongStream &stream, qint64 frames, int version, qint64 length, uint flags)
{
    const FrameWalk::Read asStored = [&](qint64 at, qsizetype wanted) {
        return stream.bytesAt(frames + at, std::min<qint64>(wanted, length - at));
    };
    const bool unsynchronised = (flags & 0x80U) != 0;
    FrameWalk raw = walked(asStored, version, length, flags, unsynchronised);
    if (!unsynchronised || version == 4 || length > LongestDecoded)
        return raw;
    // Sizes count the bytes before the zeros were put in; some writers count those behind.
    const QByteArray decoded = withoutSync(stream.bytesAt(frames, length));
    const FrameWalk::Read asDecoded = [&](qint64 at, qsizetype wanted) { return decoded.mid(at, wanted); };
    FrameWalk whole = walked(asDecoded, version, decoded.size(), flags, false);
    if (raw.found() <= whole.found())
        return whole;
    raw.setOdd();
    return raw;
}

} // namespace

bool isWantedFrame(std::string_view id)
{
    return !id.empty() &&
           std::ranges::any_of(WantedFrames, [id](const Names &n) { return id == n.four || id == n.three; });
}

std::optional<QByteArray> repairedId3v2(SongStream &stream, qint64 offset)
{
    const QByteArray head = stream.viewAt(offset, HeadLength).toByteArray();
    if (head.size() < HeadLength || !head.startsWith("ID3"))
        return {};
    const int version = head[3];
    const qint64 length =
        std::min(packedSize(QByteArrayView(head).sliced(6)), stream.size() - offset - HeadLength);
    if (version < 2 || version > 4 || length <= 0)
        return {};
    constexpr uint unsynchronisedOrExtended = 0xC0;
    const uint flags = static_cast<uchar>(head[5]);
    if ((flags & unsynchronisedOrExtended) == 0 && isPlainTag(stream, offset + HeadLength, version, length))
        return {};
    const FrameWalk walk = bestWalk(stream, offset + HeadLength, version, length, flags);
    if (!walk.isOdd() || walk.found() == 0)
        return {};
    return head.first(5) + '\0' + packed(walk.frames().size()) + walk.frames();
}

} // namespace shell
