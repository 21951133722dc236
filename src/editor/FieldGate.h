// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "editor/FieldChecks.h"
#include "editor/LeaveGate.h"

class QLineEdit;

namespace Ui {
class NameEdit;
}

namespace quaverly {

/** Runs a handler of the editor; whatever it throws is shown. */
using Handle = std::function<void(const std::function<void()> &handler)>;

/** Looks at the fields that have rules when they are left, and asks what the rules say. */
class FieldGate final
{
public:
    /** @p row gives the record as it is stored. */
    FieldGate(QWidget &screen, Ui::NameEdit &ui, Desktop &desktop, std::function<EditedRow()> row,
              Handle handle);

    /** Open, nothing is asked: the screen goes, or hides for a while. */
    void setOpen(bool open) { m_leaveGate->setOpen(open); }
    /** Tells or asks what the verdict on a field's text says, and puts into the field what comes of it. */
    Leave settle(QLineEdit &field, const Verdict &verdict);

private:
    [[nodiscard]] Verdict check(const QLineEdit &field) const;
    [[nodiscard]] Leave validate(QLineEdit &field);

    Ui::NameEdit &m_ui;
    Desktop &m_desktop;
    std::function<EditedRow()> m_row;
    Handle m_handle;
    /** Of the screen. */
    LeaveGate *m_leaveGate;
};

} // namespace quaverly
