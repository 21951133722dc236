// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace quaverly {

class CategoryStore;
struct Category;
struct CategoryParts;

/**
 * Deletes a category after the user's Yes; a list that shows it by name goes back to all songs.
 * @p current is null without categories, which is told. True when it is gone. @throws dao::DaoError.
 */
bool removeCategory(const CategoryParts &parts, CategoryStore &store, const Category *current);

} // namespace quaverly
