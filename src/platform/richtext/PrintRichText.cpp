// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/richtext/PrintRichText.h"

#include "platform/richtext/RichText.h"
#include "platform/store/DaoError.h"
#include "platform/text/Twips.h"

#include <QAbstractTextDocumentLayout>
#include <QPageRanges>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QUrl>
#include <QVariant>

using namespace Qt::StringLiterals;

namespace richtext {

namespace {

QRectF printedArea(const QPagedPaintDevice &printer, const PrintMargins &margins)
{
    const double across = static_cast<double>(printer.logicalDpiX()) / quaverly::TwipsPerInch;
    const double down = static_cast<double>(printer.logicalDpiY()) / quaverly::TwipsPerInch;
    return QRectF(0, 0, printer.width(), printer.height())
        .adjusted(margins.left * across, margins.top * down, -margins.right * across, -margins.bottom * down);
}

/** Goes through a document from page break to page break: a long one is never laid out as a whole. */
class Sections final
{
public:
    explicit Sections(const QTextDocument &document) : m_document(document), m_block(document.begin()) {}

    /** What comes next, without the break behind it; empty at the end. */
    [[nodiscard]] QTextDocumentFragment next()
    {
        const int start = m_place;
        for (; m_block.isValid(); m_block = m_block.next()) {
            const int from = std::max(0, m_place - m_block.position());
            const qsizetype at = m_block.text().indexOf(QChar(PageBreak), from);
            if (at >= 0)
                return upTo(start, m_block.position() + static_cast<int>(at));
        }
        m_place = end();
        return fragment(start, m_place);
    }
    [[nodiscard]] bool isAtEnd() const { return m_place >= end(); }
    [[nodiscard]] double share() const { return double(m_place) / std::max(1, end()); }

private:
    [[nodiscard]] int end() const { return m_document.characterCount() - 1; }
    [[nodiscard]] QTextDocumentFragment upTo(int start, int pageBreak)
    {
        m_place = pageBreak + 1;
        // The paragraph that the break opens belongs to the next page.
        const bool opensBlock = pageBreak == m_block.position() && pageBreak > start;
        return fragment(start, opensBlock ? pageBreak - 1 : pageBreak);
    }
    [[nodiscard]] QTextDocumentFragment fragment(int start, int behind) const
    {
        QTextCursor cursor(m_document.findBlock(start));
        cursor.setPosition(start);
        cursor.setPosition(behind, QTextCursor::KeepAnchor);
        return cursor.selection();
    }

    const QTextDocument &m_document;
    QTextBlock m_block;
    int m_place = 0;
};

/** A part of a document, with the pictures of the whole. */
class Section final : public QTextDocument
{
public:
    explicit Section(const QTextDocument &whole) : m_whole(whole)
    {
        setDefaultFont(whole.defaultFont());
        setUndoRedoEnabled(false);
        setDocumentMargin(0);
    }

protected:
    QVariant loadResource(int type, const QUrl &name) override { return m_whole.resource(type, name); }

private:
    const QTextDocument &m_whole;
};

class Pages final
{
public:
    Pages(QPagedPaintDevice &printer, const PrintOptions &options)
        : m_printer(printer), m_options(options), m_area(printedArea(printer, options.margins)),
          m_ranges(printer.pageRanges())
    {
        if (m_area.width() <= 0 || m_area.height() <= 0)
            throw dao::DaoError(dao::InvalidOperation, u"The margins leave nothing of the page."_s);
        if (!m_painter.begin(&printer))
            throw dao::DaoError(dao::PathFileAccess, u"The printer can't be used."_s);
    }

    /** False when the rest isn't wanted; @p share tells how far the text is done. */
    [[nodiscard]] bool print(const QTextDocument &whole, const QTextDocumentFragment &text, double share)
    {
        Section section(whole);
        section.documentLayout()->setPaintDevice(&m_printer);
        section.setPageSize(m_area.size());
        QTextCursor(&section).insertFragment(text);
        for (int page = 0; page < section.pageCount(); ++page) {
            ++m_page;
            if (m_ranges.isEmpty() || m_ranges.contains(m_page))
                draw(section, page);
            if (m_page == m_options.mostPages || (m_options.goesOn && !m_options.goesOn(share)))
                return false;
        }
        return true;
    }

private:
    void draw(QTextDocument &section, int page)
    {
        if (m_drawn++ > 0 && !m_printer.newPage())
            throw dao::DaoError(dao::PathFileAccess, u"The printer took no further page."_s);
        QAbstractTextDocumentLayout::PaintContext context;
        context.palette.setColor(QPalette::Text, Qt::black);
        context.clip = QRectF(0, page * m_area.height(), m_area.width(), m_area.height());
        m_painter.save();
        m_painter.translate(m_area.left(), m_area.top() - page * m_area.height());
        m_painter.setClipRect(context.clip);
        section.documentLayout()->draw(&m_painter, context);
        m_painter.restore();
    }

    QPagedPaintDevice &m_printer;
    const PrintOptions &m_options;
    QRectF m_area;
    QPageRanges m_ranges;
    QPainter m_painter;
    int m_page = 0;
    int m_drawn = 0;
};

} // namespace

bool PrintRichText(const QTextDocument &document, QPagedPaintDevice &printer, const PrintOptions &options)
{
    // The margins count from the paper's edge, not from where the printer can print.
    QPageLayout paper = printer.pageLayout();
    paper.setMode(QPageLayout::FullPageMode);
    printer.setPageLayout(paper);
    Pages pages(printer, options);
    Sections sections(document);
    do {
        const QTextDocumentFragment section = sections.next();
        if (!pages.print(document, section, sections.share()))
            return false;
    } while (!sections.isAtEnd());
    return true;
}

} // namespace richtext
