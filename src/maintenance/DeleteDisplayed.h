// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "maintenance/MaintenanceParts.h"

#include <QString>
#include <QtGlobal>

#include <optional>
#include <vector>

namespace quaverly {

/** Takes all displayed songs out of the catalogue; no music file is touched. */
class DeleteDisplayed final
{
public:
    explicit DeleteDisplayed(const MaintenanceParts &parts) : m_parts(parts) {}

    /** Does nothing on an empty list. @throws dao::DaoError, with nothing deleted. */
    void run();

private:
    void bringUpToDate();
    /** Nothing when the user does not want it. */
    [[nodiscard]] std::optional<std::vector<qint64>> confirmedSongs();
    [[nodiscard]] bool isConfirmedAgain(qint64 records);
    void showWhatIsLeft(const QString &recordSource);

    MaintenanceParts m_parts;
};

} // namespace quaverly
