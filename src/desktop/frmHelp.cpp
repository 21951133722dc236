// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/frmHelp.h"

#include "desktop/ScreenLook.h"
#include "ui_frmHelp.h"

#include <QScreen>
#include <QScrollBar>
#include <QShowEvent>

#include <algorithm>

namespace quaverly {

namespace {

/** The most that a page of help takes of the screen's height. */
constexpr double ScreenShare = 0.8;

} // namespace

frmHelp::frmHelp(const QString &heading, const QString &body, QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmHelp>())
{
    m_ui->setupUi(this);
    scaleFont(*m_ui->lblHeading1, HeadingScale, true);
    showText(*m_ui->lblHeading1, heading);
    showText(*m_ui->lblBody1, body);
    wire();
}

frmHelp::~frmHelp() = default;

void frmHelp::wire()
{
    connect(m_ui->OKButton, &QPushButton::clicked, this, &frmHelp::OKButton_Click);
}

void frmHelp::showEvent(QShowEvent *event)
{
    // Not before: the caller may have made the controls larger.
    if (!event->spontaneous())
        fitToScreen();
    QDialog::showEvent(event);
}

void frmHelp::fitToScreen()
{
    // The scroll area asks for little by itself; the text is to be read at once where there is room.
    const QSize text = m_ui->lblBody1->minimumSize();
    m_ui->bodyArea->setMinimumWidth(text.width() + m_ui->bodyArea->verticalScrollBar()->sizeHint().width());
    const int others = sizeHint().height() - m_ui->bodyArea->sizeHint().height();
    const int most = static_cast<int>(screen()->availableSize().height() * ScreenShare);
    resize(sizeHint().width(), std::min(text.height() + others, most));
}

void frmHelp::OKButton_Click()
{
    accept();
}

} // namespace quaverly
