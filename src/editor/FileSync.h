// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/RenameNotes.h"

namespace quaverly {

/** Where a song's file is: folder with its trailing separator, and name. */
struct SongFile
{
    QString PathName;
    QString FileName;

    [[nodiscard]] QString path() const { return PathName + FileName; }
    bool operator==(const SongFile &) const = default;
};

/** Keeps a music file and the play lists in step with the names on its record. */
class FileSync final
{
public:
    explicit FileSync(Catalogue &catalogue) : m_notes(catalogue) {}

    /** The row's file is there and the typed names are ones that it could bear. */
    [[nodiscard]] static bool canFollow(const SongFile &row, const SongFile &typed);

    /**
     * Renames or moves the record's file, and has the play lists follow. When the target is there already,
     * nothing happens: the record then names that other file. A note of it is kept until rowWritten().
     * @throws dao::DaoError when the file can't be renamed; nothing has changed then.
     */
    void follow(qint64 recordId, const SongFile &row, const SongFile &typed);

    /** The record bears the names on the disk. */
    void rowWritten(qint64 recordId) { m_notes.drop(recordId); }

private:
    void rename(qint64 recordId, const SongFile &row, const SongFile &typed);

    RenameNotes m_notes;
};

} // namespace quaverly
