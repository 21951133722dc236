// SPDX-License-Identifier: GPL-3.0-or-later
#include "songlist/LocateBox.h"

#include <QKeyEvent>

namespace quaverly {

void LocateBox::keyPressEvent(QKeyEvent *event)
{
    Q_EMIT KeyPress(event->key());
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        event->accept();
    else
        QLineEdit::keyPressEvent(event);
}

void LocateBox::keyReleaseEvent(QKeyEvent *event)
{
    QLineEdit::keyReleaseEvent(event);
    Q_EMIT KeyUp(event->key());
}

void LocateBox::inputMethodEvent(QInputMethodEvent *event)
{
    const bool committed = !event->commitString().isEmpty();
    QLineEdit::inputMethodEvent(event);
    if (committed)
        Q_EMIT KeyUp(Qt::Key_unknown);
}

void LocateBox::mousePressEvent(QMouseEvent *event)
{
    QLineEdit::mousePressEvent(event);
    Q_EMIT Click();
}

void LocateBox::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
    // A menu, or another program's window, takes the focus only for a while.
    const Qt::FocusReason reason = event->reason();
    if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason &&
        reason != Qt::MenuBarFocusReason)
        clear();
}

} // namespace quaverly
