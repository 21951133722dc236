// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

namespace quaverly {

class Desktop;

/** The song's own names, as the editor shows them. */
struct PictureSong
{
    QString artist;
    QString songName;
    QString album;
};

/** What the record editor proposes: artist, song name and album, trimmed, with hyphens between them. */
[[nodiscard]] QString proposedName(const PictureSong &song);

/**
 * Asks for the name of a picture, with @p example in the prompt. It ends in ".jpg"; nothing comes back for
 * an empty name, and for one with an illegal character: the prompt says that it is ignored.
 */
[[nodiscard]] std::optional<QString> askPictureName(Desktop &desktop, const QString &example,
                                                    const QString &proposed);

} // namespace quaverly
