// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/SongStream.h"

#include <QByteArray>

#include <optional>
#include <string_view>

namespace shell {

/** True for frames that the columns need, by the names of any version of the tag. */
[[nodiscard]] bool isWantedFrame(std::string_view id);

/**
 * The wanted frames of the ID3v2 tag at @p offset, as a tag of their own that any reader understands, when
 * something in it stops readers that keep to the letter or lets them read nonsense: frames without content
 * or with odd names, sizes written the way of another version, extended heads, unsynchronised or grouped
 * frames, UTF-16 that doesn't say its byte order. Nothing for a tag without such, or none at all.
 */
[[nodiscard]] std::optional<QByteArray> repairedId3v2(SongStream &stream, qint64 offset);

} // namespace shell
