// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/ReportBox.h"

#include "platform/richtext/RichText.h"

#include <QAbstractTextDocumentLayout>
#include <QEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>

namespace quaverly {

ReportBox::ReportBox(QWidget *parent) : QTextEdit(parent)
{
    setAcceptRichText(false);
    showAsPaper();
}

void ReportBox::showAsPaper()
{
    QPalette paper = palette();
    if (paper.color(QPalette::Base) == Qt::white && paper.color(QPalette::Text) == Qt::black)
        return;
    paper.setColor(QPalette::Base, Qt::white);
    paper.setColor(QPalette::Text, Qt::black);
    setPalette(paper);
}

void ReportBox::changeEvent(QEvent *event)
{
    QTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        showAsPaper();
}

void ReportBox::paintEvent(QPaintEvent *event)
{
    QTextEdit::paintEvent(event);
    QPainter painter(viewport());
    painter.setPen(QPen(Qt::gray, 0, Qt::DashLine));
    const double scrolled = verticalScrollBar()->value();
    const QAbstractTextDocumentLayout &layout = *document()->documentLayout();
    for (QTextBlock block = cursorForPosition(event->rect().topLeft()).block(); block.isValid();
         block = block.next()) {
        const QRectF place = layout.blockBoundingRect(block);
        if (place.top() - scrolled > event->rect().bottom())
            break;
        drawRules(block, painter, place.top() - scrolled);
    }
}

// A break inside a line ends the page behind that line.
void ReportBox::drawRules(const QTextBlock &block, QPainter &painter, double top) const
{
    const QString text = block.text();
    for (qsizetype at = text.indexOf(QChar(richtext::PageBreak)); at >= 0;
         at = text.indexOf(QChar(richtext::PageBreak), at + 1)) {
        const QTextLine line = block.layout()->lineForTextPosition(static_cast<int>(at));
        if (!line.isValid())
            continue;
        const QRectF place = line.rect();
        const double y = top + (at == line.textStart() ? place.top() : place.bottom());
        painter.drawLine(QPointF(0, y), QPointF(viewport()->width(), y));
    }
}

} // namespace quaverly
