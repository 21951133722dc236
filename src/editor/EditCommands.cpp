// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/EditCommands.h"

#include "catalogue/Catalogue.h"
#include "desktop/Guard.h"
#include "editor/EditorState.h"
#include "lists/PlayerState.h"
#include "songlist/DisplayedSet.h"
#include "songlist/MainScreen.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace quaverly {

EditCommands::EditCommands(EditParts parts) : m_parts(std::move(parts))
{}

void EditCommands::cmdEdit_Click()
{
    static_cast<void>(guarded(m_parts.services.desktop, u"Microsoft error message"_s, [this] { edit(); },
                              {{}, Icon::None}));
}

void EditCommands::edit()
{
    m_parts.mainScreen.clearGridMarkArmed();
    if (m_open)
        return;
    m_parts.set.Data1().finishTyping();
    if (!m_parts.set.Data1().hasRows()) {
        tellNoRecords();
        return;
    }
    const Hourglass hourglass(m_parts.services.desktop);
    m_parts.state.EditMode = true;
    m_parts.showNameEdit([this] { closed(); });
    m_open = true;
}

void EditCommands::tellNoRecords()
{
    if (m_parts.services.catalogue.ContactsTable->isEmpty())
        m_parts.services.desktop.MessageBox(
            u"Add songs automatically by choosing one of the options on the File menu."_s,
            u"Empty Database"_s);
    else
        m_parts.services.desktop.MessageBox(
            u"There are no records displayed, so you can't View or Edit them.  Click the Show All button, or "
            "change the Category or Filter to display records first."_s,
            u"No records to View or Edit"_s, Icon::Information);
}

void EditCommands::cmdAdd_Click()
{
    static_cast<void>(guarded(m_parts.services.desktop, u"Add a New Record"_s, [this] {
        if (m_open)
            return;
        if (m_parts.player.PlayerOpen) {
            m_parts.services.desktop.MessageBox(
                u"Cannot Add records while playing songs. End the Player first."_s, u"Add not allowed"_s);
            return;
        }
        m_parts.set.Data1().finishTyping();
        const Hourglass hourglass(m_parts.services.desktop);
        m_parts.state.EditMode = false;
        m_parts.showNameEdit([this] { closed(); });
        m_open = m_adding = true;
        m_parts.set.setAdding(true);
    }));
}

void EditCommands::closed()
{
    m_open = false;
    m_parts.state.EditMode = false;
    if (std::exchange(m_adding, false))
        m_parts.set.setAdding(false);
    if (std::exchange(m_parts.player.PlayedFromEditor, false))
        m_parts.showNameList();
    m_parts.mainScreen.focusGrid();
}

} // namespace quaverly
