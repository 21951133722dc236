// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "maintenance/DeleteDisplayed.h"
#include "maintenance/InvalidFileSearch.h"

namespace quaverly {

/** The commands of the main screen that change or look through many records at once. */
class MaintenanceCommands final
{
public:
    /** The last two open the screens frmReplace and frmChangeFilePath. */
    MaintenanceCommands(const MaintenanceParts &parts, std::function<void()> showReplace,
                        std::function<void()> showChangeFilePath);

    void mnuReplace_Click();
    void mnuFindInvalidFilenames_Click();
    void mnuChangePaths_Click();
    void mnuDeleteDisplayed_Click();

    /** As if the user had closed the search's wait window. */
    void endSearch() { m_search.end(); }

private:
    Desktop &m_desktop;
    InvalidFileSearch m_search;
    DeleteDisplayed m_deleteDisplayed;
    std::function<void()> m_showReplace;
    std::function<void()> m_showChangeFilePath;
};

} // namespace quaverly
