// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "maintenance/MaintenanceParts.h"

#include <QDialog>

#include <memory>

class QLineEdit;

namespace Ui {
class frmChangeFilePath;
}

namespace quaverly {

/** Asks for a part of the folders' names and for what it is called now, for all songs and play lists. */
class frmChangeFilePath final : public QDialog
{
    Q_OBJECT

public:
    explicit frmChangeFilePath(const MaintenanceParts &parts, QWidget *parent = nullptr);
    ~frmChangeFilePath() override;

    /** Shows the screen over its owner and returns; it deletes itself when it is closed. */
    void showModally();
    /** Not while its command runs, whose wait windows let events run. */
    void reject() override;

private:
    void wire();
    void Form_Load();
    void cmdBrowseOrig_Click();
    void cmdBrowseNew_Click();
    void OKButton_Click();
    void CancelButton_Click();
    void browse(const QString &prompt, QLineEdit &box);

    std::unique_ptr<Ui::frmChangeFilePath> m_ui;
    MaintenanceParts m_parts;
    bool m_working = false;
};

} // namespace quaverly
