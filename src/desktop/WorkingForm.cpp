// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/WorkingForm.h"

#include "desktop/Desktop.h"
#include "desktop/ScreenLook.h"
#include "ui_WorkingForm.h"

#include <QKeyEvent>

#include <algorithm>

namespace quaverly {

namespace {

constexpr int NarrowestBar = 40; // characters

} // namespace

WorkingForm::WorkingForm(QWidget *owner)
    : QWidget(owner, Qt::Dialog), m_ui(std::make_unique<Ui::WorkingForm>())
{
    m_ui->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    // While events run for it, no other window may begin a second command beside the one that waits.
    setWindowModality(Qt::ApplicationModal);
    scaleFont(*m_ui->lblHeading, HeadingScale, true);
    m_ui->Label1->setRange(0, FullBarTwips);
    m_ui->Label1->setMinimumWidth(fontMetrics().averageCharWidth() * NarrowestBar);
    m_ui->Frame1->hide();
    m_ui->cmdCancel->hide();
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &WorkingForm::close);
}

WorkingForm::~WorkingForm() = default;

void WorkingForm::setCaption(const QString &caption)
{
    setWindowTitle(caption);
    showText(*m_ui->lblHeading, caption);
}

void WorkingForm::setMsg(const QString &text)
{
    showText(*m_ui->Msg, text.trimmed());
}

void WorkingForm::showBar()
{
    m_ui->Frame1->show();
}

void WorkingForm::offerCancel()
{
    m_ui->cmdCancel->show();
    m_ui->cmdCancel->setFocus();
}

void WorkingForm::setBar(int twips)
{
    m_ui->Label1->setValue(std::clamp(twips, 0, FullBarTwips));
}

void WorkingForm::mousePressEvent(QMouseEvent * /*event*/)
{
    close();
}

void WorkingForm::keyPressEvent(QKeyEvent *event)
{
    // A key held down since the box before this window is no wish to end the command.
    if (!event->isAutoRepeat() && !event->text().isEmpty())
        close();
}

} // namespace quaverly
