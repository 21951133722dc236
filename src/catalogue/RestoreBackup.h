// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Backups.h"

namespace quaverly {

/** The choice of the copy that the catalogue goes back to. All references outlive this object. */
class RestoreBackup final
{
public:
    RestoreBackup(Desktop &desktop, Backups &backups);

    /** The text that the screen explains itself with; another one when there is nothing to choose. */
    [[nodiscard]] static QString explanation(bool hasCopies);
    /** Date, command, songs and size of a copy, as the columns show them. */
    [[nodiscard]] static QStringList columns(const Backup &backup);

    [[nodiscard]] std::vector<Backup> copies() const;
    /**
     * True when the copy is sound and the user is sure. What is wrong with a copy is told.
     * @throws dao::DaoError
     */
    [[nodiscard]] bool mayRestore(const Backup &backup);

private:
    Desktop &m_desktop;
    Backups &m_backups;
};

} // namespace quaverly
