// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace quaverly {

/** Full path of the list file in the catalogue's folder, which ends in the separator. */
[[nodiscard]] QString temporaryList(const QString &databaseFolder);

/** Whether a list file can carry that path as a line. */
[[nodiscard]] bool fitsInList(const QString &path);

/**
 * Writes @p lines, each ended by CR LF, in place of what is there: as a whole or not at all.
 * @throws dao::DaoError 75, 61.
 */
void writeListFile(const QString &path, const QStringList &lines);

/**
 * Writes the list file, one path a line, in place of the old one: it is there as a whole or not at all.
 * @throws dao::DaoError 75, 61.
 */
void writeTemporaryList(const QString &databaseFolder, const QStringList &paths);

/** Removes the list file; also at the start of the program, after a run that could not. A failure is none. */
void removeTemporaryList(const QString &databaseFolder);

} // namespace quaverly
