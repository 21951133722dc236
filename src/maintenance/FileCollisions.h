// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/SongOfFile.h"

#include <vector>

namespace quaverly {

/** Where a song's file is to be. */
struct PlaceOfFile
{
    qint64 song = 0;
    /** Without a name, the file keeps its own. */
    SongFile file{};
};

/**
 * Songs that can't come to their new place, since another one's file stays or comes there; each with the
 * place that it can't have. @throws dao::DaoError
 */
[[nodiscard]] std::vector<PlaceOfFile> collisions(dao::Database &database,
                                                  const std::vector<PlaceOfFile> &places);

} // namespace quaverly
