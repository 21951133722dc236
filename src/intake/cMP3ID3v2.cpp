// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/cMP3ID3v2.h"

#include "platform/text/Text.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int FirstVersion = 2;
constexpr int FirstLongHeaders = 3;
constexpr int LastVersion = 4;

QString sourceWith(const QString &suffix)
{
    return QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName() + suffix;
}

/** Runs a look-up; its failure becomes one of this class. */
template <typename Lookup> auto lookUp(const Lookup &lookup)
{
    try {
        return lookup();
    } catch (const dao::DaoError &error) {
        throw Mp3TagError(error.number, error.description, sourceWith(u".cMP3ID3v2"_s));
    }
}

QString tagKey(const QString &frameId, qint32 number)
{
    return frameId + u':' + QString::number(number);
}

/** That many bytes; what lies behind the end of the file is 0. */
QByteArray readFilled(QFile &file, qsizetype count)
{
    QByteArray bytes = file.read(count);
    bytes.append(count - bytes.size(), '\0');
    return bytes;
}

qint32 readLong(QFile &file)
{
    return qFromLittleEndian<qint32>(readFilled(file, sizeof(qint32)).constData());
}

/** @throws dao::DaoError 457 when there is one of that key. */
template <typename Item> void addNew(KeyedCollection<Item> &collection, const QString &key, const Item &item)
{
    constexpr int KeyIsTaken = 457;
    if (!collection.add(key, item))
        throw dao::DaoError(KeyIsTaken, u"This key is already in the collection."_s);
}

} // namespace

const cMP3ID3v2::Content &cMP3ID3v2::content() const
{
    constexpr int ObjectNotSet = 91;
    if (!m_content)
        throw dao::DaoError(ObjectNotSet, u"No file was read."_s);
    return *m_content;
}

cMP3ID3v2::Content &cMP3ID3v2::content()
{
    return const_cast<Content &>(std::as_const(*this).content());
}

void cMP3ID3v2::setMP3File(const QString &path)
{
    m_file = path;
    ReadTagFile();
}

void cMP3ID3v2::ReadTagFile()
{
    m_content.emplace();
    m_comment.clear();
    QFile file(m_file);
    if (!file.open(QIODevice::ReadOnly)) {
        const int number = file.exists() ? dao::PathFileAccess : dao::FileNotFound;
        // The suffix of the other version is meant.
        throw Mp3TagError(number, file.errorString(), sourceWith(u".cMP3ID3v1"_s));
    }
    // Without a tag, position and version stay those of the file before.
    const qint64 position = FindID3v2Tag(file);
    if (position > 0 && file.seek(position - 1)) {
        m_tagPosition = position;
        ReadFrames(file);
    }
}

qint64 cMP3ID3v2::FindID3v2Tag(QFile &file)
{
    constexpr qint64 ChunkSize = 4096;
    constexpr qint64 Overlap = 3;
    const QByteArray audioFrame("\xFF\xFB", 2);
    qint64 position = 1;
    for (bool done = false; !done;) {
        qint64 size = ChunkSize;
        if (position + ChunkSize >= file.size()) {
            // The last byte of the file is left out, which is meant.
            size = std::max<qint64>(0, file.size() - position);
            done = true;
        }
        const QByteArray chunk = file.read(size);
        const qsizetype found = chunk.indexOf("ID3");
        if (found >= 0)
            return position + found + 1 + 2;
        done = done || chunk.contains(audioFrame);
        position += ChunkSize - Overlap;
        done = !file.seek(position - 1) || done;
    }
    return 0;
}

void cMP3ID3v2::ReadFrames(QFile &file)
{
    m_tagVersion = static_cast<quint8>(readFilled(file, 1).at(0));
    if (m_tagVersion < FirstVersion || m_tagVersion > LastVersion)
        return;
    (void)file.read(2);
    const qint64 tagSize = SwapLong(readLong(file));
    const bool isShort = m_tagVersion < FirstLongHeaders;
    // More than the headers take in the file, which is meant: the limit is reached earlier.
    const qint64 consumedByHeader = isShort ? 9 : 16;
    qint64 consumed = 0;
    do {
        const QByteArray id = readFilled(file, isShort ? 3 : 4);
        qint64 size = 0;
        if (isShort) {
            const QByteArray bytes = readFilled(file, 3);
            size = qFromBigEndian<quint32>((QByteArray(1, '\0') + bytes).constData());
        } else {
            size = SwapLong(readLong(file));
            (void)file.read(2);
        }
        consumed += consumedByHeader;
        if (id.count('\0') == id.size() || consumed + size > tagSize)
            return;
        if (size < 0)
            throw dao::DaoError(5, u"Invalid procedure call or argument"_s);
        // A size beyond the end of the file takes what is there.
        const QByteArray text = file.read(std::min(size, file.size() - file.pos()));
        consumed += size;
        StoreTag(isShort ? ConvertFrameId(id) : QString::fromLatin1(id), StripNulls(text));
        // The position counts from the start of the file, not of the tag, which is meant.
    } while (file.pos() + 1 <= tagSize);
}

