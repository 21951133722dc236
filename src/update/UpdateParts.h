// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Services.h"

#include <QDateTime>
#include <QString>

#include <functional>

namespace quaverly {

class DisplayedSet;
class MainScreen;
struct IntakeState;
struct PlayerState;

/** What an update works with. All references outlive it. */
struct UpdateParts
{
    Services services;
    DisplayedSet &set;
    MainScreen &mainScreen;
    PlayerState &player;
    IntakeState &intake;
    /** True while it lets events run: the main screen may not go before that has ended. */
    bool &busy;
    /** The local date and time, marked Qt::UTC as the store keeps its times. */
    std::function<QDateTime()> now;
};

/** Told now and then what goes on, and how much of all is done; false gives the work up. */
using UpdateGoesOn = std::function<bool(const QString &what, qint64 done, qint64 all)>;

} // namespace quaverly
