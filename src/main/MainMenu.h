// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Ui {
class NameList;
}

namespace quaverly {

class AddCommands;
class CatalogueCommands;
class Commands;
class DisplayedSet;
class HelpSite;
class ListCommands;
class MainDialogs;
class MenuWiring;
class OptionCommands;
class PlayCommands;

/** What the entries and buttons of the main screen lead to. */
struct MenuTargets
{
    Ui::NameList &ui;
    DisplayedSet &set;
    ListCommands &list;
    OptionCommands &options;
    CatalogueCommands &catalogue;
    HelpSite &help;
    AddCommands &add;
    PlayCommands &play;
    Commands &commands;
    MainDialogs &dialogs;
};

/** Wires every entry and button whose command is not the main screen's own. The targets outlive the screen.
 */
void wireMainMenu(const MenuWiring &wiring, const MenuTargets &to);

} // namespace quaverly
