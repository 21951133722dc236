// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/PrintRichText.h"

#include "platform/richtext/RichText.h"
#include "platform/store/DaoError.h"

#include <QAbstractTextDocumentLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <memory>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr double TwipsPerInch = 1440;

/** A page break in the text becomes one of the layout. What is behind the last one may be nothing at all. */
void breakPages(QTextDocument &document)
{
    const QString pageBreak{QChar(richtext::PageBreak)};
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    for (QTextCursor found = document.find(pageBreak); !found.isNull();
         found = document.find(pageBreak, found)) {
        const bool opensBlock = found.selectionStart() == found.block().position();
        found.removeSelectedText();
        if (found.atEnd())
            break;
        if (!opensBlock)
            found.insertBlock();
        QTextBlockFormat format = found.blockFormat();
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        found.setBlockFormat(format);
    }
    cursor.endEditBlock();
}

QRectF printedArea(const QPagedPaintDevice &printer, const PrintMargins &margins)
{
    const double across = printer.logicalDpiX() / TwipsPerInch;
    const double down = printer.logicalDpiY() / TwipsPerInch;
    return QRectF(0, 0, printer.width(), printer.height())
        .adjusted(margins.left * across, margins.top * down, -margins.right * across, -margins.bottom * down);
}

void drawPage(QPainter &painter, QTextDocument &document, const QRectF &area, int page)
{
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, Qt::black);
    context.clip = QRectF(0, page * area.height(), area.width(), area.height());
    painter.save();
    painter.translate(area.left(), area.top() - page * area.height());
    painter.setClipRect(context.clip);
    document.documentLayout()->draw(&painter, context);
    painter.restore();
}

} // namespace

void PrintRichText(const QTextDocument &document, QPagedPaintDevice &printer, const PrintMargins &margins)
{
    // The margins count from the paper's edge, not from where the printer can print.
    QPageLayout paper = printer.pageLayout();
    paper.setMode(QPageLayout::FullPageMode);
    printer.setPageLayout(paper);
    const QRectF area = printedArea(printer, margins);
    if (area.width() <= 0 || area.height() <= 0)
        throw dao::DaoError(dao::InvalidOperation, u"The margins leave nothing of the page."_s);

    const std::unique_ptr<QTextDocument> pages(document.clone());
    breakPages(*pages);
    pages->documentLayout()->setPaintDevice(&printer);
    pages->setDocumentMargin(0);
    pages->setPageSize(area.size());

    QPainter painter;
    if (!painter.begin(&printer))
        throw dao::DaoError(dao::PathFileAccess, u"The printer can't be used."_s);
    for (int page = 0; page < pages->pageCount(); ++page) {
        if (page > 0 && !printer.newPage())
            throw dao::DaoError(dao::PathFileAccess, u"The printer took no further page."_s);
        drawPage(painter, *pages, area, page);
    }
}

} // namespace quaverly
