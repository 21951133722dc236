// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/DatabaseLocation.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmDatabaseLocation;
}

namespace quaverly {

/** Changes the folder where the program looks for its catalogue, from the next start on. */
class frmDatabaseLocation final : public QDialog
{
    Q_OBJECT

public:
    /** With @p tablet it is sized for fingers. The references in @p location outlive the screen. */
    frmDatabaseLocation(Desktop &desktop, const DatabaseLocation &location, bool tablet,
                        QWidget *parent = nullptr);
    ~frmDatabaseLocation() override;

    /** Shows the screen over its owner and returns; it deletes itself when it is closed. */
    void showModally();

private:
    void wire();
    void Form_Load(bool tablet);
    void cmdBrowsePath_Click();
    void cmdSave_Click();
    void cmdCancel_Click();

    std::unique_ptr<Ui::frmDatabaseLocation> m_ui;
    Desktop &m_desktop;
    DatabaseLocation m_location;
};

} // namespace quaverly
