// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** The statements about pictures. */
namespace quaverly::picturesql {

/** Names of the songs that have a picture in any slot. */
[[nodiscard]] QString songsWith(const QString &pictureName);
/** The same without one song. */
[[nodiscard]] QString otherSongsWith(const QString &pictureName, qint64 recordId);
/** RecordIDs of the songs that have a picture in any slot. */
[[nodiscard]] QString recordsWith(const QString &pictureName);
/** All eight names of all songs that have any. */
[[nodiscard]] QString allNames();

} // namespace quaverly::picturesql
