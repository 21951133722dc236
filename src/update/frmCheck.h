// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/ModalScreen.h"
#include "update/CatalogueCheck.h"

#include <memory>

namespace Ui {
class frmCheck;
}

namespace quaverly {

/** Shows what a check of the catalogue found, with a way to the songs and to what sets it right. */
class frmCheck final : public ModalScreen
{
    Q_OBJECT

public:
    /** @p showUpdate opens the screen that updates from the disk. */
    frmCheck(const UpdateParts &parts, std::function<void()> showUpdate, QWidget *parent = nullptr);
    ~frmCheck() override;

protected:
    void showEvent(QShowEvent *event) override;

private:
    void look();
    void showFindings();
    void listFindings_Click();
    void cmdShow_Click();
    void cmdRepair_Click();
    void removeTracks();
    [[nodiscard]] const CheckFinding *chosen() const;

    std::unique_ptr<Ui::frmCheck> m_ui;
    UpdateParts m_parts;
    std::function<void()> m_showUpdate;
    std::vector<CheckFinding> m_findings;
    bool m_hasLooked = false;
};

} // namespace quaverly
