// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/EndTags.h"

#include "platform/shell/SongReaders.h"

#include <taglib/apefooter.h>
#include <taglib/apetag.h>
#include <taglib/id3v1tag.h>
#include <taglib/tbytevectorstream.h>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

constexpr qint64 Id3v1Length = 128;
constexpr qint64 Id3Head = 10;

/** A tag of those at a file's end, read from its own bytes. */
template <typename Tag> class EndTag
{
public:
    EndTag(const QByteArray &bytes, long offset)
        : m_stream(toVector(bytes)), m_file(m_stream), m_tag(&m_file, offset)
    {}
    Tag *operator->() { return &m_tag; }

private:
    TagLib::ByteVectorStream m_stream;
    StreamFile m_file;
    Tag m_tag;
};

using Id3v1 = EndTag<TagLib::ID3v1::Tag>;

class Ape : public EndTag<TagLib::APE::Tag>
{
public:
    explicit Ape(const QByteArray &bytes) : EndTag(bytes, bytes.size() - TagLib::APE::Footer::size()) {}
};

void addMissing(TagLib::PropertyMap &to, const TagLib::PropertyMap &from)
{
    for (const auto &[key, values] : from) {
        if (!to.contains(key))
            to[key] = values;
    }
}

} // namespace

EndTags::EndTags(PieceStream &stream) : m_stream(stream), m_soundEnd(stream.size())
{
    const QByteArray head = stream.bytesAt(0, Id3Head);
    m_front = std::min(id3v2Length(head), stream.size());
    if (m_front > 0)
        m_id3v2 = Id3Bytes(stream.bytesAt(0, m_front));
    if (m_soundEnd - Id3v1Length >= m_front) {
        const QByteArray last = stream.bytesAt(m_soundEnd - Id3v1Length, Id3v1Length);
        if (last.startsWith("TAG")) {
            m_id3v1 = last;
            m_soundEnd -= Id3v1Length;
        }
    }
    const qint64 footer = m_soundEnd - TagLib::APE::Footer::size();
    const QByteArray ape =
        footer >= m_front ? stream.bytesAt(footer, TagLib::APE::Footer::size()) : QByteArray();
    if (ape.startsWith("APETAGEX")) {
        const qint64 length = TagLib::APE::Footer(toVector(ape)).completeTagSize();
        if (length >= ape.size() && length <= m_soundEnd - m_front) {
            m_soundEnd -= length;
            m_ape = stream.bytesAt(m_soundEnd, length);
        }
    }
}

QStringList EndTags::kinds() const
{
    QStringList all;
    if (!m_id3v2.isEmpty())
        all += m_id3v2.kind();
    if (!m_ape.isEmpty())
        all += u"APE"_s;
    if (!m_id3v1.isEmpty())
        all += u"ID3v1"_s;
    return all;
}

TagLib::PropertyMap EndTags::apeFields() const
{
    return m_ape.isEmpty() ? TagLib::PropertyMap() : Ape(m_ape)->properties();
}

TagLib::PropertyMap EndTags::id3v1Fields() const
{
    return m_id3v1.isEmpty() ? TagLib::PropertyMap() : Id3v1(m_id3v1, 0)->properties();
}

TagLib::PropertyMap EndTags::fields() const
{
    TagLib::PropertyMap all = m_id3v2.fields();
    addMissing(all, apeFields());
    addMissing(all, id3v1Fields());
    return all;
}

QList<TagPicture> EndTags::pictures() const
{
    return m_id3v2.pictures();
}

void EndTags::change(const TagChange &change, Missing missing)
{
    changeId3v1(change);
    changeApe(change);
    if (!m_id3v2.isEmpty() || missing == Missing::GetsId3v2)
        m_stream.replace(0, m_front, m_id3v2.changed(change));
}

// It holds little of long texts and nothing of most; what it doesn't tell otherwise stays byte for byte.
void EndTags::changeId3v1(const TagChange &change)
{
    if (m_id3v1.isEmpty())
        return;
    Id3v1 tag(m_id3v1, 0);
    const TagLib::PropertyMap before = tag->properties();
    tag->setProperties(change.appliedTo(before));
    if (!(tag->properties() == before))
        m_stream.replace(m_stream.size() - Id3v1Length, Id3v1Length, fromVector(tag->render()));
}

void EndTags::changeApe(const TagChange &change)
{
    if (m_ape.isEmpty())
        return;
    Ape tag(m_ape);
    const TagLib::PropertyMap before = tag->properties();
    const TagLib::PropertyMap wanted = change.appliedTo(before);
    if (wanted == before)
        return;
    tag->setProperties(wanted);
    m_stream.replace(m_soundEnd, m_ape.size(), tag->isEmpty() ? QByteArray() : fromVector(tag->render()));
}

} // namespace shell
