// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <optional>

namespace shell {

/** What a directory tells of a file without opening it: while it stays the same, so does what is in it. */
struct FileStamp
{
    qint64 size = 0;
    /** Time of the last change of its content, in nanoseconds. */
    qint64 modified = 0;
    /** 0 where the file system gives out new ones when it is mounted. */
    qint64 inode = 0;
    qint64 device = 0;

    [[nodiscard]] bool isSameFile(const FileStamp &other) const
    {
        return inode != 0 && inode == other.inode && device == other.device;
    }
    /**
     * The content was not written to since, as far as anyone can tell. A file put in another's place with its
     * size and time is told by the inode, while the device is known to be the same.
     */
    [[nodiscard]] bool isUnchangedSince(const FileStamp &before) const
    {
        const bool sameInode =
            inode == 0 || before.inode == 0 || device != before.device || inode == before.inode;
        return size == before.size && modified == before.modified && sameInode;
    }
};

enum class FileState { There, Gone, Unreachable };

/** Of a plain file, links followed; nothing for anything else. @p path in the file system's own bytes. */
[[nodiscard]] std::optional<FileStamp> stampOf(const QByteArray &path);
/** Whether it is certain that there is no plain file of that name. */
[[nodiscard]] FileState fileStateOf(const QByteArray &path);

} // namespace shell
