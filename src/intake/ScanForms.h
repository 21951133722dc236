// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "intake/ScanScreen.h"

#include <QPointer>

class QWidget;

namespace shell {
class Shell;
}

namespace quaverly {

class Desktop;
class MainScreen;
class MusicLoader;
class ScanDriveForm;
class ScanFolderForm;
struct IntakeState;

/** Makes the scan screens when first asked for; they then stay for the run, mostly hidden. */
class ScanForms final : public ScanScreens
{
public:
    /** @p owner is the window that the screens stand in front of; it may go before this object. */
    ScanForms(Desktop &desktop, MainScreen &mainScreen, IntakeState &state, shell::Shell &shell,
              QWidget *owner);
    ~ScanForms() override;
    ScanForms(const ScanForms &) = delete;
    ScanForms &operator=(const ScanForms &) = delete;

    [[nodiscard]] ScanScreen &folderScreen() override;
    [[nodiscard]] ScanScreen &driveScreen() override;
    /** Opens the drive screen, modal and without waiting. */
    void showScanDriveForm(MusicLoader &loader);

private:
    [[nodiscard]] ScanDriveForm &driveForm();

    Desktop &m_desktop;
    MainScreen &m_mainScreen;
    IntakeState &m_state;
    shell::Shell &m_shell;
    QPointer<QWidget> m_owner;
    QPointer<ScanFolderForm> m_folder;
    QPointer<ScanDriveForm> m_drive;
};

} // namespace quaverly
