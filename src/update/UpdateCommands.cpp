// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/UpdateCommands.h"

#include "desktop/Desktop.h"
#include "desktop/Guard.h"
#include "lists/PlayerState.h"
#include "songlist/MainScreen.h"

using namespace Qt::StringLiterals;

namespace quaverly {

void UpdateCommands::mnuUpdateFromDisk_Click()
{
    guarded(m_parts.services.desktop, u"Update From Disk"_s, [this] {
        if (m_parts.player.PlayerOpen) {
            m_parts.services.desktop.MessageBox(
                u"Cannot update records while playing songs. End the Player first."_s, u"Update From Disk"_s,
                Icon::Information);
            return;
        }
        if (m_parts.busy)
            return;
        m_parts.mainScreen.unloadPics3();
        m_showUpdate();
    });
}

void UpdateCommands::mnuCheckCatalogue_Click()
{
    guarded(m_parts.services.desktop, u"Check Catalogue"_s, [this] {
        if (!m_parts.busy)
            m_showCheck();
    });
}

} // namespace quaverly
