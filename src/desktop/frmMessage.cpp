// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/frmMessage.h"

#include "desktop/ScreenLook.h"
#include "platform/options/OptionsStore.h"
#include "platform/text/Text.h"
#include "ui_frmMessage.h"

#include <QStyle>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr qint16 GoOn = 0;
constexpr qint16 BackOut = -1;

QString section()
{
    return QString::fromUtf16(OptionsSection);
}

} // namespace

frmMessage::frmMessage(OptionsStore &options, QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmMessage>()), m_options(options)
{
    m_ui->setupUi(this);
    const int size = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    m_ui->imgWarning->setPixmap(
        style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this).pixmap(size));
    wire();
}

frmMessage::~frmMessage() = default;

void frmMessage::wire()
{
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmMessage::cmdOK_Click);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &frmMessage::cmdCancel_Click);
}

void frmMessage::Message(const QString &text)
{
    showText(*m_ui->lblMessage, text);
    m_ui->cmdOK->setFocus();
}

qint16 frmMessage::Display(const QString &key)
{
    if (Val(m_options.GetSetting(section(), key, u"0"_s)) != 0)
        return GoOn;
    if (exec() == Rejected)
        return BackOut;
    m_options.SaveSetting(section(), key, m_ui->chkShowAgain->isChecked() ? u"1"_s : u"0"_s);
    return GoOn;
}

void frmMessage::cmdOK_Click()
{
    accept();
}

void frmMessage::cmdCancel_Click()
{
    reject();
}

} // namespace quaverly
