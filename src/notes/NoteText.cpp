// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/NoteText.h"

#include "platform/richtext/RichText.h"

#include <QBuffer>
#include <QFocusEvent>
#include <QImage>
#include <QMimeData>

namespace quaverly {

namespace {

constexpr int TallestPicture = 600;

QByteArray asPng(const QImage &image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

} // namespace

NoteText::NoteText(QWidget *parent) : QTextEdit(parent)
{
    setTabChangesFocus(true);
}

bool NoteText::insertPictureFile(const QByteArray &file)
{
    QTextCursor cursor = textCursor();
    const bool inserted = richtext::insertPicture(cursor, file, {viewport()->width(), TallestPicture});
    setTextCursor(cursor);
    return inserted;
}

void NoteText::applyFormat(const std::function<void(QTextCharFormat &)> &change)
{
    QTextCharFormat format;
    change(format);
    mergeCurrentCharFormat(format);
    setFocus();
}

bool NoteText::canInsertFromMimeData(const QMimeData *source) const
{
    return source->hasImage() || QTextEdit::canInsertFromMimeData(source);
}

void NoteText::insertFromMimeData(const QMimeData *source)
{
    // A word processor's clipboard holds a picture of its text too: there the text is meant.
    if (source->hasImage() && !source->hasHtml() && !source->hasText())
        insertPictureFile(asPng(source->imageData().value<QImage>()));
    else
        QTextEdit::insertFromMimeData(source);
}

void NoteText::focusOutEvent(QFocusEvent *event)
{
    QTextEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason)
        Q_EMIT left();
}

} // namespace quaverly
