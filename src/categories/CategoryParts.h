// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Services.h"

#include <QString>

#include <functional>

namespace quaverly {

class DisplayedSet;
class MainScreen;
class SettingsRows;

/** What the categories' commands and screens need of the program. All references outlive them. */
struct CategoryParts
{
    Services services;
    SettingsRows &settings;
    DisplayedSet &set;
    MainScreen &mainScreen;
    /** Runs between the user's OK and the first change; a bulk command that it answers false stops
     * there. @p command names it in the list of copies. */
    std::function<bool(const QString &command)> beforeBulk;
};

} // namespace quaverly
