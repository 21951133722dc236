// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace shell {
struct FilePatch;
class TagWriter;
} // namespace shell

namespace quaverly {

struct Catalogue;

/**
 * Versions of music files that are being made, kept in the catalogue before anything is on the disk: a
 * process that dies leaves files that are whole, and what is left besides is settled at the next start. Every
 * operation may throw dao::DaoError; the file is as it was then.
 */
class TagNotes final
{
public:
    explicit TagNotes(Catalogue &catalogue) : m_catalogue(catalogue) {}

    /** Writes a song's tags, as part of the change of the journal that is being made; not for use within a
     * transaction. @throws 3027 in a catalogue that can't be written to, else as the writer does */
    void write(qint64 song, const QString &path, shell::TagWriter &writer);
    /** Makes the version that a patch of the journal leads to, of which the journal is told nothing. */
    void apply(qint64 song, const QString &path, const shell::FilePatch &patch);

    /**
     * At the start: hidden copies go, and a version that was made but not noted comes into the journal, so
     * that it can be taken back. What is on a volume that isn't there waits. @throws 3049 alone
     */
    void settle();

private:
    Catalogue &m_catalogue;
};

} // namespace quaverly
