// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/PieceStream.h"
#include "platform/shell/TagFile.h"

#include <taglib/audioproperties.h>
#include <taglib/tfile.h>
#include <taglib/tpropertymap.h>

#include <memory>

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

/** The tags of one file, whatever its container. */
class TagContainer
{
public:
    TagContainer() = default;
    virtual ~TagContainer() = default;
    Q_DISABLE_COPY_MOVE(TagContainer)

    [[nodiscard]] virtual QString format() const = 0;
    [[nodiscard]] virtual QStringList kinds() const = 0;
    [[nodiscard]] virtual TagLib::PropertyMap fields() const = 0;
    [[nodiscard]] virtual QList<TagPicture> pictures() const = 0;
    /** Null when nothing is known. */
    [[nodiscard]] virtual const TagLib::AudioProperties *sound() const { return nullptr; }
    /** Onto the stream; the object is of no more use then. False when it can't be done. */
    [[nodiscard]] virtual bool change(const TagChange &change) = 0;
};

/** By what the file begins with; null for none that is known. @p stream outlives the container. */
[[nodiscard]] std::unique_ptr<TagContainer> openTags(PieceStream &stream);

/** One for each family. */
[[nodiscard]] std::unique_ptr<TagContainer> openFlacTags(PieceStream &stream);
[[nodiscard]] std::unique_ptr<TagContainer> openOggTags(PieceStream &stream);
[[nodiscard]] std::unique_ptr<TagContainer> openMp4Tags(PieceStream &stream);
[[nodiscard]] std::unique_ptr<TagContainer> openAsfTags(PieceStream &stream);
[[nodiscard]] std::unique_ptr<TagContainer> openWavTags(PieceStream &stream);
[[nodiscard]] std::unique_ptr<TagContainer> openMpegTags(PieceStream &stream);
[[nodiscard]] std::unique_ptr<TagContainer> openAdtsTags(PieceStream &stream);

[[nodiscard]] QByteArray fromVector(const TagLib::ByteVector &bytes);
[[nodiscard]] TagLib::ByteVector toVector(const QByteArray &bytes);
/** Whole, with its surrogates. */
[[nodiscard]] TagLib::String toTag(const QString &text);

} // namespace shell
