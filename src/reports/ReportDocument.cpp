// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/ReportDocument.h"

#include "desktop/ColorNumber.h"

#include <QTextCharFormat>
#include <QTextDocument>

namespace quaverly {

namespace {

constexpr qsizetype LongText = 1 << 16;

QTextCharFormat charFormat(const RunFormat &run)
{
    QTextCharFormat format;
    format.setFontFamilies({run.font});
    format.setFontPointSize(run.size);
    format.setFontWeight(run.bold ? QFont::Bold : QFont::Normal);
    format.setForeground(colorOf(run.color));
    return format;
}

} // namespace

ReportDocument::ReportDocument() : m_document(std::make_unique<QTextDocument>()), m_cursor(m_document.get())
{
    // A million rows: neither kept for undoing nor laid out before the screen wants to show them.
    m_document->setUndoRedoEnabled(false);
    m_document->setLayoutEnabled(false);
    const RunFormat plain;
    m_document->setDefaultFont(QFont(plain.font, plain.size));
    m_cursor.beginEditBlock();
}

ReportDocument::~ReportDocument() = default;

void ReportDocument::write(QStringView text, const RunFormat &format)
{
    if (format != m_format || m_pending.size() > LongText)
        flush();
    m_format = format;
    m_pending += text;
}

void ReportDocument::flush()
{
    if (!m_pending.isEmpty())
        m_cursor.insertText(m_pending, charFormat(m_format));
    m_pending.clear();
}

std::unique_ptr<QTextDocument> ReportDocument::take()
{
    flush();
    m_cursor.endEditBlock();
    m_cursor = {};
    m_document->setLayoutEnabled(true);
    m_document->setUndoRedoEnabled(true);
    m_document->setModified(false);
    return std::move(m_document);
}

} // namespace quaverly
