// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/DescriptionBox.h"

#include <QKeyEvent>

namespace quaverly {

namespace {

constexpr int Lines = 4;

} // namespace

DescriptionBox::DescriptionBox(QWidget *parent) : QPlainTextEdit(parent)
{
    fitLines();
}

void DescriptionBox::setDescription(const QString &text)
{
    setPlainText(text);
    setToolTip(text);
}

void DescriptionBox::fitLines()
{
    const int line = fontMetrics().lineSpacing();
    const int margins = 2 * static_cast<int>(document()->documentMargin());
    setFixedHeight(Lines * line + margins + line / 2);
}

// Before Qt obeys it: Tab would have left the box already.
bool DescriptionBox::event(QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        auto *key = static_cast<QKeyEvent *>(event);
        key->ignore();
        Q_EMIT KeyDown(key);
        if (key->isAccepted())
            return true;
        // Left ignored, it would be obeyed here and by the screen behind: Tab would move twice.
        key->accept();
    }
    return QPlainTextEdit::event(event);
}

void DescriptionBox::changeEvent(QEvent *event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fitLines();
}

} // namespace quaverly
