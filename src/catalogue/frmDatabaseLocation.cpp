// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/frmDatabaseLocation.h"

#include "desktop/Desktop.h"
#include "desktop/Guard.h"
#include "desktop/ScreenLook.h"
#include "ui_frmDatabaseLocation.h"

namespace quaverly {

frmDatabaseLocation::frmDatabaseLocation(Desktop &desktop, const DatabaseLocation &location, bool tablet,
                                         QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmDatabaseLocation>()), m_desktop(desktop),
      m_location(location)
{
    m_ui->setupUi(this);
    wire();
    Form_Load(tablet);
}

frmDatabaseLocation::~frmDatabaseLocation() = default;

void frmDatabaseLocation::showModally()
{
    setAttribute(Qt::WA_DeleteOnClose);
    open();
}

void frmDatabaseLocation::wire()
{
    connect(m_ui->cmdBrowsePath, &QPushButton::clicked, this, &frmDatabaseLocation::cmdBrowsePath_Click);
    connect(m_ui->cmdSave, &QPushButton::clicked, this, &frmDatabaseLocation::cmdSave_Click);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &frmDatabaseLocation::cmdCancel_Click);
}

void frmDatabaseLocation::Form_Load(bool tablet)
{
    showText(*m_ui->lblCaution, DatabaseLocation::caution());
    m_ui->txtPathName->setText(m_location.current());
    if (tablet)
        sizeForFingers(*this);
}

void frmDatabaseLocation::cmdBrowsePath_Click()
{
    guarded(m_desktop, windowTitle(), [this] {
        if (const QString folder = m_location.browse(); !folder.isEmpty())
            m_ui->txtPathName->setText(folder);
    });
}

void frmDatabaseLocation::cmdSave_Click()
{
    guarded(m_desktop, windowTitle(), [this] {
        if (m_location.save(m_ui->txtPathName->text()))
            accept();
    });
}

void frmDatabaseLocation::cmdCancel_Click()
{
    reject();
}

} // namespace quaverly
