// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/FieldGate.h"

#include "desktop/FileHelpers.h"
#include "ui_NameEdit.h"

namespace quaverly {

FieldGate::FieldGate(QWidget &screen, Ui::NameEdit &ui, Desktop &desktop, std::function<EditedRow()> row,
                     Handle handle)
    : m_ui(ui), m_desktop(desktop), m_row(std::move(row)), m_handle(std::move(handle)),
      m_leaveGate(new LeaveGate(
          screen,
          {ui.txtDuration, ui.txtBPM, ui.txtPurchaseDate, ui.txtDate2, ui.txtFileName, ui.txtPathName},
          *ui.cmdCancel, [this](QWidget &field) { return validate(static_cast<QLineEdit &>(field)); }))
{}

Leave FieldGate::validate(QLineEdit &field)
{
    Leave leave{.stays = false, .asked = true};
    m_handle([&] { leave = settle(field, check(field)); });
    return leave;
}

Verdict FieldGate::check(const QLineEdit &field) const
{
    const QString typed = field.text();
    if (&field == m_ui.txtDuration)
        return checkDuration(typed, m_row());
    if (&field == m_ui.txtBPM)
        return checkBPM(typed);
    if (&field == m_ui.txtFileName)
        return checkFileName(typed, m_ui.txtPathName->text(), m_row());
    if (&field == m_ui.txtPathName)
        return checkPathName(typed, m_ui.txtFileName->text(), m_row(),
                             {FolderExists(typed), FolderExists(typed.trimmed())});
    return checkDate(typed);
}

Leave FieldGate::settle(QLineEdit &field, const Verdict &verdict)
{
    bool goesOn = true;
    switch (verdict.ask) {
    case Verdict::Ask::Nothing:
        break;
    case Verdict::Ask::Tell:
        m_desktop.MessageBox(verdict.text, verdict.title, verdict.icon);
        break;
    case Verdict::Ask::OkCancel:
        goesOn =
            m_desktop.MessageBox(verdict.text, verdict.title, verdict.icon, Buttons::OkCancel) == Answer::Ok;
        break;
    case Verdict::Ask::Warning:
        goesOn = m_desktop.ShowWarning(verdict.text, QString::fromUtf16(verdict.key));
        break;
    }
    if (!goesOn)
        field.setText(verdict.reverted);
    else if (!verdict.stays && verdict.accepted)
        field.setText(*verdict.accepted);
    return {.stays = !goesOn || verdict.stays, .asked = verdict.ask != Verdict::Ask::Nothing};
}

} // namespace quaverly
