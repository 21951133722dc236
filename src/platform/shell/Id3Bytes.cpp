// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/Id3Bytes.h"

#include "platform/shell/TagText.h"

#include <taglib/attachedpictureframe.h>
#include <taglib/tbytevectorstream.h>

#include <QtEndian>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

constexpr qsizetype HeadLength = 10;
/** Room for the next change, which then needs not to move the sound. */
constexpr qsizetype NewPadding = 2048;
/** More than this is given back. */
constexpr qsizetype MostPadding = 1024 * 1024;

using TagLib::ID3v2::AttachedPictureFrame;

/** The same tag with TagLib's eyes. */
class ReadTag
{
public:
    explicit ReadTag(const QByteArray &bytes) : m_stream(toVector(bytes)), m_file(m_stream), m_tag(&m_file, 0)
    {}
    TagLib::ID3v2::Tag *operator->() { return &m_tag; }

private:
    TagLib::ByteVectorStream m_stream;
    StreamFile m_file;
    TagLib::ID3v2::Tag m_tag;
};

qsizetype synchSafe(const char *bytes)
{
    qsizetype size = 0;
    for (int i = 0; i < 4; ++i)
        size = size << 7 | (bytes[i] & 0x7F);
    return size;
}

bool isFrameId(QByteArrayView id)
{
    return std::ranges::all_of(id, [](char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); });
}

/** Where the next frame, the padding or the end can be. */
bool canFollow(const QByteArray &tag, qsizetype at)
{
    return at == tag.size() || (at + 4 <= tag.size() && tag[at] == '\0') ||
           (at + HeadLength <= tag.size() && isFrameId(QByteArrayView(tag).sliced(at, 4)));
}

/** Some writers of version 4 gave the plain number. -1 when neither reading leads to another frame. */
qsizetype frameEnd(const QByteArray &tag, qsizetype at)
{
    const char *size = tag.constData() + at + 4;
    const qsizetype plain = at + HeadLength + static_cast<qsizetype>(qFromBigEndian<quint32>(size));
    const qsizetype safe = at + HeadLength + synchSafe(size);
    if (tag[3] == 4 && safe <= tag.size() && canFollow(tag, safe))
        return safe;
    return plain <= tag.size() && canFollow(tag, plain) ? plain : -1;
}

} // namespace

void setPictures(TagLib::ID3v2::Tag &tag, const QList<TagPicture> &pictures)
{
    tag.removeFrames("APIC");
    for (const TagPicture &picture : pictures) {
        auto *frame = new AttachedPictureFrame;
        frame->setTextEncoding(TagLib::String::UTF16);
        frame->setMimeType(toTag(picture.mimeType));
        frame->setType(static_cast<AttachedPictureFrame::Type>(picture.role));
        frame->setDescription(toTag(picture.description));
        frame->setPicture(toVector(picture.bytes));
        tag.addFrame(frame);
    }
}

Id3Bytes::Id3Bytes(QByteArray tag) : m_tag(std::move(tag))
{}

TagLib::ID3v2::Version Id3Bytes::version() const
{
    return m_tag.size() > 3 && m_tag[3] >= 4 ? TagLib::ID3v2::v4 : TagLib::ID3v2::v3;
}

QString Id3Bytes::kind() const
{
    return u"ID3v2.%1"_s.arg(m_tag.size() > 3 ? int(m_tag[3]) : 3);
}

TagLib::PropertyMap Id3Bytes::fields() const
{
    return isEmpty() ? TagLib::PropertyMap() : ReadTag(m_tag)->properties();
}

QList<TagPicture> Id3Bytes::pictures() const
{
    QList<TagPicture> all;
    if (isEmpty())
        return all;
    ReadTag tag(m_tag);
    for (const TagLib::ID3v2::Frame *each : tag->frameList("APIC")) {
        if (const auto *frame = dynamic_cast<const AttachedPictureFrame *>(each))
            all.push_back({fromVector(frame->picture()), fromTag(frame->mimeType()), frame->type(),
                           fromTag(frame->description())});
    }
    return all;
}

