// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/RestoreBackup.h"
#include "desktop/ModalScreen.h"

#include <memory>

namespace Ui {
class frmRestoreBackup;
}

namespace quaverly {

/** Lists the copies of the catalogue, and has the user choose the one that it goes back to. */
class frmRestoreBackup final : public ModalScreen
{
    Q_OBJECT

public:
    /** With @p tablet it is sized for fingers. The references in @p restore outlive the screen. */
    frmRestoreBackup(Desktop &desktop, const RestoreBackup &restore, bool tablet, QWidget *parent = nullptr);
    ~frmRestoreBackup() override;

Q_SIGNALS:
    /** A sound copy was chosen and the screen is closed. What follows unloads the owner: connect it queued.
     */
    void restoreWanted(const Backup &backup);

private:
    void wire();
    void Form_Load(bool tablet);
    void layOutColumns();
    void listBackups_Click();
    void cmdRestore_Click();
    void cmdCancel_Click();

    std::unique_ptr<Ui::frmRestoreBackup> m_ui;
    Desktop &m_desktop;
    RestoreBackup m_restore;
    std::vector<Backup> m_copies;
};

} // namespace quaverly
