// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/ModalScreen.h"
#include "maintenance/MaintenanceParts.h"

#include <memory>

namespace Ui {
class frmChangeFileNamePath;
}

namespace quaverly {

/** Asks for a part of the file names in all play lists and for what it is called now. */
class frmChangeFileNamePath final : public ModalScreen
{
    Q_OBJECT

public:
    explicit frmChangeFileNamePath(const MaintenanceParts &parts, QWidget *parent = nullptr);
    ~frmChangeFileNamePath() override;

private:
    void wire();
    void Form_Load();
    void cmdOK_Click();
    void cmdCancel_Click();

    std::unique_ptr<Ui::frmChangeFileNamePath> m_ui;
    MaintenanceParts m_parts;
};

} // namespace quaverly
