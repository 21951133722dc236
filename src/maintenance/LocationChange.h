// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "maintenance/MaintenanceParts.h"

#include <QString>

namespace dao {
class Database;
}

namespace quaverly {

/**
 * Follows music that was moved on the disk: rewrites a part of the stored paths. No file or folder is
 * touched. Both check, ask, change and tell, and are true when the update was made.
 * @throws dao::DaoError; what was changed before stays.
 */
class LocationChange final
{
public:
    explicit LocationChange(const MaintenanceParts &parts) : m_parts(parts) {}

    /** The folders of all songs, and the files of all play lists. */
    bool changeFilePaths(const QString &original, const QString &replacement);
    /** The files of all play lists alone. */
    bool changePlayListPaths(const QString &original, const QString &replacement);

private:
    [[nodiscard]] bool asks(const QString &question);
    [[nodiscard]] dao::Database &database() const;

    MaintenanceParts m_parts;
};

} // namespace quaverly
