// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/Id3Bytes.h"
#include "platform/shell/PieceStream.h"

namespace shell {

/** The tags that may stand in front of any sound and behind it: ID3v2, APE and ID3v1. */
class EndTags final
{
public:
    explicit EndTags(PieceStream &stream);

    /** Bytes in front of the sound, and behind it. */
    [[nodiscard]] qint64 front() const { return m_front; }
    [[nodiscard]] qint64 back() const { return m_stream.size() - m_soundEnd; }
    [[nodiscard]] QStringList kinds() const;
    /** The first kind that has a field tells it. */
    [[nodiscard]] TagLib::PropertyMap fields() const;
    [[nodiscard]] QList<TagPicture> pictures() const;

    enum class Missing { StaysAway, GetsId3v2 };
    /** Those tags that are there; none comes to the file but perhaps an ID3v2. */
    void change(const TagChange &change, Missing missing);

private:
    [[nodiscard]] TagLib::PropertyMap apeFields() const;
    [[nodiscard]] TagLib::PropertyMap id3v1Fields() const;
    void changeId3v1(const TagChange &change);
    void changeApe(const TagChange &change);

    PieceStream &m_stream;
    qint64 m_front = 0;
    qint64 m_soundEnd = 0;
    Id3Bytes m_id3v2{{}};
    /** The whole tags' bytes; empty without one. */
    QByteArray m_ape;
    QByteArray m_id3v1;
};

} // namespace shell
