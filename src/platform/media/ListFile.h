// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace media {

/** True for the names of list files: `.m3u` and `.m3u8` in any case. */
[[nodiscard]] bool isListFile(const QString &path);

/**
 * The full paths that a list file names, in its order, whether the files are there or not.
 *
 * One to a line, ended by LF or CR LF, in UTF-8 or the system's code page. A path may be relative to the
 * list's folder or a file URL. Empty lines, comment lines and lines that can't be a path are passed over; of
 * a huge file only the beginning is read.
 *
 * @throws std::runtime_error when the file can't be read
 */
[[nodiscard]] QStringList readListFile(const QString &path);

} // namespace media
