// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QIODevice>

namespace quaverly {

class ScanReport;
class NewSong;

/** Bytes of an atom that are kept at most; what follows is passed over. */
inline constexpr qint64 AtomBytesKept = 64 * 1024;

/** Reads the atoms of an M4A file one behind the other. */
class AtomReader final
{
public:
    /** @p file is open for reading, can seek and outlives the reader. */
    explicit AtomReader(QIODevice &file) : m_file(file) {}

    /**
     * Reads one atom and leaves the position behind it. @p Size is its stated size, which counts its
     * own four bytes; @p Data is type and payload, at most AtomBytesKept of them; @p Type is the
     * first four bytes of @p Data.
     * @throws dao::DaoError 62 when the size is below 8, negative, or goes beyond the file's end.
     */
    void ReadAtom(QByteArray &Data, qint32 &Size, QByteArray &Type);

    /** The next @p count bytes. @throws dao::DaoError 62 when the file ends before. */
    [[nodiscard]] QByteArray readHeader(qint64 count);

    [[nodiscard]] bool atEnd() const { return m_file.atEnd(); }

private:
    QIODevice &m_file;
};

/**
 * Fills the fields from the tags of an M4A file whose head is laid out in the usual order; any other
 * layout gives no tags, so that artist and title get their stand-ins. FileName must be there.
 */
void fillFromM4aAtoms(QIODevice &file, NewSong &song, ScanReport &report);

} // namespace quaverly
