// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "maintenance/MaintenanceParts.h"
#include "maintenance/PathChange.h"
#include "maintenance/TextReplacement.h"

#include <vector>

namespace quaverly {

/**
 * Follows music that was moved on the disk: rewrites a part of the stored paths. No file or folder is
 * touched. Both check, ask, change and tell, and are true when the update was made.
 * @throws dao::DaoError; nothing is changed then.
 */
class LocationChange final
{
public:
    explicit LocationChange(const MaintenanceParts &parts) : m_parts(parts) {}

    /** The folders of all songs, and the files of all play lists. */
    bool changeFilePaths(const PathChange &typed);
    /** The files of all play lists alone. */
    bool changePlayListPaths(const PathChange &typed);

private:
    /** What would be found of the first files of these rows. */
    [[nodiscard]] Presence presenceBehind(const std::vector<TextChange> &changes);
    [[nodiscard]] QStringList firstFiles(const TextChange &change);
    /** True when the new folder is there, or the user says so. */
    [[nodiscard]] bool mayLeadNowhere(const PathChange &change, const Presence &presence);
    /** What is not ticked in a preview is left out of the changes; @p rows is then what is. */
    [[nodiscard]] bool confirmed(const QString &question, const PathChange &change,
                                 std::vector<TextChange> &changes, qint64 &rows);
    [[nodiscard]] bool make(const std::vector<TextChange> &changes);
    [[nodiscard]] dao::Database &database() const;

    MaintenanceParts m_parts;
};

} // namespace quaverly
