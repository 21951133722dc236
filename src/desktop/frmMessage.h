// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmMessage;
}

namespace quaverly {

class OptionsStore;

/** A warning that the user can switch off; the choice is kept in the options store. */
class frmMessage final : public QDialog
{
    Q_OBJECT

public:
    explicit frmMessage(OptionsStore &options, QWidget *parent = nullptr);
    ~frmMessage() override;

    /** The text of the warning. */
    void Message(const QString &text);

    /**
     * Shows the warning unless the entry @p key says that it is switched off. 0 when the command may
     * go on, -1 after Cancel, which keeps nothing.
     * @throws dao::DaoError 75 when the user's choice can't be saved.
     */
    [[nodiscard]] qint16 Display(const QString &key);

private:
    void wire();
    void cmdOK_Click();
    void cmdCancel_Click();

    std::unique_ptr<Ui::frmMessage> m_ui;
    OptionsStore &m_options;
};

} // namespace quaverly
