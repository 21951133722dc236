// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/FileStamp.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <stop_token>
#include <vector>

namespace shell {

struct TreeFile
{
    /** In the file system's own bytes, which are valid UTF-8. */
    QByteArray name;
    FileStamp stamp;
};

struct TreeFolder
{
    /** Ends in the separator; in the file system's own bytes. */
    QByteArray path;
    std::vector<TreeFile> files;
    /** Nothing at all stands in it. */
    bool isEmpty = true;
};

/** What a walk saw. */
struct TreeContent
{
    std::vector<TreeFolder> folders;
    /** Names of music files that can't be kept, as well as they can be shown. */
    QStringList refused;
    /** Folders that can't be listed. */
    QStringList unreadable;
};

/**
 * Walks over @p folders, which end in the separator, and all below, with the stamp of each file that
 * @p isWanted picks by its name. A folder that several paths lead to is walked once, by its own path rather
 * than by a link; pseudo file systems are left out. No file is opened. Ends early when @p stop asks for it.
 * May run on any thread.
 */
[[nodiscard]] TreeContent walkTree(const QStringList &folders,
                                   const std::function<bool(QByteArrayView name)> &isWanted,
                                   const std::stop_token &stop);

} // namespace shell
