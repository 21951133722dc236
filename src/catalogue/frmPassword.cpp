// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/frmPassword.h"

#include "desktop/Desktop.h"
#include "desktop/Guard.h"
#include "desktop/ScreenLook.h"
#include "ui_frmPassword.h"

namespace quaverly {

frmPassword::frmPassword(Desktop &desktop, const PasswordChange &change, bool tablet, QWidget *parent)
    : ModalScreen(parent), m_ui(std::make_unique<Ui::frmPassword>()), m_desktop(desktop), m_change(change)
{
    m_ui->setupUi(this);
    connect(m_ui->cmdSave, &QPushButton::clicked, this, &frmPassword::cmdSave_Click);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &frmPassword::cmdCancel_Click);
    guarded(m_desktop, windowTitle(), [this, tablet] { Form_Load(tablet); });
}

frmPassword::~frmPassword() = default;

void frmPassword::Form_Load(bool tablet)
{
    const bool has = m_change.hasPassword();
    showText(*m_ui->lblMessage, PasswordChange::explanation(has));
    m_ui->lblOldPassword->setVisible(has);
    m_ui->txtOldPassword->setVisible(has);
    (has ? m_ui->txtOldPassword : m_ui->txtNewPassword)->setFocus();
    if (tablet)
        sizeForFingers(*this);
}

void frmPassword::cmdSave_Click()
{
    work(m_desktop, [this] {
        return m_change.save(
            {m_ui->txtOldPassword->text(), m_ui->txtNewPassword->text(), m_ui->txtRepeat->text()});
    });
}

void frmPassword::cmdCancel_Click()
{
    reject();
}

} // namespace quaverly
