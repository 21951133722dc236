// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/**
 * The statements about play lists. A list's number is its ListID. Names stand between double quotes and are
 * not doubled: no list's name may hold one.
 */
namespace quaverly::playlistsql {

[[nodiscard]] QString listNames();
[[nodiscard]] QString allLists();
[[nodiscard]] QString idOfName(const QString &listName);
/** Whole header row of that name. */
[[nodiscard]] QString headerOfName(const QString &listName);
[[nodiscard]] QString header(qint64 listId);

[[nodiscard]] QString tracks(qint64 listId);
/** An empty set, to add to. */
[[nodiscard]] QString noTracks(qint64 listId);
/** Their number, as RowCount. */
[[nodiscard]] QString countTracks(qint64 listId);
/** Title and artist in playing order. */
[[nodiscard]] QString shownTracks(qint64 listId);
[[nodiscard]] QString reorder(qint64 listId);
/** Path, title, artist and number of the tracks that name a file. */
[[nodiscard]] QString tracksWithFile(qint64 listId);
[[nodiscard]] QString fileNames(qint64 listId);
[[nodiscard]] QString filesToCopy(qint64 listId);

[[nodiscard]] QString deleteTracks(qint64 listId);
[[nodiscard]] QString deleteHeader(qint64 listId);
/** All tracks of the list with that file. */
[[nodiscard]] QString deleteFile(qint64 listId, const QString &fileName);

} // namespace quaverly::playlistsql
