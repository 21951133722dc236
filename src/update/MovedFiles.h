// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "update/TagCompare.h"

namespace quaverly {

/** A song whose file is gone, with all that may tell it elsewhere. */
struct LostSong
{
    KnownFile known;
    KnownTags tags;
};

/** A lost song and the file that it is found in. */
struct FoundSong
{
    std::size_t lost = 0;
    std::size_t file = 0;
    /** Why it may be another one; empty when it can't. */
    QString doubt;
};

/**
 * Tells which of the new files are those of songs that lost theirs: by the sound, or where that was never
 * summed by size and tags, or by the inode and title. Each song and each file is found once.
 */
[[nodiscard]] std::vector<FoundSong> findMovedFiles(const std::vector<LostSong> &lost,
                                                    const std::vector<SongOnDisk> &files);

/** True for a file that is worth reading in search of these songs. */
[[nodiscard]] bool mayHoldOneOf(const std::vector<LostSong> &lost, const DiskFile &file);

} // namespace quaverly
