// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace shell {
class Shell;
}

namespace quaverly {

class Desktop;

/** The folders of a walk, each with its trailing separator, and what the walk saw beside them. */
struct GatheredFolders
{
    QStringList folders;
    /** Plain files in all of them. */
    qint64 plainFiles = 0;
    /** Full paths of names that the system refuses, as well as they can be shown. */
    QStringList refused;
    /** Folders that can't be entered. */
    QStringList unreadable;
};

/**
 * Adds @p Start and every folder below it to @p Result, breadth first. A folder that several paths
 * lead to is walked once, by its own path rather than by a link; pseudo file systems are left out.
 * Waiting events run between names; once @p CancelScan is true the walk returns at once.
 */
void GatherFolders(shell::Shell &shell, Desktop &desktop, const bool &CancelScan, const QString &Start,
                   GatheredFolders &Result);

} // namespace quaverly
