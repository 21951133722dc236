// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/SongStream.h"

#include <functional>

namespace shell {

/** Name, place and length of a chunk's content; lengths beyond the file's end are cut there. */
using ChunkTaker = std::function<void(QByteArrayView name, qint64 content, qint64 length)>;

/** Bytes in front of the first chunk: the file's own name and length, and what it holds. */
inline constexpr qint64 IffHead = 12;

/** The chunks of a RIFF, RIFX or FORM file, in their order. */
void walkChunks(SongStream &stream, bool bigEndian, const ChunkTaker &take);

} // namespace shell
