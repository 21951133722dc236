// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/ScanWindow.h"

#include <QEvent>
#include <QLabel>
#include <QProgressBar>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

ScanWindow::ScanWindow(QWidget *parent) : QDialog(parent)
{}

void ScanWindow::setControls(const Controls &controls)
{
    m_controls = controls;
    m_controls.bar->setRange(0, FullBarTwips);
}

void ScanWindow::clearProgress()
{
    setBarWidth(0);
    for (QLabel *label : {m_controls.lblRecsReadLabel, m_controls.lblRecsRead, m_controls.lblRecsAddedLabel,
                          m_controls.lblRecsAdded})
        label->clear();
}

void ScanWindow::showLarge(QLabel &label, const QString &message)
{
    label.setFont(QFont(u"Arial"_s, 20));
    label.setAlignment(Qt::AlignCenter);
    label.setText(message);
}

void ScanWindow::setCaption(const QString &caption)
{
    setWindowTitle(caption);
}

void ScanWindow::setCountLabels(const QString &read, const QString &added)
{
    m_controls.lblRecsReadLabel->setText(read);
    m_controls.lblRecsAddedLabel->setText(added);
}

void ScanWindow::setFilesRead(int count)
{
    m_controls.lblRecsRead->setText(QString::number(count));
}

void ScanWindow::setSongsAdded(int count)
{
    m_controls.lblRecsAdded->setText(QString::number(count));
}

void ScanWindow::setBarWidth(int twips)
{
    m_barWidth = twips;
    m_controls.bar->setValue(std::clamp(twips, 0, FullBarTwips));
}

void ScanWindow::unload()
{
    if (isVisible())
        close();
}

void ScanWindow::reject()
{
    close();
}

void ScanWindow::changeEvent(QEvent *event)
{
    // Disabling the main screen for the scan reaches its child windows too.
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        setEnabled(true);
    QDialog::changeEvent(event);
}

} // namespace quaverly
