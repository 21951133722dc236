// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** What a move or a copy left behind whose process was killed. Nothing here throws. */
namespace shell {

/** Removes the unfinished copies in a folder that nobody works at any more. */
void clearUnfinishedCopies(const QString &folder);

/**
 * Removes @p copy when a move from @p original to it stopped before the original went: the same content
 * under both names, or the empty file that holds the name. Otherwise both stay.
 */
void clearSecondName(const QString &original, const QString &copy);

/** Gives a song that stopped between two spellings of its name, as the only one in its folder, the name
 * @p target, unless a file bears that. */
void restoreSpelling(const QString &target);

} // namespace shell
