// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/RenameNotes.h"

namespace quaverly {

/** Keeps a music file and the play lists in step with the names on its record. */
class FileSync final
{
public:
    explicit FileSync(Catalogue &catalogue) : m_notes(catalogue) {}

    /** The row's file is there and the typed names are ones that it could bear. */
    [[nodiscard]] static bool canFollow(const SongFile &row, const SongFile &typed);

    /** Where the file is now: a save that was refused has renamed it already. */
    [[nodiscard]] SongFile placeOf(qint64 recordId, const SongFile &row)
    {
        return m_notes.placeOf(recordId, row);
    }
    /** Undoes what such a save did to file and tracks. @throws dao::DaoError when the file can't go back. */
    void takeBack(qint64 recordId) { m_notes.takeBack(recordId); }

    /**
     * Renames or moves the record's file, and has the play lists follow. When the target is there already,
     * nothing happens: the record then names that other file. A note of it is kept until rowWritten().
     * @throws dao::DaoError when the file can't be renamed; nothing has changed then.
     */
    void follow(qint64 recordId, const SongFile &row, const SongFile &typed);

    /** The record bears the names on the disk. */
    void rowWritten(qint64 recordId) { m_notes.rowWritten(recordId); }

    /** The editor closes: a file whose row was not written goes back, or the row follows it.
     * @returns nothing when there was none; else what the user is to be told, mostly the empty text */
    [[nodiscard]] std::optional<QString> giveUp();

private:
    RenameNotes m_notes;
    /** The record whose file was renamed last. */
    std::optional<qint64> m_renamed;
};

} // namespace quaverly
