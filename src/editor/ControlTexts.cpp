// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/ControlTexts.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextDocument>

namespace quaverly {

QString controlText(const QWidget &control)
{
    if (const auto *line = qobject_cast<const QLineEdit *>(&control))
        return line->text();
    if (const auto *box = qobject_cast<const QComboBox *>(&control))
        return box->currentText();
    // As plain text, no-break spaces would come out as spaces.
    QString raw = qobject_cast<const QPlainTextEdit *>(&control)->document()->toRawText();
    return raw.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
}

void setControlText(QWidget &control, const QString &text)
{
    if (auto *line = qobject_cast<QLineEdit *>(&control)) {
        line->setText(text);
        line->setCursorPosition(0);
    } else if (auto *box = qobject_cast<QComboBox *>(&control)) {
        const int known = box->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
        box->setCurrentIndex(text.isNull() ? -1 : known);
        // Also when the row stays the same: its text may have been typed over.
        box->setEditText(text);
    } else if (auto *notes = qobject_cast<QPlainTextEdit *>(&control)) {
        notes->setPlainText(text);
    }
}

} // namespace quaverly
