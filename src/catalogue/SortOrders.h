// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1StringView>
#include <QStringView>

#include <span>

namespace quaverly {

/** An entry of the sort box. */
struct SortOrder
{
    QLatin1StringView label;
    /** The ORDER BY tail, with its leading blank. */
    QLatin1StringView listOrder;
    /** Index of the song table, and the field that Locate searches. */
    QLatin1StringView index;

    /** Locate then waits for a whole date. */
    [[nodiscard]] bool byDate() const
    {
        return label.contains(QLatin1StringView("date"), Qt::CaseInsensitive);
    }
};

inline constexpr QLatin1StringView DefaultSortLabel("Song Name");

/** All entries, in the order of the sort box. */
[[nodiscard]] std::span<const SortOrder> sortOrders();

/** The order under a label; blank and unknown labels count as "Song Name". */
[[nodiscard]] const SortOrder &sortOrder(QStringView label);

} // namespace quaverly
