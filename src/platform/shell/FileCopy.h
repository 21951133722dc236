// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace shell {

/** Called between chunks with bytes, beginning at 0 of all; false gives the copying up. */
using CopyProgress = std::function<bool(qint64 done, qint64 all)>;

struct CopyOptions
{
    /** Replaces a file of the target's name, in one step; it stays whole until the new one is complete. */
    bool overwrite = false;
    CopyProgress progress = {};
};

/**
 * Copies a music file, with its time stamps and rights where the target can hold them. The copy bears a
 * hidden temporary name until it is complete and on the disk. Links are followed.
 * @param target the copy's full path
 * @returns false when it was given up; nothing is left at the target then, as after any failure
 * @throws dao::DaoError 53 no source, 58 the target exists, 61 disk full, 70 no right to it, 75 anything
 * else (a source copied onto itself, too), 76 no target folder
 */
[[nodiscard]] bool copyFile(const QString &source, const QString &target, const CopyOptions &options = {});

/** Bytes that this user may still write to a folder's file system; nothing when it can't be told. */
[[nodiscard]] std::optional<qint64> freeSpace(const QString &folder);

/** Bytes of a file, links followed; nothing when there is none. */
[[nodiscard]] std::optional<qint64> fileSize(const QString &path);

} // namespace shell
