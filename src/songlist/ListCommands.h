// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quaverly {

class Desktop;
class DisplayedSet;
class MainScreen;

/** Find Any Text, Record Count and the deletion of one song: the main screen's own commands on the list. */
class ListCommands final
{
public:
    /** All references outlive the commands. */
    ListCommands(DisplayedSet &set, MainScreen &screen, Desktop &desktop)
        : m_set(set), m_screen(screen), m_desktop(desktop)
    {}

    void FindEditMenu_Click();
    void DisplayRecCntMenu_Click();
    void cmdDelete_Click();

private:
    [[nodiscard]] bool deleteConfirmed();
    void deleteCurrent();

    DisplayedSet &m_set;
    MainScreen &m_screen;
    Desktop &m_desktop;
};

/** Asks whether the record of that song may be deleted; Enter means no. */
[[nodiscard]] bool mayDeleteRecord(Desktop &desktop, const QString &song);

} // namespace quaverly
