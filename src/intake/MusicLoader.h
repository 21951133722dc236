// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Services.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace shell {
class Shell;
}

namespace quaverly {

class MainScreen;
class ScanScreens;
struct IntakeState;

/** The time as the scan needs it. */
struct ScanClock
{
    /** Seconds since midnight, with their fraction. */
    std::function<double()> secondsSinceMidnight;
    /** The local date and time, marked Qt::UTC as the store keeps its times. */
    std::function<QDateTime()> now;
};

/** What a scan works with. All of it outlives the loader. */
struct IntakeParts
{
    Services services;
    MainScreen &mainScreen;
    shell::Shell &shell;
    IntakeState &state;
    ScanScreens &screens;
    ScanClock clock;
    /** Where the list of what was passed over goes: the first of these places that has room. */
    QStringList reportPlaces;
};

/** The one way by which music files enter the catalogue. */
class MusicLoader final
{
public:
    explicit MusicLoader(IntakeParts parts);

    /**
     * Adds every music file below @p Path that the catalogue doesn't have yet, or with @p Files those
     * of these very names. A folder ends in the separator; without one the path is a drive, named by its
     * mount point, and the root drive is the empty text. Runs to its end or until the flag CancelScan
     * is set, and lets events run meanwhile; a call within a running scan does nothing. Never throws:
     * what fails is passed over and listed in the report.
     */
    void LoadMusicFiles(const QString &Path, const QStringList &Files);

    [[nodiscard]] bool isRunning() const { return m_running; }

private:
    IntakeParts m_parts;
    bool m_running = false;
};

} // namespace quaverly
