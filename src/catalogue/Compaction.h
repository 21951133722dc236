// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/Dao.h"

#include <functional>

namespace quaverly {

/** Lengths of a catalogue file, in bytes. */
struct CompactedSizes
{
    qint64 oldSize = 0;
    qint64 newSize = 0;
};

/** With the locale's group separators. */
[[nodiscard]] QString groupedNumber(qint64 number);

/**
 * Puts another file in the place of a closed catalogue, in one step: whatever happens, a whole catalogue
 * stands under the name. @p write makes it, beside the old one, at the path that it is given; what an
 * earlier run left there goes first. A link to a catalogue stays a link.
 * @throws dao::DaoError with the old file untouched and nothing left of the new one: 75 without rights, 3260
 * when another program has the catalogue open, and what @p write throws.
 */
void exchangeCatalogue(const QString &databaseFile, const std::function<void(const QString &path)> &write);

/**
 * Exchanges a closed catalogue for a compact copy, made under its name and ".temp".
 * @throws as exchangeCatalogue, and 61 on a full disk, 70 without rights.
 */
CompactedSizes compactCatalogue(dao::DBEngine &engine, const QString &databaseFile);

} // namespace quaverly
