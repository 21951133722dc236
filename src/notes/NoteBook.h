// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace quaverly {

class SettingsRows;
struct Catalogue;

/** Why a title can't be taken. */
enum class TitleFault { None, Blank, Quotes, Taken };

/** A title as it is kept: at most 50 characters, without blanks at its end. */
[[nodiscard]] QString noteTitle(const QString &typed);

/**
 * The titled notes of a catalogue. Titles are compared without regard to case. Every operation may throw
 * dao::DaoError.
 */
class NoteBook final
{
public:
    NoteBook(Catalogue &catalogue, SettingsRows &settings) : m_catalogue(catalogue), m_settings(settings) {}

    /** In their order. */
    [[nodiscard]] QStringList titles() const;
    /** Among the titles; -1 for none of that title. */
    [[nodiscard]] int placeOf(const QString &title) const;
    /** Puts a backquote in place of each apostrophe that a title holds from older days. */
    void repairTitles();
    /** @p current is the title that may stay as it is: that of the note itself. */
    [[nodiscard]] TitleFault check(const QString &typed, const QString &current = {}) const;

    /** As rich text; empty for a new note, and for one that is gone. */
    [[nodiscard]] QString text(const QString &title) const;
    /** Also puts back a note whose row was deleted elsewhere. */
    void save(const QString &title, const QString &rtf);
    void add(const QString &title) { save(title, {}); }
    void rename(const QString &title, const QString &newTitle);
    void remove(const QString &title);
    /** What is saved or renamed next is one change of the history with what was before in that sitting. */
    void ofSitting(const QString &sitting);

    /** Place among the titles of the note that was open last; -1 without one. */
    [[nodiscard]] int lastIndex() const;
    void storeLastIndex(int index);

private:
    Catalogue &m_catalogue;
    SettingsRows &m_settings;
};

} // namespace quaverly
