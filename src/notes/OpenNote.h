// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "notes/NoteBook.h"
#include "notes/NoteDrafts.h"
#include "platform/store/DaoError.h"

#include <utility>

namespace quaverly {

/**
 * The note that is being read or changed. What the catalogue doesn't take is kept as a draft; the error then
 * says where.
 */
class OpenNote final
{
public:
    OpenNote(NoteBook book, NoteDrafts drafts) : m_book(book), m_drafts(std::move(drafts)) {}

    /** Empty when there is none. */
    [[nodiscard]] const QString &title() const { return m_title; }
    /** The note's text; an empty title opens none. @throws dao::DaoError. */
    QString open(const QString &title);
    /** @throws dao::DaoError; the title is then the old one. */
    void rename(const QString &title);
    /** @throws dao::DaoError when the text is a draft now. */
    void save(const QString &rtf);
    /** The text as it was when it was opened. @throws dao::DaoError when that is a draft now. */
    void takeBack();
    /** @throws dao::DaoError. */
    void remove();

private:
    /** Keeps the text and throws the error on. */
    [[noreturn]] void keep(const dao::DaoError &error, NoteDraft::Kind kind, const QString &rtf) const;

    NoteBook m_book;
    NoteDrafts m_drafts;
    QString m_title;
    QString m_openedText;
    /** From opening to opening: its saves are one change of the history. */
    QString m_sitting;
    bool m_savedSinceOpened = false;
};

} // namespace quaverly
