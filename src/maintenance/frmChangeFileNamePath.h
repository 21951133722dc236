// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "maintenance/MaintenanceParts.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmChangeFileNamePath;
}

namespace quaverly {

/** Asks for a part of the file names in all play lists and for what it is called now. */
class frmChangeFileNamePath final : public QDialog
{
    Q_OBJECT

public:
    explicit frmChangeFileNamePath(const MaintenanceParts &parts, QWidget *parent = nullptr);
    ~frmChangeFileNamePath() override;

    /** Shows the screen over its owner and returns; it deletes itself when it is closed. */
    void showModally();
    /** Not while its command runs, whose wait windows let events run. */
    void reject() override;

private:
    void wire();
    void Form_Load();
    void cmdOK_Click();
    void cmdCancel_Click();

    std::unique_ptr<Ui::frmChangeFileNamePath> m_ui;
    MaintenanceParts m_parts;
    bool m_working = false;
};

} // namespace quaverly