QByteArray Id3Bytes::changed(const TagChange &change) const
{
    if (isEmpty())
        return spliced({}, change);
    const auto frames = framesOf(m_tag);
    return frames ? spliced(*frames, change) : rendered(change);
}

std::optional<QList<Id3Bytes::Frame>> Id3Bytes::framesOf(const QByteArray &tag)
{
    constexpr qsizetype version = 3;
    constexpr qsizetype flags = 5;
    if (tag.size() < HeadLength || tag[version] < 3 || tag[version] > 4 || tag[flags] != 0)
        return {};
    QList<Frame> frames;
    for (qsizetype at = HeadLength; at + HeadLength <= tag.size() && tag[at] != '\0';) {
        const QByteArray id = tag.sliced(at, 4);
        const qsizetype end = isFrameId(id) ? frameEnd(tag, at) : -1;
        if (end < 0)
            return {};
        frames.push_back({id, tag.sliced(at, end - at)});
        at = end;
    }
    return frames;
}

QByteArray Id3Bytes::headOf(qint64 content) const
{
    QByteArray head("ID3");
    head += m_tag.isEmpty() ? QByteArray("\x03\0\0", 3) : m_tag.sliced(3, 2) + '\0';
    for (int shift = 21; shift >= 0; shift -= 7)
        head += static_cast<char>(content >> shift & 0x7F);
    return head;
}

Id3Bytes::Keys Id3Bytes::keysOf(const Frame &frame) const
{
    // These say more of the date that another frame holds.
    if (frame.id == "TDAT" || frame.id == "TIME" || frame.id == "TRDA")
        return {"DATE"};
    Keys keys;
    for (const auto &[key, values] : ReadTag(headOf(frame.bytes.size()) + frame.bytes)->properties())
        keys.insert(key);
    return keys;
}

QByteArray Id3Bytes::spliced(const QList<Frame> &frames, const TagChange &change) const
{
    Keys touched;
    for (const auto &[key, values] : change.values)
        touched.insert(key);
    std::vector<Keys> keys;
    for (const Frame &frame : frames)
        keys.push_back(keysOf(frame));
    const auto goes = [&](const Keys &of) {
        return std::ranges::any_of(of, [&](const TagLib::String &key) { return touched.contains(key); });
    };
    // A frame may hold several fields: with one of them all are written anew.
    for (bool grown = true; grown;) {
        const std::size_t before = touched.size();
        for (const Keys &of : keys) {
            if (goes(of))
                touched.insert(of.begin(), of.end());
        }
        grown = touched.size() != before;
    }
    QByteArray kept;
    for (qsizetype i = 0; i < frames.size(); ++i) {
        const bool isPicture = change.pictures && frames[i].id == "APIC";
        if (!isPicture && !goes(keys[static_cast<std::size_t>(i)]))
            kept += frames[i].bytes;
    }
    const TagLib::PropertyMap wanted = change.appliedTo(fields());
    TagLib::PropertyMap written;
    for (const TagLib::String &key : touched) {
        if (wanted.contains(key))
            written[key] = wanted[key];
    }
    TagLib::ID3v2::Tag fresh;
    fresh.setProperties(written);
    if (change.pictures)
        setPictures(fresh, *change.pictures);
    if (!fresh.frameList().isEmpty()) {
        const auto added = framesOf(fromVector(fresh.render(version())));
        for (const Frame &frame : added.value_or(QList<Frame>()))
            kept += frame.bytes;
    }
    return assembled(kept);
}

QByteArray Id3Bytes::rendered(const TagChange &change) const
{
    ReadTag tag(m_tag);
    tag->setProperties(change.appliedTo(tag->properties()));
    if (change.pictures)
        setPictures(*tag.operator->(), *change.pictures);
    return tag->frameList().isEmpty() ? QByteArray() : fromVector(tag->render(version()));
}

QByteArray Id3Bytes::assembled(const QByteArray &frames) const
{
    if (frames.isEmpty())
        return {};
    const qsizetype room = m_tag.size() - HeadLength - frames.size();
    const qsizetype padding = room >= 0 && room <= MostPadding ? room : NewPadding;
    return headOf(frames.size() + padding) + frames + QByteArray(padding, '\0');
}

} // namespace shell
