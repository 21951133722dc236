// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "categories/CategoryParts.h"
#include "categories/CategoryStore.h"

#include <memory>
#include <optional>
#include <vector>

namespace quaverly {

class SongPreview;

/**
 * Puts all displayed songs into a category, or takes them out, in one transaction. After a failure, which is
 * told, what was done up to then stays. @p category is null without categories: nothing happens then.
 */
class CategoryBulk final
{
public:
    CategoryBulk(const CategoryParts &parts, CategoryStore &store) : m_parts(parts), m_store(store) {}

    void assignAll(const Category *category);
    void removeAll(const Category *category);

private:
    enum class Direction { In, Out };
    /** What differs between the two: texts of the warning and of the statistics. */
    struct Words;
    static const Words &wordsOf(Direction direction);

    void run(Direction direction, const Category *category);
    /** Songs to act on. */
    struct Asked
    {
        std::vector<qint64> songs;
        /** With those that are displayed twice. */
        qint64 count = 0;
    };
    /** All displayed ones, or those that were ticked in a preview; nothing when the command is to stop. */
    [[nodiscard]] std::optional<Asked> confirmed(Direction direction, const Category &category);
    [[nodiscard]] std::unique_ptr<SongPreview> previewOf(Direction direction, const Category &category);
    [[nodiscard]] QString warning(const Words &words) const;
    /** The number of assignments that were made or taken away; nothing when the command is to stop. */
    [[nodiscard]] std::optional<qint64> change(Direction direction, qint64 number,
                                               const std::vector<qint64> &songs);
    void tellStatistics(const Words &words, const QString &name, qint64 displayed, qint64 changed);

    const CategoryParts &m_parts;
    CategoryStore &m_store;
};

} // namespace quaverly
