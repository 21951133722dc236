// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "maintenance/MaintenanceParts.h"

#include <QString>

#include <optional>
#include <vector>

namespace quaverly {

/**
 * Songs that stand in the catalogue more than once: shown, and deleted but for the one of each group with the
 * lowest key. By size the whole catalogue is looked at, by album the songs of one album. Music files stay.
 */
class DuplicateCommands final
{
public:
    explicit DuplicateCommands(MaintenanceParts parts);

    void mnuShowDuplicates_Click();
    void mnuShowDuplicatesToDelete_Click();
    void mnuDeleteDuplicates_Click();
    void mnuShowDuplicatesAlbum_Click();
    void mnuShowDuplicatesToDeleteAlbum_Click();
    void mnuDeleteDuplicatesAlbum_Click();

private:
    using Keys = std::vector<qint64>;
    /** A stored query, what stands above the list while it is shown, and what is said when it is empty. */
    struct View;
    /** The stored query of what a rule deletes, and its question around the number of songs. */
    struct Rule;

    void showView(const View &view);
    void deleteBy(const Rule &rule);
    /** What is to be deleted; nothing when the user does not want it. */
    [[nodiscard]] std::optional<Keys> confirmedSongs(const Rule &rule);
    /** False when the command was stopped before. */
    [[nodiscard]] bool deleteSongs(const Rule &rule, const Keys &songs);
    void tellNone(const QString &message);

    MaintenanceParts m_parts;
};

} // namespace quaverly
