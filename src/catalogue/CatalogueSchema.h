// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/Schema.h"

namespace quaverly {

/** Name of the catalogue file. */
inline constexpr char16_t CatalogueFileName[] = u"QVdata.mdb";

/** The catalogue's tables, indexes and version, read from the scripts that are built in. */
[[nodiscard]] dao::Schema catalogueSchema();
/** As it was at an earlier version, without indexes. */
[[nodiscard]] dao::Schema catalogueSchema(int version);

} // namespace quaverly
