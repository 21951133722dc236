// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "maintenance/MaintenanceParts.h"

#include <QString>
#include <QtGlobal>

#include <vector>

namespace dao {
class Database;
class Recordset;
} // namespace dao

namespace quaverly {

/** A list's statement from its first "where" up to its "order by"; empty without a "where". */
[[nodiscard]] QString whereTextOf(const QString &recordSource);
/** What deletes the songs that the list shows, as far as its where text tells. */
[[nodiscard]] QString deleteStatement(const QString &recordSource);

/** Takes all displayed songs out of the catalogue; no music file is touched. */
class DeleteDisplayed final
{
public:
    explicit DeleteDisplayed(const MaintenanceParts &parts) : m_parts(parts) {}

    /** Does nothing on an empty list. @throws dao::DaoError, with nothing deleted. */
    void run();
    /** From the user's last Yes to the closing box. */
    [[nodiscard]] bool isRunning() const { return m_running; }

private:
    void bringUpToDate();
    [[nodiscard]] bool isConfirmed(qint64 records);
    /** False when the command was stopped before. */
    bool work();
    void deleteSongs();
    [[nodiscard]] bool statementTakesWhatIsShown(const QString &recordSource);
    void deleteByKey();
    void showWhatIsLeft(const QString &recordSource);
    [[nodiscard]] dao::Database &database() const;

    MaintenanceParts m_parts;
    bool m_running = false;
};

} // namespace quaverly
