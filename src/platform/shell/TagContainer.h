// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/PieceStream.h"
#include "platform/shell/TagChange.h"

#include <taglib/audioproperties.h>

#include <memory>

namespace shell {

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

} // namespace shell