QString cMP3ID3v2::StripNulls(const QByteArray &bytes)
{
    return fromSystemCodePage(bytes).remove(QChar(u'\0'));
}

QString cMP3ID3v2::ConvertFrameId(const QByteArray &id)
{
    using Pair = std::pair<QLatin1StringView, QLatin1StringView>;
    static constexpr std::array Pairs{Pair{"TP1"_L1, "TPE1"_L1}, Pair{"TT2"_L1, "TIT2"_L1},
                                      Pair{"TAL"_L1, "TALB"_L1}, Pair{"COM"_L1, "COMM"_L1},
                                      Pair{"TRK"_L1, "TRCK"_L1}, Pair{"TEN"_L1, "TENC"_L1},
                                      Pair{"TYE"_L1, "TYER"_L1}, Pair{"TCO"_L1, "TCON"_L1}};
    const QString read = QString::fromLatin1(id);
    const auto *found = std::ranges::find(Pairs, read, &Pair::first);
    return found == Pairs.end() ? QString() : QString(found->second);
}

void cMP3ID3v2::addText(const QString &frameId, const QString &text, bool isNew)
{
    Content &all = content();
    qint32 number = 1;
    if (!isNew) {
        number = all.TagCounts.item(frameId) + 1;
        all.TagCounts.remove(frameId);
    }
    addNew(all.TagCounts, frameId, number);
    addNew(all.Tags, tagKey(frameId, number), text);
}

void cMP3ID3v2::StoreTag(const QString &frameId, const QString &text)
{
    addText(frameId, text, content().Frames.add(frameId, frameId));
    if (frameId != "COMM"_L1)
        return;
    const QString comment = text.startsWith("eng"_L1) ? text.sliced(3) : text;
    if (!m_comment.isEmpty())
        m_comment += QChar(u'\0') + u"\r\n"_s;
    m_comment += comment;
}

void cMP3ID3v2::AddTag(const QString &frameId, const QString &text)
{
    const bool isNew = !content().Frames.contains(frameId);
    if (isNew)
        content().Frames.add(frameId, frameId);
    addText(frameId, text, isNew);
}

template <typename KeyOrPlace> void cMP3ID3v2::removeFrame(const KeyOrPlace &which)
{
    Content &all = content();
    const QString frameId = lookUp([&] { return all.Frames.item(which); });
    all.Frames.remove(which);
    all.TagCounts.remove(which);
    for (qint32 number = 1; all.Tags.contains(tagKey(frameId, number)); ++number)
        all.Tags.remove(tagKey(frameId, number));
}

void cMP3ID3v2::RemoveFrame(const QString &frameId)
{
    removeFrame(frameId);
}

void cMP3ID3v2::RemoveFrame(qint32 index)
{
    removeFrame(index);
}

void cMP3ID3v2::RemoveTag(const QString &frameId, qint32 number)
{
    Content &all = content();
    lookUp([&] { return all.Tags.item(tagKey(frameId, number)); });
    const qint32 count = lookUp([&] { return all.TagCounts.item(frameId); });
    if (count == 1) {
        all.Tags.remove(tagKey(frameId, number));
        all.TagCounts.remove(frameId);
        all.Frames.remove(frameId);
        return;
    }
    // Only this frame's texts come into the new collection: the others' are gone, which is meant.
    KeyedCollection<QString> renumbered;
    for (qint32 old = 1; old <= count; ++old) {
        if (old != number)
            renumbered.add(tagKey(frameId, renumbered.count() + 1),
                           lookUp([&] { return all.Tags.item(tagKey(frameId, old)); }));
    }
    all.TagCounts.remove(frameId);
    all.TagCounts.add(frameId, count - 1);
    all.Tags = std::move(renumbered);
}

QString cMP3ID3v2::Tag(const QString &frameId, qint32 number) const
{
    return content().Tags.item(tagKey(frameId, number));
}

void cMP3ID3v2::setComment(const QString &comment)
{
    m_comment = comment;
    const QString frameId = u"COMM"_s;
    if (content().Frames.contains(frameId))
        RemoveFrame(frameId);
    AddTag(frameId, QChar(u'\0') + u"nt"_s + QChar(u'\0') + comment);
}

qint32 cMP3ID3v2::SwapLong(qint32 value)
{
    return qbswap(value);
}

void cMP3ID3v2::PutSwappedLong(QByteArray &bytes, qsizetype index, qint32 value)
{
    const qint32 swapped = qToBigEndian(value);
    const auto *first = reinterpret_cast<const char *>(&swapped);
    std::copy(first, first + sizeof swapped, bytes.begin() + index);
}

QString cMP3ID3v2::TrimAtNull(const QString &text)
{
    const qsizetype end = text.indexOf(QChar(u'\0'));
    return end < 0 ? text : text.first(end);
}

} // namespace quaverly
