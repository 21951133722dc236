// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/PaperEdit.h"

#include <QEvent>

namespace quaverly {

PaperEdit::PaperEdit(QWidget *parent) : QTextEdit(parent)
{
    showAsPaper();
}

void PaperEdit::showAsPaper()
{
    QPalette paper = palette();
    if (paper.color(QPalette::Base) == Qt::white && paper.color(QPalette::Text) == Qt::black)
        return;
    paper.setColor(QPalette::Base, Qt::white);
    paper.setColor(QPalette::Text, Qt::black);
    paper.setColor(QPalette::PlaceholderText, Qt::darkGray);
    setPalette(paper);
}

void PaperEdit::changeEvent(QEvent *event)
{
    QTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        showAsPaper();
}

} // namespace quaverly
