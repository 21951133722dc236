// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/ModalScreen.h"
#include "maintenance/SearchAndReplace.h"

#include <memory>
#include <vector>

class QRadioButton;

namespace Ui {
class frmReplace;
}

namespace quaverly {

/** Asks for two texts and the field in which the one takes the other's place, in all records. */
class frmReplace final : public ModalScreen
{
    Q_OBJECT

public:
    explicit frmReplace(const MaintenanceParts &parts, QWidget *parent = nullptr);
    ~frmReplace() override;

private:
    struct FieldOption
    {
        const QRadioButton *option;
        /** The field as it stands in statements. */
        QString field;
    };

    void wire();
    void Form_Load();
    void txtOrig_Validate();
    void txtNew_Validate();
    void cmdOK_Click();
    void cmdCancel_Click();
    [[nodiscard]] std::vector<FieldOption> fieldOptions() const;
    /** Empty when no option is pressed. */
    [[nodiscard]] QString chosenField() const;

    std::unique_ptr<Ui::frmReplace> m_ui;
    MaintenanceParts m_parts;
};

} // namespace quaverly
