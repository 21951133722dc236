// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/richtext/DocumentBuilder.h"

#include "platform/richtext/RichText.h"
#include "platform/text/Twips.h"

#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>
#include <utility>

namespace richtext {

namespace {

/** Changes of format and pictures. */
constexpr int MostPieces = 200'000;
constexpr qsizetype LongestPiece = 65'536;
constexpr int LargestHalfPoints = 800;
constexpr int WidestIndent = 31'680;

/** Characters that the document would take for its own, and those that nothing can show. */
bool isForeign(QChar c)
{
    const char16_t code = c.unicode();
    if (code < 0x20)
        return code != u'\t' && code != PageBreak;
    return code == 0x2029 || code == 0xFDD0 || code == 0xFDD1 || code == 0xFFFC ||
           (code & 0xFFFEU) == 0xFFFEU;
}

void clean(QString &text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate())
            ++i;
        else if (c.isSurrogate())
            text[i] = QChar::ReplacementCharacter;
        else if (isForeign(c))
            text[i] = c.unicode() < 0x20 ? QChar(u' ') : QChar(QChar::ReplacementCharacter);
    }
}

double pixels(int twips)
{
    return static_cast<double>(std::clamp(twips, -WidestIndent, WidestIndent)) / quaverly::TwipsPerPixel;
}

Qt::Alignment alignment(ParagraphState::Align align)
{
    switch (align) {
    case ParagraphState::Align::Centre:
        return Qt::AlignHCenter;
    case ParagraphState::Align::Right:
        return Qt::AlignRight | Qt::AlignAbsolute;
    case ParagraphState::Align::Justify:
        return Qt::AlignJustify;
    case ParagraphState::Align::Left:
        break;
    }
    return Qt::AlignLeft | Qt::AlignAbsolute;
}

QTextBlockFormat blockFormat(const ParagraphState &state)
{
    QTextBlockFormat format;
    if (state.align != ParagraphState::Align::Left)
        format.setAlignment(alignment(state.align));
    format.setLeftMargin(pixels(state.left));
    format.setRightMargin(pixels(state.right));
    format.setTextIndent(pixels(state.firstLine));
    format.setTopMargin(std::max(0.0, pixels(state.before)));
    format.setBottomMargin(std::max(0.0, pixels(state.after)));
    return format;
}

} // namespace

DocumentBuilder::DocumentBuilder(QTextDocument &document, const Tables &tables)
    : m_document(document), m_tables(tables), m_undo(document.isUndoRedoEnabled())
{
    m_document.setUndoRedoEnabled(false);
    m_document.clear();
    // One block of edits: nobody lays the text out before it is whole.
    m_cursor = QTextCursor(&m_document);
    m_cursor.beginEditBlock();
}

DocumentBuilder::~DocumentBuilder()
{
    m_cursor.endEditBlock();
    m_document.setUndoRedoEnabled(m_undo);
    m_document.setModified(false);
}

bool DocumentBuilder::isFull() const
{
    return m_characters >= MostCharacters || m_paragraphs >= MostParagraphs || m_pieces >= MostPieces;
}

void DocumentBuilder::append(QStringView text, const CharState &state)
{
    if (text.isEmpty() || isFull())
        return;
    // Pieces that look alike go in together: an insertion costs more than its letters.
    if (m_state != state || m_pending.size() > LongestPiece)
        flush();
    startParagraph();
    m_state = state;
    const QStringView taken = text.first(std::min(text.size(), MostCharacters - m_characters));
    m_pending += taken;
    m_characters += taken.size();
}

void DocumentBuilder::flush()
{
    if (m_pending.isEmpty())
        return;
    clean(m_pending);
    m_cursor.insertText(m_pending, formatOf(m_state));
    m_pending.clear();
    ++m_pieces;
}

void DocumentBuilder::addPicture(const Picture &picture, const CharState &state)
{
    if (isFull())
        return;
    flush();
    startParagraph();
    QTextImageFormat format = richtext::addPicture(m_document, picture, m_budget);
    format.merge(formatOf(state));
    m_cursor.insertImage(format);
    ++m_pieces;
    ++m_characters;
}

void DocumentBuilder::shapeParagraph(const ParagraphState &state)
{
    flush();
    if (state.breakBefore)
        QTextCursor(m_cursor.block()).insertText(QString(QChar(PageBreak)));
    if (state == m_shape)
        return;
    m_cursor.setBlockFormat(blockFormat(state));
    m_shape = state;
}

void DocumentBuilder::endParagraph(const ParagraphState &state)
{
    if (isFull())
        return;
    startParagraph();
    shapeParagraph(state);
    m_paragraphDue = true;
    ++m_paragraphs;
}

void DocumentBuilder::startParagraph()
{
    if (std::exchange(m_paragraphDue, false))
        m_cursor.insertBlock();
}

void DocumentBuilder::finish(const ParagraphState &state)
{
    if (!m_paragraphDue)
        shapeParagraph(state);
}

QTextCharFormat DocumentBuilder::formatOf(const CharState &state) const
{
    QTextCharFormat format;
    const FontEntry font = m_tables.fonts.value(state.font < 0 ? m_tables.defaultFont : state.font);
    if (!font.family.isEmpty())
        format.setFontFamilies({font.family});
    format.setFontPointSize(std::clamp(state.halfPoints, 2, LargestHalfPoints) / 2.0);
    format.setFontWeight(state.bold ? QFont::Bold : QFont::Normal);
    format.setFontItalic(state.italic);
    format.setFontUnderline(state.underline);
    if (state.strikeOut)
        format.setFontStrikeOut(true);
    if (state.script != 0) {
        format.setVerticalAlignment(state.script > 0 ? QTextCharFormat::AlignSuperScript
                                                     : QTextCharFormat::AlignSubScript);
    }
    if (const QColor color = m_tables.colors.value(state.color); color.isValid())
        format.setForeground(color);
    if (const QColor color = m_tables.colors.value(state.background); state.background > 0 && color.isValid())
        format.setBackground(color);
    return format;
}

} // namespace richtext
