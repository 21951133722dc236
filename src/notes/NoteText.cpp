// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/NoteText.h"

#include "platform/richtext/RichText.h"

#include <QFocusEvent>
#include <QImage>
#include <QMimeData>

namespace quaverly {

namespace {

constexpr int TallestPicture = 600;

} // namespace

NoteText::NoteText(QWidget *parent) : PaperEdit(parent)
{
    setTabChangesFocus(true);
}

template <typename Picture> bool NoteText::insertPicture(const Picture &picture)
{
    QTextCursor cursor = textCursor();
    const bool inserted = richtext::insertPicture(cursor, picture, {viewport()->width(), TallestPicture});
    setTextCursor(cursor);
    return inserted;
}

bool NoteText::insertPictureFile(const QByteArray &file)
{
    return insertPicture(file);
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
    return source->hasImage() || PaperEdit::canInsertFromMimeData(source);
}

void NoteText::insertFromMimeData(const QMimeData *source)
{
    // A word processor's clipboard holds a picture of its text too: there the text is meant.
    if (source->hasImage() && !source->hasHtml() && !source->hasText())
        insertPicture(source->imageData().value<QImage>());
    else
        PaperEdit::insertFromMimeData(source);
}

void NoteText::focusOutEvent(QFocusEvent *event)
{
    PaperEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason)
        Q_EMIT left();
}

} // namespace quaverly
