// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/OpenNote.h"

#include <QUuid>

using namespace Qt::StringLiterals;

namespace quaverly {

QString OpenNote::open(const QString &title)
{
    QString text = title.isEmpty() ? QString() : m_book.text(title);
    m_title = title;
    m_openedText = text;
    m_savedSinceOpened = false;
    m_sitting = QUuid::createUuid().toString();
    return text;
}

void OpenNote::rename(const QString &title)
{
    m_book.ofSitting(m_sitting);
    m_book.rename(m_title, title);
    m_title = title;
}

void OpenNote::save(const QString &rtf)
{
    try {
        m_book.ofSitting(m_sitting);
        m_book.save(m_title, rtf);
    } catch (const dao::DaoError &error) {
        keep(error, NoteDraft::Kind::Typed, rtf);
    }
    m_savedSinceOpened = true;
    m_drafts.forget(m_title);
}

void OpenNote::takeBack()
{
    if (!m_savedSinceOpened)
        return;
    try {
        m_book.ofSitting(m_sitting);
        m_book.save(m_title, m_openedText);
    } catch (const dao::DaoError &error) {
        keep(error, NoteDraft::Kind::Before, m_openedText);
    }
}

void OpenNote::remove()
{
    m_book.remove(m_title);
    m_drafts.forget(m_title);
}

void OpenNote::keep(const dao::DaoError &error, NoteDraft::Kind kind, const QString &rtf) const
{
    const QString path = m_drafts.keep(m_title, kind, rtf);
    const QString text = kind == NoteDraft::Kind::Typed ? u"What you typed"_s : u"Its text from before"_s;
    const QString where =
        path.isEmpty()
            ? u" could not be kept in a file either."_s
            : u" is kept in the file \"%1\" and offered when the notes are next opened."_s.arg(path);
    throw dao::DaoError(error.number, error.description +
                                          u"\n\nThe note \"%1\" is not saved.  "_s.arg(m_title) + text +
                                          where);
}

} // namespace quaverly
