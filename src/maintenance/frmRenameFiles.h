// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/ModalScreen.h"
#include "maintenance/FileRenames.h"

#include <memory>

namespace Ui {
class frmRenameFiles;
}

namespace quaverly {

/** Asks for the pattern that files are to be named by, and the folder that its folders begin in. */
class frmRenameFiles final : public ModalScreen
{
    Q_OBJECT

public:
    explicit frmRenameFiles(const MaintenanceParts &parts, QWidget *parent = nullptr);
    ~frmRenameFiles() override;

private:
    void wire();
    void Form_Load();
    void readExample();
    void offerFolder();
    void txtPattern_Change();
    void cmdInsert_Click();
    void cmdBrowse_Click();
    void cmdShowChanges_Click();
    void cmdCancel_Click();
    [[nodiscard]] QString example(const RenamePattern &pattern) const;

    std::unique_ptr<Ui::frmRenameFiles> m_ui;
    MaintenanceParts m_parts;
    FileRenames m_renames;
    /** Texts of the song that the example is made of. */
    QHash<QString, QString> m_song;
};

} // namespace quaverly
