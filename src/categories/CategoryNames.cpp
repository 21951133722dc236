// SPDX-License-Identifier: GPL-3.0-or-later
#include "categories/CategoryNames.h"

#include "desktop/Desktop.h"

using namespace Qt::StringLiterals;

namespace quaverly {

std::optional<qint64> CategoryNames::add()
{
    const bool form = m_screen == Screen::Form;
    const QString what = form ? u"Description"_s : u"Name"_s;
    const QString answer =
        m_desktop.InputPrompt(u"Enter the "_s + what + u" for this new Category, then press the OK button."_s,
                              u"Add a new Category"_s);
    // Blanks around a name, and doubles, are meant to pass on the assignment screen.
    const QString name = form ? answer.trimmed() : answer;
    if (name.isEmpty())
        return std::nullopt;
    if (form && name.contains(u'"')) {
        m_desktop.MessageBox(u"The name of a Category can't hold double quotes."_s, u"Not added"_s,
                             Icon::Exclamation);
        return std::nullopt;
    }
    if (form && m_store.isTaken(name)) {
        m_desktop.MessageBox(u"Category with this name already exists."_s, u"Not added"_s, Icon::Exclamation);
        return std::nullopt;
    }
    return m_store.add(name);
}

bool CategoryNames::change(const Category *current)
{
    if (current == nullptr) {
        const QString what = m_screen == Screen::Form ? u"description"_s : u"name"_s;
        m_desktop.MessageBox(u"There are no Categories.  You must create one before you can change it's "_s +
                                 what + u'.',
                             u"No Categories to change"_s, Icon::Stop);
        return false;
    }
    const QString answer = m_desktop.InputPrompt(u"Type your changes, then press the OK button."_s,
                                                 u"Change the Category Name"_s, current->CategoryDesc);
    if (answer.isEmpty())
        return false;
    // As it stands, and with no look for doubles: two categories may be given one name on purpose.
    m_store.rename(current->CategoryNumber, answer);
    return true;
}

} // namespace quaverly
