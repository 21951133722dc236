// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/MusicTree.h"

#include <QStringList>

#include <optional>
#include <vector>

namespace quaverly {

/** A file that the catalogue names. Paths are in the file system's own bytes. */
struct KnownFile
{
    qint64 recordId = 0;
    /** In its clean form, with its trailing separator. */
    QByteArray folder;
    QByteArray name;
    /** As it was read last; nothing when nobody knows. */
    std::optional<shell::FileStamp> stamp;

    [[nodiscard]] QByteArray path() const { return folder + name; }
};

/** A file on the disk. */
struct DiskFile
{
    QByteArray folder;
    QByteArray name;
    shell::FileStamp stamp;

    [[nodiscard]] QByteArray path() const { return folder + name; }
};

/** A known file and what stands on the disk for it now. */
struct FilePair
{
    KnownFile known;
    DiskFile now;
};

/** Songs none of which is seen, in a folder that may only be out of reach. */
struct AwayFolder
{
    QString folder;
    std::vector<KnownFile> songs;
};

/** How the disk differs from what the catalogue knows, by what a directory tells. */
struct DiskDifference
{
    std::vector<DiskFile> added;
    /** Written to since they were read, or never looked at. */
    std::vector<FilePair> changed;
    /** The same file under another name: its inode, size and time say so. */
    std::vector<FilePair> moved;
    std::vector<KnownFile> gone;
    std::vector<AwayFolder> away;
    /** Known files that can't be reached, though their folders can. */
    std::vector<KnownFile> unreachable;
    QStringList refused;
    QStringList unreadableFolders;
    qint64 unchanged = 0;

    /** Of those that were looked at before: the first look at an old catalogue is no change on the disk. */
    [[nodiscard]] qint64 changedSinceRead() const;
};

/** From so many songs on, a folder that stands empty is asked about. */
inline constexpr qint64 ManySongs = 100;

/**
 * Compares what a walk over @p roots saw with what the catalogue knows; known files elsewhere are left
 * out. Touches the disk only for known files that the walk did not see. May run on any thread.
 */
[[nodiscard]] DiskDifference compareWithDisk(shell::TreeContent seen, std::vector<KnownFile> known,
                                             const QStringList &roots);

} // namespace quaverly
