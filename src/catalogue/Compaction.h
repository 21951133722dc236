// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/Dao.h"

namespace quaverly {

/** Lengths of a catalogue file, in bytes. */
struct CompactedSizes
{
    qint64 oldSize = 0;
    qint64 newSize = 0;
};

/** The size with the locale's group separators. */
[[nodiscard]] QString groupedBytes(qint64 bytes);

/**
 * Writes a compact copy of a closed catalogue and puts it in the file's place in one step: whatever
 * happens, a whole catalogue stands under the name. The copy is made beside the file, under its name and
 * ".temp"; one that an earlier run left there goes first. A link to a catalogue stays a link.
 * @throws dao::DaoError with the file untouched and no copy left: 61 on a full disk, 70 and 75 without
 * rights, 3260 when another program has the catalogue open.
 */
CompactedSizes compactCatalogue(dao::DBEngine &engine, const QString &databaseFile);

} // namespace quaverly
