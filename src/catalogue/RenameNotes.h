// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/SongOfFile.h"

#include <QStringList>

#include <vector>

namespace quaverly {

struct Catalogue;

/**
 * Notes of renames under way, kept in the catalogue, so that neither a process that dies between the rename
 * on the disk and the writing of the row nor a save that is refused in between loses a song. Keep the note,
 * rename, write play list rows and row, drop the note. Every operation may throw dao::DaoError.
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
    void keep(qint64 recordId, const SongFile &from, const SongFile &to);
    /**
     * Keeps a note and moves the file there.
     * @throws as shell::moveFile does; the file is where the row names it then, and there is no note
     */
    void moveFile(qint64 recordId, const SongFile &from, const SongFile &to);
    /**
     * All of it for one record: note, file, play list rows, row. Not for use within a transaction.
     * @throws dao::DaoError; file and row are as they were then, or the next start settles it
     */
    void rename(qint64 recordId, const SongFile &from, const SongFile &to);

    /** The row is written, in the same transaction; the journal is told of the file. */
    void rowWritten(qint64 recordId);
    /** The rename failed, or was no change of its own; without a note nothing happens. */
    void drop(qint64 recordId);

    [[nodiscard]] bool has(qint64 recordId);
    /** Where the file of the record is whose row names @p row: there, unless a note led it elsewhere. */
    [[nodiscard]] SongFile placeOf(qint64 recordId, const SongFile &row);
    /** The file goes back to where the row names it, its tracks too, and the note goes; without a note
     * nothing happens. @throws as shell::moveFile does; the file, its tracks and the note stay then */
    void takeBack(qint64 recordId);
    /** The same for a save that was given up; when the file can't go back, the row follows it instead.
     * @returns what the user is to be told when neither can be, else the empty text */
    [[nodiscard]] QString giveUp(qint64 recordId);

    /**
     * At the start: where the old file is gone and the new one is there, the row and the play list rows that
     * still bear the old name get the new one; what a move left half done is cleared. A note whose volume
     * isn't there waits for it. Where the catalogue refuses the new name, the file gets its old one back, or
     * else the note stays.
     * @returns what the user is to be told, a sentence or more for each such song
     * @throws 3049 alone, in a damaged catalogue
     */
    [[nodiscard]] QStringList settle();

    /** Play list rows that name the file @p from, in exactly these letters, name @p to; all or none. */
    void renameTracks(const QString &from, const QString &to);

private:
    struct Note;
    [[nodiscard]] std::optional<Note> noteOf(qint64 recordId);
    void goOnWithInterrupted(const std::vector<Note> &notes);
    [[nodiscard]] QString settle(const Note &note);
    [[nodiscard]] QString follow(const Note &note);
    [[nodiscard]] QString putBack(const Note &note, const QString &why);
    [[nodiscard]] QString sentence(const Note &note, const QString &why, const QString &end);
    void takeBack(const Note &note);
    void clearRemains(const Note &note);
    /** False when the row does not name the old file. */
    bool renameRow(const Note &note);
    void renameTracks(const QString &from, const QString &to, qint64 exceptOf);
    [[nodiscard]] std::optional<FiledSong> bearerOf(const SongFile &file);

    Catalogue &m_catalogue;
};

} // namespace quaverly
