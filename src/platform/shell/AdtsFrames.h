// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/SongStream.h"

#include <optional>

namespace shell {

struct AdtsSound
{
    qint64 milliseconds = 0;
    /** Kilobits a second. */
    qint64 bitRate = 0;
};

/**
 * Walks the ADTS frames of raw AAC sound, which has no head that tells its length.
 * Junk in front of the first frame is passed over. Very long files are counted in part and the rest
 * taken to be alike. Nothing when no frame is found.
 */
[[nodiscard]] std::optional<AdtsSound> countAdtsFrames(SongStream &stream, qint64 start);

} // namespace shell
