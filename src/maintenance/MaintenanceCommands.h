// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "maintenance/DeleteDisplayed.h"
#include "maintenance/InvalidFileSearch.h"

namespace quaverly {

/** The commands of the main screen that change or look through many records at once. */
class MaintenanceCommands final
{
public:
    /** What opens the screens of those names. */
    struct Screens
    {
        std::function<void()> frmReplace;
        std::function<void()> frmChangeFilePath;
        std::function<void()> frmRenameFiles;
    };
    MaintenanceCommands(const MaintenanceParts &parts, Screens screens);

    void mnuReplace_Click();
    void mnuFindInvalidFilenames_Click();
    void mnuChangePaths_Click();
    void mnuRenameFiles_Click();
    void mnuDeleteDisplayed_Click();

    /** As if the user had closed the search's wait window. */
    void endSearch() { m_search.end(); }

private:
    Desktop &m_desktop;
    InvalidFileSearch m_search;
    DeleteDisplayed m_deleteDisplayed;
    Screens m_screens;
};

} // namespace quaverly
