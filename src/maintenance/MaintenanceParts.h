// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Services.h"

#include <QString>

#include <functional>

namespace quaverly {

class DisplayedSet;
class MainScreen;

/** What the commands over many records need of the program. All references outlive them. */
struct MaintenanceParts
{
    Services services;
    DisplayedSet &set;
    MainScreen &mainScreen;
    /** True while one of them lets events run: the main screen may not go before that has ended. */
    bool &busy;
    /** Runs between the user's last Yes and the first change; a command that it answers false stops there. */
    std::function<bool(const QString &command)> beforeBulk;
};

} // namespace quaverly
