// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "maintenance/FileTests.h"
#include "maintenance/MaintenanceParts.h"

#include <QtGlobal>

#include <optional>

namespace dao {
class Recordset;
}

namespace quaverly {

class WorkingWindow;

/**
 * Finds the songs whose file is gone, or that name none, and shows them. The window stays alive however long
 * a file system takes to answer, and closing the wait window ends the search: list and work table then stay
 * as they were.
 */
class InvalidFileSearch final
{
public:
    /** @p isThere is asked on another thread, about one full path at a time. */
    explicit InvalidFileSearch(const MaintenanceParts &parts, FileTests::Test isThere);

    /** Does nothing on an empty list, or while such a command runs already. @throws dao::DaoError */
    void run();
    /** As if the user had closed the wait window. */
    void end() { m_ended = true; }

private:
    /** Keys of the songs without a file, in the order of the table; nothing when the search was ended. */
    [[nodiscard]] std::optional<std::vector<qint64>> invalidSongs();
    [[nodiscard]] std::optional<std::vector<qint64>> testAll(dao::Recordset &songs, WorkingWindow &wait);

    MaintenanceParts m_parts;
    FileTests::Test m_isThere;
    bool m_ended = false;
};

} // namespace quaverly
