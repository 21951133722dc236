// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Services.h"

#include <functional>

namespace quaverly {

class DisplayedSet;
class MainScreen;
struct EditorState;
struct PlayerState;

/** What the commands that open the editor work with. All of it outlives them. */
struct EditParts
{
    Services services;
    DisplayedSet &set;
    MainScreen &mainScreen;
    PlayerState &player;
    EditorState &state;
    /** Shows the editor over the main screen and returns; calls back when it is closed. */
    std::function<void(std::function<void()> closed)> showNameEdit;
    /** Shows the main screen again, which playing from the editor hid. */
    std::function<void()> showNameList;
};

/** The commands of the main screen that open the record editor. */
class EditCommands final
{
public:
    explicit EditCommands(EditParts parts);

    /** Also EditViewMenu, and Enter and a double click in the list. */
    void cmdEdit_Click();
    /** Also AddMenu. */
    void cmdAdd_Click();

private:
    void edit();
    void tellNoRecords();
    void closed();

    EditParts m_parts;
    bool m_open = false;
    /** The commands were disabled for it. */
    bool m_adding = false;
};

} // namespace quaverly
