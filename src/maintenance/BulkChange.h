// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "maintenance/MaintenanceParts.h"
#include "platform/store/Dao.h"

#include <QString>

#include <vector>

namespace quaverly {

class WorkingWindow;

/**
 * The frame of a change over many songs, between the user's last Yes and the box that tells the result: a
 * copy of the catalogue, a wait window with a bar and Cancel, and one transaction, so that all of it is done
 * or nothing.
 */
class BulkChange final
{
public:
    explicit BulkChange(const MaintenanceParts &parts) : m_parts(parts) {}

    struct Work
    {
        /** Caption of the wait window. */
        QString caption{};
        /** As it stands in the menu: so the copy is named that is kept before it. */
        QString command{};
        /** What the history says instead, when it can say more. */
        QString sentence{};
        /** Asks the function that it is given often; false once that said so. */
        std::function<bool(const dao::GoesOn &)> change;
        /** For a change that is one statement, which needs no transaction to be whole. */
        bool isOneStatement = false;
        /** Brings the screen up to date, while the window still stands. */
        std::function<void()> showResult{};
        /** False when every row will stay as it is: no copy is kept then. */
        bool changesRows = true;
    };

    /**
     * True when the change was made. False when no copy could be made, or the user stopped it, which is told.
     * @throws dao::DaoError, which says so, with nothing changed.
     */
    [[nodiscard]] bool run(const Work &work);

private:
    enum class End { NotBegun, Stopped, Done };
    [[nodiscard]] End begin(const Work &work);
    [[nodiscard]] bool change(const Work &work, WorkingWindow &wait);
    void showWhatIsStored();

    MaintenanceParts m_parts;
};

/** Tells whoever deleted songs how they come back. */
[[nodiscard]] QString waysBack();

/** What takes the songs with these keys out of the catalogue. @p database outlives it. @throws dao::DaoError.
 */
[[nodiscard]] BulkChange::Work deletionOf(const std::vector<qint64> &songs, dao::Database &database);

} // namespace quaverly
