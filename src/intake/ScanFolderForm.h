// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "intake/ScanWindow.h"

#include <memory>

namespace Ui {
class ScanFolderForm;
}

namespace quaverly {

struct IntakeState;

/** Progress of adding a folder or one file. Closing it in any way cancels the scan. */
class ScanFolderForm final : public ScanWindow
{
    Q_OBJECT

public:
    explicit ScanFolderForm(IntakeState &state, QWidget *parent = nullptr);
    ~ScanFolderForm() override;

    void showScanning(const QString &caption, const QString &message) override;
    void setGatheringText(const QString & /*text*/) override {}
    void setExitCaption(const QString & /*caption*/) override {}

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void wire();
    void Form_Load();
    void Form_Unload();
    void cmdCancel_Click();

    std::unique_ptr<Ui::ScanFolderForm> m_ui;
    IntakeState &m_state;
};

} // namespace quaverly
