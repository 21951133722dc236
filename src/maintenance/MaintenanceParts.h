// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

namespace quaverly {

class Desktop;
class DisplayedSet;
class MainScreen;
struct Catalogue;
struct Options;

/** What the commands over many records need of the program. All references outlive them. */
struct MaintenanceParts
{
    Catalogue &catalogue;
    DisplayedSet &set;
    MainScreen &mainScreen;
    Desktop &desktop;
    const Options &options;
    /** Runs between the user's last Yes and the first change; a command that it answers false stops there. */
    std::function<bool()> beforeBulk;
};

} // namespace quaverly
