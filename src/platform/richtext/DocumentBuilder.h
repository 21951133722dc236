// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/richtext/Pictures.h"
#include "platform/richtext/RtfState.h"

#include <QHash>
#include <QList>
#include <QTextCursor>

namespace richtext {

/** The tables that a file's numbers point into. */
struct Tables
{
    QHash<int, FontEntry> fonts;
    /** Invalid for the reader's own colour. */
    QList<QColor> colors;
    int defaultFont = 0;
};

/** Fills a document with text, piece by piece, as long as there is room for more. */
class DocumentBuilder final
{
public:
    /** Empties the document. Both outlive the builder. */
    DocumentBuilder(QTextDocument &document, const Tables &tables);
    ~DocumentBuilder();
    DocumentBuilder(const DocumentBuilder &) = delete;
    DocumentBuilder &operator=(const DocumentBuilder &) = delete;

    void append(QStringView text, const CharState &state);
    void addPicture(const Picture &picture, const CharState &state);
    void endParagraph(const ParagraphState &state);
    /** The last paragraph's end; nothing follows. */
    void finish(const ParagraphState &state);

    /** True when no more is taken. */
    [[nodiscard]] bool isFull() const;
    [[nodiscard]] bool hasDamagedPictures() const { return m_budget.wasDamaged(); }

private:
    void flush();
    /** Paragraphs begin with what is in them: the last one's end makes no empty one. */
    void startParagraph();
    void shapeParagraph(const ParagraphState &state);
    [[nodiscard]] QTextCharFormat formatOf(const CharState &state) const;

    QTextDocument &m_document;
    const Tables &m_tables;
    QTextCursor m_cursor;
    PictureBudget m_budget;
    QString m_pending;
    CharState m_state;
    ParagraphState m_shape;
    bool m_undo;
    bool m_paragraphDue = false;
    qsizetype m_characters = 0;
    int m_paragraphs = 0;
    int m_pieces = 0;
};

} // namespace richtext
