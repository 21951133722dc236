// SPDX-License-Identifier: GPL-3.0-or-later
#include "songlist/LocateBox.h"

#include <QKeyEvent>

namespace quaverly {

// With nothing typed, the keys of Undo and Redo are those of the list.
bool LocateBox::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && text().isEmpty()) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo)) {
            event->ignore();
            return QWidget::event(event);
        }
    }
    return QLineEdit::event(event);
}

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
    // The keys of a command, going up one after the other, are no search for nothing.
    const bool ofCommand = event->key() == Qt::Key_Control || event->key() == Qt::Key_Shift ||
                           event->modifiers().testFlag(Qt::ControlModifier);
    if (!ofCommand || !text().isEmpty())
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
