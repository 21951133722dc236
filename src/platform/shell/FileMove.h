// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace shell {

/**
 * Renames a music file, or moves it to another folder, on another file system too. Never overwrites:
 * not even a file that another program makes meanwhile.
 *
 * Across file systems the file is copied to a temporary name beside the target, compared, given its time
 * stamps and rights, put on the disk and named; only then does the source go.
 *
 * A link is moved as a link and goes on leading to the same file, relative ones too; across file systems
 * a plain file with the content arrives, the link goes, and the file that it led to stays.
 *
 * On any failure the source is where it was and the target is not there.
 * @throws dao::DaoError 53 no source (folders and devices are none), 58 the target exists, 61 disk full,
 * 70 no right to it, or it is in use, 75 anything else, 76 no target folder
 */
void moveFile(const QString &source, const QString &target);

/**
 * True when @p target is @p source itself under other capitals, on a file system that is blind to case:
 * a file of the target's name is found there then, and moveFile gives it that spelling all the same.
 */
[[nodiscard]] bool isOwnNameInOtherCapitals(const QString &source, const QString &target);

} // namespace shell
