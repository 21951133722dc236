// SPDX-License-Identifier: GPL-3.0-or-later
#include "categories/CategoryCommands.h"

#include "categories/CategoryAssign.h"
#include "categories/CategoryForm.h"
#include "categories/CatgAssignAll.h"
#include "desktop/Guard.h"
#include "songlist/DisplayedSet.h"
#include "songlist/MainScreen.h"

using namespace Qt::StringLiterals;

namespace quaverly {

CategoryCommands::CategoryCommands(CategoryParts parts, QWidget &owner)
    : m_parts(std::move(parts)), m_owner(owner)
{}

void CategoryCommands::Category_Click()
{
    guarded(m_parts.services.desktop, u"Category Selection"_s, [this] {
        auto form = std::make_unique<CategoryForm>(m_parts, &m_owner);
        MainScreen &mainScreen = m_parts.mainScreen;
        QObject::connect(form.get(), &QDialog::finished, &m_owner, [&mainScreen] { mainScreen.focusGrid(); });
        form.release()->showModally();
    });
}

void CategoryCommands::AssignAllToCatg_Click()
{
    guarded(m_parts.services.desktop, u"Assign or Remove All Displayed Records To or From a Category"_s,
            [this] {
                if (m_parts.set.Data1().hasRows())
                    std::make_unique<CatgAssignAll>(m_parts, &m_owner).release()->showModally();
            });
}

void CategoryCommands::ShowCategoryAssign(QWidget *owner)
{
    guarded(m_parts.services.desktop, u"Assign Current Song to a Category"_s, [&] {
        if (!m_parts.set.Data1().hasRows())
            return;
        const Hourglass hourglass(m_parts.services.desktop);
        std::make_unique<CategoryAssign>(m_parts, owner != nullptr ? owner : &m_owner)
            .release()
            ->showModally();
    });
}

} // namespace quaverly
