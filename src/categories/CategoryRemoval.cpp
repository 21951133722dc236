// SPDX-License-Identifier: GPL-3.0-or-later
#include "categories/CategoryRemoval.h"

#include "catalogue/SettingsRows.h"
#include "categories/CategoryParts.h"
#include "categories/CategoryStore.h"
#include "desktop/Desktop.h"
#include "songlist/MainScreen.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

bool confirmed(Desktop &desktop, qint64 songs)
{
    QString question = u"Are you sure you want to delete this Category?"_s;
    if (songs > 0)
        question.prepend(
            u"You have "_s + QString::number(songs) +
            u" Song(s) still assigned to this Category.  Those Songs will still exist, they just "
            "won't be assigned to this Category any longer.  "_s);
    return desktop.MessageBox(question, u"Delete Confirmation"_s, Icon::Question, Buttons::YesNo,
                              Answer::Yes) == Answer::Yes;
}

} // namespace

bool removeCategory(const CategoryParts &parts, CategoryStore &store, const Category *current)
{
    if (current == nullptr) {
        parts.services.desktop.MessageBox(u"There are no Categories, so there is nothing to delete."_s,
                                          u"No Categories to delete"_s, Icon::Stop);
        return false;
    }
    if (!confirmed(parts.services.desktop, store.songsIn(current->CategoryNumber)))
        return false;
    // By name, as it is remembered: a category renamed since it was shown leaves its row behind.
    if (const auto shown = parts.settings.category(); shown && shown->Name == current->CategoryDesc) {
        parts.settings.removeCategory();
        parts.mainScreen.ShowAllMenu_Click();
    }
    store.remove(current->CategoryNumber);
    return true;
}

} // namespace quaverly
