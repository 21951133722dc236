// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/MusicFolders.h"
#include "desktop/ModalScreen.h"
#include "update/UpdateModel.h"
#include "update/UpdateParts.h"

#include <memory>

class QAbstractButton;

namespace Ui {
class frmUpdate;
}

namespace quaverly {

class WorkingWindow;
struct UpdateOutcome;

/** Shows what has changed on the disk, and carries out what the user ticks. */
class frmUpdate final : public ModalScreen
{
    Q_OBJECT

public:
    /** @throws dao::DaoError */
    explicit frmUpdate(const UpdateParts &parts, QWidget *parent = nullptr);
    ~frmUpdate() override;

protected:
    void showEvent(QShowEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void wire();
    void layOut();
    void listFolders();
    [[nodiscard]] QStringList chosenFolders() const;
    void cmdAddFolder_Click();
    void cmdRemoveFolder_Click();
    void cmdLook_Click();
    void cmdUpdate_Click();
    void cmdShowGone_Click();
    void cmdSaveCsv_Click();
    void look();
    [[nodiscard]] bool carryOut();
    void showCounts();
    void showTicks();
    void tell(const UpdateOutcome &outcome);
    [[nodiscard]] std::vector<std::pair<QAbstractButton *, std::optional<UpdateKind>>> kinds() const;
    [[nodiscard]] UpdateGoesOn waiting(WorkingWindow &wait);

    std::unique_ptr<Ui::frmUpdate> m_ui;
    UpdateParts m_parts;
    MusicFolders m_folders;
    UpdateModel m_model;
    bool m_hasLooked = false;
};

} // namespace quaverly
