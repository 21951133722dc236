// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmFontForm;
}

namespace quaverly {

class Desktop;
class OptionsStore;
struct Options;

/** Chooses the font of all screens. */
class frmFontForm final : public QDialog
{
    Q_OBJECT

public:
    /** All references outlive the screen. */
    frmFontForm(Desktop &desktop, Options &options, OptionsStore &store, QWidget *parent = nullptr);
    ~frmFontForm() override;

    /** Shows the screen over its owner and returns; it deletes itself when it is closed. */
    void showModally();

private:
    void wire();
    void Form_Load();
    void preview(const QString &name);
    /** The name chosen, written as the system writes it. */
    [[nodiscard]] QString chosenName() const;
    void takeFont(const QString &name);
    void cmdOK_Click();
    void cmdCancel_Click();

    std::unique_ptr<Ui::frmFontForm> m_ui;
    Desktop &m_desktop;
    Options &m_options;
    OptionsStore &m_store;
};

} // namespace quaverly
