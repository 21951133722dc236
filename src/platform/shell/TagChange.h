// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/TagFile.h"

#include <taglib/tfile.h>
#include <taglib/tpropertymap.h>

#include <optional>

/** What is to become of tags, in TagLib's words, and what the writers of all kinds share. */
namespace shell {

/** A TagEdit in TagLib's words. */
struct TagChange
{
    explicit TagChange(const TagEdit &edit);

    /** What @p now becomes. */
    [[nodiscard]] TagLib::PropertyMap appliedTo(TagLib::PropertyMap now) const;

    TagLib::PropertyMap values;
    std::optional<QList<TagPicture>> pictures;
};

/** What TagLib's tag classes read from; it looks for no tag by itself. */
class StreamFile final : public TagLib::File
{
public:
    explicit StreamFile(TagLib::IOStream &stream) : TagLib::File(&stream) {}
    TagLib::Tag *tag() const override { return nullptr; }
    TagLib::AudioProperties *audioProperties() const override { return nullptr; }
    bool save() override { return false; }
};

[[nodiscard]] QByteArray fromVector(const TagLib::ByteVector &bytes);
[[nodiscard]] TagLib::ByteVector toVector(const QByteArray &bytes);
/** Whole, with its surrogates. */
[[nodiscard]] TagLib::String toTag(const QString &text);

} // namespace shell
