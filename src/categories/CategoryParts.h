// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>

namespace quaverly {

class Desktop;
class DisplayedSet;
class MainScreen;
class SettingsRows;
struct Catalogue;
struct Options;

/** What the categories' commands and screens need of the program. All references outlive them. */
struct CategoryParts
{
    Catalogue &catalogue;
    SettingsRows &settings;
    DisplayedSet &set;
    MainScreen &mainScreen;
    Desktop &desktop;
    Options &options;
    /** Runs between the user's OK and the first change; a bulk command that it answers false stops
     * there. @p command names it in the list of copies. */
    std::function<bool(const QString &command)> beforeBulk;
};

} // namespace quaverly
