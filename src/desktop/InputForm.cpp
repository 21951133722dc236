// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/InputForm.h"

#include "desktop/ScreenLook.h"
#include "ui_InputForm.h"

#include <QEvent>

namespace quaverly {

InputForm::InputForm(QWidget *parent) : QDialog(parent), m_ui(std::make_unique<Ui::InputForm>())
{
    m_ui->setupUi(this);
    wire();
}

InputForm::~InputForm() = default;

void InputForm::wire()
{
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &InputForm::cmdOK_Click);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &InputForm::cmdCancel_Click);
    m_ui->txtInput->installEventFilter(this);
}

void InputForm::setPrompt(const QString &prompt, const QString &title)
{
    setWindowTitle(title);
    showText(*m_ui->lblMessage, prompt);
    m_ui->txtInput->setAccessibleDescription(prompt);
    // Room for a name even where the question is short.
    m_ui->txtInput->setMinimumWidth(m_ui->txtInput->fontMetrics().averageCharWidth() * 45);
}

void InputForm::setDefaultText(const QString &text)
{
    m_ui->txtInput->setText(text);
    m_ui->txtInput->selectAll();
}

void InputForm::setPassword(bool password)
{
    m_ui->txtInput->setEchoMode(password ? QLineEdit::Password : QLineEdit::Normal);
    if (password)
        m_ui->txtInput->setStyleSheet(QStringLiteral("lineedit-password-character: %1").arg(int('*')));
}

void InputForm::setTablet(std::function<void()> showKeyboard)
{
    m_showKeyboard = std::move(showKeyboard);
    sizeForFingers(*this);
}

QString InputForm::text() const
{
    return m_ui->txtInput->text();
}

void InputForm::cmdOK_Click()
{
    accept();
}

void InputForm::cmdCancel_Click()
{
    reject();
}

void InputForm::reject()
{
    m_ui->txtInput->clear();
    QDialog::reject();
}

bool InputForm::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonRelease && m_showKeyboard)
        m_showKeyboard();
    return QDialog::eventFilter(watched, event);
}

} // namespace quaverly
