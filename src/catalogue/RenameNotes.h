// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quaverly {

struct Catalogue;

/**
 * Notes of renames under way, kept in the catalogue, so that a process that dies between the rename on the
 * disk and the writing of the row loses no song. Keep the note, rename, write play list rows and row,
 * drop the note. Every operation may throw dao::DaoError unless it says otherwise.
 */
class RenameNotes final
{
public:
    explicit RenameNotes(Catalogue &catalogue) : m_catalogue(catalogue) {}

    /**
     * On the disk when it returns, with all else that was pending; not for use within a transaction. A
     * record has one note: a later one takes its place.
     * @throws 3027 in a catalogue that can't be written to; nothing should be renamed then
     */
    void keep(qint64 recordId, const QString &pathName, const QString &fileName, const QString &newPathName,
              const QString &newFileName);
    /** The row is written, or the rename failed; without a note nothing happens. */
    void drop(qint64 recordId);

    /**
     * At the start: where the old file is gone and the new one is there, the row and the play list rows that
     * still bear the old name get the new one. A note whose volume isn't there waits for it; all others
     * go. What the catalogue refuses stays as it is. @throws 3049 alone, in a damaged catalogue
     */
    void settle();

    /** Play list rows that name the file @p from, in exactly these letters, name @p to; all or none. */
    void renameTracks(const QString &from, const QString &to);

private:
    struct Note;
    void settle(const Note &note);
    void renameRow(const Note &note);

    Catalogue &m_catalogue;
};

} // namespace quaverly
