// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace shell {
class Shell;
}

namespace quaverly {

class SongQueue;

/** Which files of a folder count as music. */
enum class FolderRules {
    /** One folder: where the shell hides extensions, the type text or the disk tells them. No ".aac". */
    OneFolder,
    /** A walk through many: by the name's last four characters alone. */
    WithSubfolders,
};

/**
 * Adds the music files of a folder, which ends in the separator, in the shell's order: title and artist as
 * the files tell them, by the columns of @p versionMajor. Not those with one of the endings, without their
 * dots, in @p leftOut.
 */
void addFolderSongs(shell::Shell &shell, const QString &folder, FolderRules rules, int versionMajor,
                    const QStringList &leftOut, SongQueue &songs);

} // namespace quaverly
