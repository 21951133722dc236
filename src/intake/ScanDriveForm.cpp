// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/ScanDriveForm.h"

#include "desktop/Desktop.h"
#include "desktop/Guard.h"
#include "intake/IntakeState.h"
#include "intake/MusicLoader.h"
#include "platform/shell/Shell.h"
#include "platform/text/Text.h"
#include "songlist/MainScreen.h"
#include "ui_ScanDriveForm.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

QString warningText()
{
    return u"Warning: this can take a long time.  If you have 100,000 songs or a large drive, "
           "better do this when you can walk away from your computer for hours or overnight.  "
           "The less you use your computer during the scan, the quicker it will complete.  "
           "WAIT until it finishes, even if it appears to be doing nothing.  You will see a completion "
           "message appear when it is done.\n\n"
           "If your computer enters Sleep Mode, the scan will be suspended.  To prevent this, open "
           "the power settings of your desktop and switch automatic suspend off, before running the scan."_s;
}

/** A drive as the list names it; the root drive's own name is the empty text. */
QString driveText(const shell::Drive &drive)
{
    return drive.mountPoint.isEmpty() ? QString(PathSeparator) : drive.mountPoint;
}

} // namespace

ScanDriveForm::ScanDriveForm(Desktop &desktop, MainScreen &mainScreen, IntakeState &state,
                             shell::Shell &shell, QWidget *parent)
    : ScanWindow(parent), m_ui(std::make_unique<Ui::ScanDriveForm>()), m_desktop(desktop),
      m_mainScreen(mainScreen), m_state(state), m_shell(shell)
{
    m_ui->setupUi(this);
    setControls({m_ui->lblRecsReadLabel, m_ui->lblRecsRead, m_ui->lblRecsAddedLabel, m_ui->lblRecsAdded,
                 m_ui->ProgressLabel});
    setModal(true);
    wire();
}

ScanDriveForm::~ScanDriveForm() = default;

void ScanDriveForm::wire()
{
    connect(m_ui->cmbDrive, &QComboBox::currentIndexChanged, this, &ScanDriveForm::cmbDrive_Change);
    connect(m_ui->cmdLoad, &QPushButton::clicked, this, &ScanDriveForm::cmdLoad_Click);
    connect(m_ui->cmdExit, &QPushButton::clicked, this, &ScanDriveForm::cmdExit_Click);
}

void ScanDriveForm::showModally(MusicLoader &loader)
{
    m_loader = &loader;
    Form_Load();
    show();
    QMetaObject::invokeMethod(m_ui->cmbDrive, &QComboBox::showPopup, Qt::QueuedConnection);
}

void ScanDriveForm::Form_Load()
{
    clearProgress();
    for (QWidget *control :
         {static_cast<QWidget *>(m_ui->lblWait), static_cast<QWidget *>(m_ui->ProgressFrame),
          static_cast<QWidget *>(m_ui->lblTouchMouse)})
        control->hide();
    m_ui->lblWarning->setFont({});
    m_ui->lblWarning->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_ui->lblWarning->setText(warningText());
    m_ui->cmdExit->setText(u"Exit"_s);
    m_ui->cmbDrive->setEnabled(true);
    fillDrives();
    m_ui->lblDriveChosen->setText(u"No drive selected"_s);
    cmbDrive_Change();
}

void ScanDriveForm::fillDrives()
{
    const QSignalBlocker blocker(m_ui->cmbDrive);
    m_ui->cmbDrive->clear();
    for (const shell::Drive &drive : m_shell.drives()) {
        m_ui->cmbDrive->addItem(driveText(drive), drive.mountPoint);
        m_ui->cmbDrive->setItemData(m_ui->cmbDrive->count() - 1, drive.label, Qt::ToolTipRole);
    }
    m_ui->cmbDrive->setCurrentIndex(-1);
}

void ScanDriveForm::cmbDrive_Change()
{
    const QString drive = m_ui->cmbDrive->currentText();
    const bool chosen = isGreaterThanBlank(drive);
    if (chosen)
        m_ui->lblDriveChosen->setText(drive + u" drive selected"_s);
    m_ui->cmdLoad->setEnabled(chosen);
}

void ScanDriveForm::cmdLoad_Click()
{
    guarded(m_desktop, windowTitle(), [this] { quietly([this] { scanDrive(); }); });
}

void ScanDriveForm::scanDrive()
{
    m_state.CancelScan = false;
    if (!isGreaterThanBlank(m_ui->cmbDrive->currentText()))
        return;
    if (m_mainScreen.openScreens() > 2)
        m_mainScreen.unloadPlayForm();
    showScanning(windowTitle(), u"Scanning in progress...\nPlease wait..."_s);
    m_desktop.letEventsRun();
    m_mainScreen.setScreenEnabled(false);
    m_loader->LoadMusicFiles(m_ui->cmbDrive->currentData().toString(), {});
    unload();
    m_mainScreen.setScreenEnabled(true);
}

void ScanDriveForm::showScanning(const QString &caption, const QString &message)
{
    setCaption(caption);
    m_ui->lblWait->show();
    m_ui->ProgressFrame->show();
    m_ui->ProgressLabel->show();
    m_ui->lblTouchMouse->show();
    m_ui->cmdLoad->setEnabled(false);
    // Another choice would enable the button again.
    m_ui->cmbDrive->setEnabled(false);
    m_ui->cmdExit->setText(u"Cancel"_s);
    showLarge(*m_ui->lblWarning, message);
}

void ScanDriveForm::setGatheringText(const QString &text)
{
    m_ui->lblWait->setText(text);
}

void ScanDriveForm::setExitCaption(const QString &caption)
{
    m_ui->cmdExit->setText(caption);
}

void ScanDriveForm::cmdExit_Click()
{
    guarded(m_desktop, windowTitle(), [this] {
        m_state.CancelScan = true;
        unload();
        m_mainScreen.setScreenEnabled(true);
        m_desktop.letEventsRun();
        m_mainScreen.ShowAllMenu_Click();
        m_desktop.resetPointer();
    });
}

bool ScanDriveForm::Form_Unload()
{
    if (m_ui->cmdExit->text() != "Cancel"_L1 || m_state.CancelScan)
        return true;
    m_desktop.MessageBox(u"You must press the Cancel button to cancel the scan before closing this window"_s,
                         u"Can not close"_s);
    return false;
}

// Enter in the open list reaches the window too: no button is the default one, and only its own focus counts.
void ScanDriveForm::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isEnter)
        ScanWindow::keyPressEvent(event);
    else if (m_ui->cmdLoad->hasFocus())
        m_ui->cmdLoad->click();
    else if (m_ui->cmdExit->hasFocus())
        m_ui->cmdExit->click();
}

void ScanDriveForm::closeEvent(QCloseEvent *event)
{
    event->setAccepted(Form_Unload());
}

} // namespace quaverly
