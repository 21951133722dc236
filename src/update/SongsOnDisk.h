// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "intake/NewSong.h"
#include "platform/shell/FileStamp.h"
#include "update/DiskCompare.h"
#include "update/UpdateParts.h"

#include <QStringList>

#include <stop_token>
#include <vector>

namespace quaverly {

/** A song as its file tells of it. */
struct SongOnDisk
{
    DiskFile file;
    /** Before the reading, so that a change meanwhile shows; nothing when the file is gone. */
    std::optional<shell::FileStamp> stamp;
    NewSong song = {};
    QString sound = {};
    /** Why not all could be read; empty when it could. */
    QString failure = {};
};

/** Reads songs, those of one folder together. May run on any thread. Ends early when @p stop asks for it. */
[[nodiscard]] std::vector<SongOnDisk> readSongs(const std::vector<DiskFile> &files,
                                                const std::stop_token &stop);

/**
 * Reads songs on a thread of their own, some hundred at a time, and hands each to @p take on this one. False
 * when
 * @p goesOn, which hears of @p what meanwhile, gave it up.
 */
[[nodiscard]] bool readInPortions(std::vector<DiskFile> files, const UpdateGoesOn &goesOn,
                                  const QString &what, const std::function<void(SongOnDisk &)> &take);

} // namespace quaverly
