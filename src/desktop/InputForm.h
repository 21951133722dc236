// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include <functional>
#include <memory>

namespace Ui {
class InputForm;
}

namespace quaverly {

/** The modal text prompt. Cancel, Esc and the close box leave the empty text. */
class InputForm final : public QDialog
{
    Q_OBJECT

public:
    explicit InputForm(QWidget *parent = nullptr);
    ~InputForm() override;

    void setPrompt(const QString &prompt, const QString &title);
    /** What the field starts with, selected so that typing replaces it. */
    void setDefaultText(const QString &text);
    /** Shows "*" for each character. */
    void setPassword(bool password);
    /** Sizes the screen for fingers; @p showKeyboard runs at each click in the field. */
    void setTablet(std::function<void()> showKeyboard);

    [[nodiscard]] QString text() const;

    void reject() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void wire();
    void cmdOK_Click();
    void cmdCancel_Click();

    std::unique_ptr<Ui::InputForm> m_ui;
    std::function<void()> m_showKeyboard;
};

} // namespace quaverly
