// SPDX-License-Identifier: GPL-3.0-or-later
#include "songlist/CriteriaEdit.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QTextDocument>

namespace quaverly {

QString CriteriaEdit::criteria() const
{
    QString text = document()->toRawText();
    for (QChar &c : text) {
        if (c == QChar::ParagraphSeparator || c == QChar::LineSeparator)
            c = u'\n';
    }
    return text;
}

void CriteriaEdit::setCriteria(const QString &text)
{
    QTextCursor edit(document());
    edit.select(QTextCursor::Document);
    edit.insertText(text);
    setFocus();
    moveCursor(QTextCursor::End);
}

void CriteriaEdit::keyPressEvent(QKeyEvent *event)
{
    if (isPlainEnter(*event))
        Q_EMIT entered();
    else
        QPlainTextEdit::keyPressEvent(event);
}

void CriteriaEdit::insertFromMimeData(const QMimeData *source)
{
    const qsizetype kept = document()->characterCount() - textCursor().selectedText().size();
    if (kept + source->text().size() > LongestCriteria)
        Q_EMIT refusedPaste();
    else
        QPlainTextEdit::insertFromMimeData(source);
}

bool isPlainEnter(const QKeyEvent &key)
{
    const bool alone = (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    return alone && (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter);
}

} // namespace quaverly
