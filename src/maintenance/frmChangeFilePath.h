// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/ModalScreen.h"
#include "maintenance/MaintenanceParts.h"

#include <memory>

class QLineEdit;

namespace Ui {
class frmChangeFilePath;
}

namespace quaverly {

/** Asks for a part of the folders' names and for what it is called now, for all songs and play lists. */
class frmChangeFilePath final : public ModalScreen
{
    Q_OBJECT

public:
    explicit frmChangeFilePath(const MaintenanceParts &parts, QWidget *parent = nullptr);
    ~frmChangeFilePath() override;

private:
    void wire();
    void Form_Load();
    void offerPlaces();
    void cmdBrowseOrig_Click();
    void cmdBrowseNew_Click();
    void OKButton_Click();
    void CancelButton_Click();
    void browse(const QString &prompt, QLineEdit &box);

    std::unique_ptr<Ui::frmChangeFilePath> m_ui;
    MaintenanceParts m_parts;
};

} // namespace quaverly
