// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/Schema.h"

#include <QLatin1StringView>
#include <QStringView>

#include <span>

namespace quaverly {

/** How Find Any Text looks at a field. */
enum class Searched { No, AsText, AsDate };

struct SongField
{
    QLatin1StringView name;
    dao::FieldType type = dao::FieldType::Text;
    /** Most characters that a text holds, 0 without a limit. */
    int width = 0;
    /** Place among the grid's design-time columns, -1 for a field that is no column. */
    int gridColumn = -1;
    QLatin1StringView heading = {};
    Searched searched = Searched::AsText;
    /** Offered when a filter is put together. */
    bool inFilterList = true;
    /** What its column is designed for, in average characters. */
    int characters = 18;
    /** Its column reads better with its ends in line. */
    bool rightAligned = false;
};

/**
 * Columns of the grid as other readers of its column file know them. Fields that came later stand behind
 * them, hidden until the user shows them, and behind the last column of the CSV.
 */
inline constexpr int FirstColumns = 28;

/** The fields of a song, in the order of the song table. */
[[nodiscard]] std::span<const SongField> songFields();

/** Those with a column behind the first ones. */
[[nodiscard]] std::span<const SongField> laterFields();

/** The grid's columns from the mark column on, in their design-time order. */
[[nodiscard]] std::span<const SongField *const> gridColumns();

/** In any case; null for no field of a song. */
[[nodiscard]] const SongField *songField(QStringView name);

} // namespace quaverly
