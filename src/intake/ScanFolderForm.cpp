// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/ScanFolderForm.h"

#include "intake/IntakeState.h"
#include "ui_ScanFolderForm.h"

#include <QCloseEvent>
#include <QScreen>

namespace quaverly {

ScanFolderForm::ScanFolderForm(IntakeState &state, QWidget *parent)
    : ScanWindow(parent), m_ui(std::make_unique<Ui::ScanFolderForm>()), m_state(state)
{
    m_ui->setupUi(this);
    setControls({m_ui->lblRecsReadLabel, m_ui->lblRecsRead, m_ui->lblRecsAddedLabel, m_ui->lblRecsAdded,
                 m_ui->Label1});
    wire();
}

ScanFolderForm::~ScanFolderForm() = default;

void ScanFolderForm::wire()
{
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &ScanFolderForm::cmdCancel_Click);
}

void ScanFolderForm::showScanning(const QString &caption, const QString &message)
{
    clearProgress();
    showLarge(*m_ui->Msg, message);
    m_ui->Frame1->show();
    m_ui->Label1->show();
    setCaption(caption);
    Form_Load();
    show();
}

void ScanFolderForm::Form_Load()
{
    adjustSize();
    move(screen()->availableGeometry().center() - rect().center());
}

void ScanFolderForm::Form_Unload()
{
    m_state.CancelScan = true;
}

void ScanFolderForm::cmdCancel_Click()
{
    close();
}

void ScanFolderForm::closeEvent(QCloseEvent *event)
{
    Form_Unload();
    event->accept();
}

} // namespace quaverly
