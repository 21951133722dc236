// SPDX-License-Identifier: GPL-3.0-or-later
#include "maintenance/frmChangeFileNamePath.h"

#include "catalogue/Options.h"
#include "desktop/ScreenLook.h"
#include "maintenance/LocationChange.h"
#include "ui_frmChangeFileNamePath.h"

namespace quaverly {

frmChangeFileNamePath::frmChangeFileNamePath(const MaintenanceParts &parts, QWidget *parent)
    : ModalScreen(parent), m_ui(std::make_unique<Ui::frmChangeFileNamePath>()), m_parts(parts)
{
    m_ui->setupUi(this);
    wire();
    Form_Load();
}

frmChangeFileNamePath::~frmChangeFileNamePath() = default;

void frmChangeFileNamePath::wire()
{
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmChangeFileNamePath::cmdOK_Click);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &frmChangeFileNamePath::cmdCancel_Click);
}

void frmChangeFileNamePath::Form_Load()
{
    showText(*m_ui->lblPurpose, m_ui->lblPurpose->text());
    if (m_parts.services.options.TabletActive)
        sizeForFingers(*this);
    m_ui->txtOrig->setFocus();
}

void frmChangeFileNamePath::cmdOK_Click()
{
    work(m_parts.services.desktop, [this] {
        return LocationChange(m_parts).changePlayListPaths(
            {.original = m_ui->txtOrig->text(), .replacement = m_ui->txtNew->text()});
    });
    m_ui->txtOrig->setText(m_ui->txtOrig->text().trimmed());
    m_ui->txtNew->setText(m_ui->txtNew->text().trimmed());
}

void frmChangeFileNamePath::cmdCancel_Click()
{
    reject();
}

} // namespace quaverly
