// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "intake/ScanWindow.h"

#include <memory>

namespace Ui {
class ScanDriveForm;
}

namespace shell {
class Shell;
}

namespace quaverly {

class Desktop;
class MainScreen;
class MusicLoader;
struct IntakeState;

/** Chooses a drive and shows the scan of it. During the scan only its Cancel button closes it. */
class ScanDriveForm final : public ScanWindow
{
    Q_OBJECT

public:
    ScanDriveForm(Desktop &desktop, MainScreen &mainScreen, IntakeState &state, shell::Shell &shell,
                  QWidget *parent = nullptr);
    ~ScanDriveForm() override;

    /** Shows the screen anew, modal and without waiting. @p loader outlives the screen. */
    void showModally(MusicLoader &loader);

    void showScanning(const QString &caption, const QString &message) override;
    void setGatheringText(const QString &text) override;
    void setExitCaption(const QString &caption) override;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void wire();
    void Form_Load();
    /** False refuses the closing. */
    [[nodiscard]] bool Form_Unload();
    void cmbDrive_Change();
    void cmdLoad_Click();
    void cmdExit_Click();

    void fillDrives();
    void scanDrive();

    std::unique_ptr<Ui::ScanDriveForm> m_ui;
    Desktop &m_desktop;
    MainScreen &m_mainScreen;
    IntakeState &m_state;
    shell::Shell &m_shell;
    MusicLoader *m_loader = nullptr;
};

} // namespace quaverly
