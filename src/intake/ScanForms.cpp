// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/ScanForms.h"

#include "intake/ScanDriveForm.h"
#include "intake/ScanFolderForm.h"

namespace quaverly {

ScanForms::ScanForms(Desktop &desktop, MainScreen &mainScreen, IntakeState &state, shell::Shell &shell,
                     QWidget *owner)
    : m_desktop(desktop), m_mainScreen(mainScreen), m_state(state), m_shell(shell), m_owner(owner)
{}

ScanForms::~ScanForms()
{
    // Where the owner went first, it has taken them along.
    delete m_folder.data();
    delete m_drive.data();
}

ScanScreen &ScanForms::folderScreen()
{
    if (!m_folder)
        m_folder = new ScanFolderForm(m_state, m_owner);
    return *m_folder;
}

ScanScreen &ScanForms::driveScreen()
{
    return driveForm();
}

void ScanForms::showScanDriveForm(MusicLoader &loader)
{
    driveForm().showModally(loader);
}

ScanDriveForm &ScanForms::driveForm()
{
    if (!m_drive)
        m_drive = new ScanDriveForm(m_desktop, m_mainScreen, m_state, m_shell, m_owner);
    return *m_drive;
}

} // namespace quaverly
