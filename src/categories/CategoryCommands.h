// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "categories/CategoryParts.h"

class QWidget;

namespace quaverly {

/** The main screen's commands that lead to the categories' screens, and the editor's way there. */
class CategoryCommands final
{
public:
    /** The screens open over @p owner, which outlives this object. */
    CategoryCommands(CategoryParts parts, QWidget &owner);

    /** Afterwards the focus is on the main screen's grid. */
    void Category_Click();
    void cmdAssignCatg_Click() { ShowCategoryAssign(); }
    void AssignAllToCatg_Click();
    /** The same screen: the user picks the action on it. */
    void RemoveAllFromCatg_Click() { AssignAllToCatg_Click(); }

    /**
     * The categories of the displayed set's current song, modally over @p owner, or over the main screen.
     * An empty list shows nothing and says nothing.
     */
    void ShowCategoryAssign(QWidget *owner = nullptr);

private:
    CategoryParts m_parts;
    QWidget &m_owner;
};

} // namespace quaverly
