// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/PasswordChange.h"
#include "desktop/ModalScreen.h"

#include <memory>

namespace Ui {
class frmPassword;
}

namespace quaverly {

/** Has the user type the catalogue's password, and the one that it is to have. */
class frmPassword final : public ModalScreen
{
    Q_OBJECT

public:
    /** With @p tablet it is sized for fingers. The references in @p change outlive the screen. */
    frmPassword(Desktop &desktop, const PasswordChange &change, bool tablet, QWidget *parent = nullptr);
    ~frmPassword() override;

private:
    void Form_Load(bool tablet);
    void cmdSave_Click();
    void cmdCancel_Click();

    std::unique_ptr<Ui::frmPassword> m_ui;
    Desktop &m_desktop;
    PasswordChange m_change;
};

} // namespace quaverly
