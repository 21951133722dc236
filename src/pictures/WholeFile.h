// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace quaverly {

/** Name, without its ending, of a file that is being written; one that a crash left may be deleted. */
inline constexpr char16_t TemporaryPicture[] = u"DELETE THIS TEMP FILE";

/**
 * Writes a file under a temporary name in its folder, puts it on the disk and gives it its name; a file, or
 * a link, that bears it is replaced. When that fails nothing is left behind.
 * @throws dao::DaoError 75 or 61.
 */
void writeWhole(const QString &path, const QByteArray &bytes);

} // namespace quaverly
