// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/TagChange.h"

#include <taglib/id3v2tag.h>

#include <set>

namespace shell {

void setPictures(TagLib::ID3v2::Tag &tag, const QList<TagPicture> &pictures);

/**
 * A whole ID3v2 tag, changed frame by frame: what is not to change keeps its very bytes, known to TagLib or
 * not, and the tag its version. Tags of version 2.2, which TagLib can't write, become 2.3.
 */
class Id3Bytes final
{
public:
    /** @param tag from its head to its padding; empty for none, which is written as 2.3 */
    explicit Id3Bytes(QByteArray tag);

    [[nodiscard]] bool isEmpty() const { return m_tag.isEmpty(); }
    /** As in "ID3v2.3". */
    [[nodiscard]] QString kind() const;
    [[nodiscard]] TagLib::PropertyMap fields() const;
    [[nodiscard]] QList<TagPicture> pictures() const;
    /** Empty when nothing is left in it. */
    [[nodiscard]] QByteArray changed(const TagChange &change) const;

private:
    struct Frame
    {
        QByteArray id;
        QByteArray bytes;
    };
    using Keys = std::set<TagLib::String>;

    /** Nothing where the tag is not a plain row of frames. */
    [[nodiscard]] static std::optional<QList<Frame>> framesOf(const QByteArray &tag);
    [[nodiscard]] Keys keysOf(const Frame &frame) const;
    [[nodiscard]] QByteArray headOf(qint64 content) const;
    [[nodiscard]] QByteArray spliced(const QList<Frame> &frames, const TagChange &change) const;
    [[nodiscard]] QByteArray rendered(const TagChange &change) const;
    [[nodiscard]] QByteArray assembled(const QByteArray &frames) const;
    [[nodiscard]] TagLib::ID3v2::Version version() const;

    QByteArray m_tag;
};

} // namespace shell
