// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/ReportBox.h"

#include "platform/richtext/RichText.h"

#include <QAbstractTextDocumentLayout>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QtMath>

#include <algorithm>

namespace quaverly {

ReportBox::ReportBox(QWidget *parent) : PaperEdit(parent)
{
    setAcceptRichText(false);
}

void ReportBox::paintEvent(QPaintEvent *event)
{
    PaperEdit::paintEvent(event);
    QPainter painter(viewport());
    painter.setPen(QPen(Qt::gray, 0, Qt::DashLine));
    const int scrolled = verticalScrollBar()->value();
    const QAbstractTextDocumentLayout &layout = *document()->documentLayout();
    // In the margin above the text, a point belongs to the last line that is laid out so far.
    const int first = std::max(event->rect().top(), qCeil(document()->documentMargin()) - scrolled);
    for (QTextBlock block = cursorForPosition(QPoint(0, first)).block(); block.isValid();
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
