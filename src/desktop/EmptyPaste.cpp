// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/EmptyPaste.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace quaverly {

namespace {

/** @p widget is one of the text controls, or the part of it that shows the text. */
bool isText(const QObject *widget)
{
    return qobject_cast<const QPlainTextEdit *>(widget) != nullptr ||
           qobject_cast<const QTextEdit *>(widget) != nullptr;
}

bool isEmpty(QClipboard::Mode mode)
{
    const QMimeData *held = QApplication::clipboard()->mimeData(mode);
    return held != nullptr && held->formats().isEmpty();
}

} // namespace

EmptyPaste::EmptyPaste()
{
    qApp->installEventFilter(this);
}

bool EmptyPaste::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress)
        return static_cast<QKeyEvent *>(event)->matches(QKeySequence::Paste) && isText(watched) &&
               isEmpty(QClipboard::Clipboard);
    if (event->type() == QEvent::MouseButtonRelease)
        return static_cast<QMouseEvent *>(event)->button() == Qt::MiddleButton &&
               (isText(watched) || isText(watched->parent())) && isEmpty(QClipboard::Selection);
    return false;
}

} // namespace quaverly
