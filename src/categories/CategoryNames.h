// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "categories/CategoryStore.h"

namespace quaverly {

class Desktop;

/** Asks the user for the names of categories. Every operation may throw dao::DaoError. */
class CategoryNames final
{
public:
    /** The two screens that have these commands word them differently, and only one looks for doubles. */
    enum class Screen { Form, Assign };

    CategoryNames(Desktop &desktop, CategoryStore &store, Screen screen)
        : m_desktop(desktop), m_store(store), m_screen(screen)
    {}

    /** The new category's number; nothing when none was added. */
    std::optional<qint64> add();
    /** @p current is null without categories, which is told. True when it bears another name now. */
    bool change(const Category *current);

private:
    Desktop &m_desktop;
    CategoryStore &m_store;
    Screen m_screen;
};

} // namespace quaverly
