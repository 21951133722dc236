// SPDX-License-Identifier: GPL-3.0-or-later
#include "maintenance/MaintenanceCommands.h"

#include "desktop/FileHelpers.h"
#include "desktop/Guard.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace quaverly {

MaintenanceCommands::MaintenanceCommands(const MaintenanceParts &parts, Screens screens)
    : m_desktop(parts.services.desktop), m_search(parts, &FileExists), m_deleteDisplayed(parts),
      m_screens(std::move(screens))
{}

void MaintenanceCommands::mnuReplace_Click()
{
    guarded(m_desktop, u"Search and Replace"_s, m_screens.frmReplace);
}

void MaintenanceCommands::mnuFindInvalidFilenames_Click()
{
    ErrorBox box = withErrorNumber(u".  Error number:"_s);
    box.icon = Icon::None;
    guarded(
        m_desktop, u"Error"_s, [this] { m_search.run(); }, box);
}

void MaintenanceCommands::mnuChangePaths_Click()
{
    guarded(m_desktop, u"Change Music File Locations"_s, m_screens.frmChangeFilePath);
}

void MaintenanceCommands::mnuRenameFiles_Click()
{
    guarded(m_desktop, u"Rename Files"_s, m_screens.frmRenameFiles);
}

void MaintenanceCommands::mnuDeleteDisplayed_Click()
{
    guarded(m_desktop, u"Record Delete Error"_s, [this] { m_deleteDisplayed.run(); });
}

} // namespace quaverly
