// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/SongStream.h"

#include <QtEndian>

#include <initializer_list>
#include <optional>
#include <vector>

namespace shell {

/** The four characters of an atom's name as one number. */
using AtomName = quint32;

[[nodiscard]] inline AtomName atomName(QByteArrayView four)
{
    return qFromBigEndian<AtomName>(four.data());
}

struct Atom
{
    AtomName name = 0;
    /** Where its size stands; the content begins behind size and name. */
    qint64 offset = 0;
    qint64 content = 0;
    qint64 end = 0;
    /** Place of the atom around it, -1 for none. */
    int parent = -1;
};

/** The atoms of an MP4 file that hold what the columns show, in the order of their coming. */
class Mp4Atoms final
{
public:
    /**
     * Walks over the whole file; an atom whose size can't be right ends those it stands among.
     * @throws Unreadable when they are nested deeper than any writer does
     */
    explicit Mp4Atoms(SongStream &stream);

    static constexpr qint64 HeadLength = 8;
    static constexpr int Nowhere = -1;

    [[nodiscard]] const Atom &at(int place) const { return m_atoms[static_cast<size_t>(place)]; }
    /** Places of all atoms of that name directly within another; Nowhere is the file. */
    [[nodiscard]] std::vector<int> within(int parent, AtomName name) const;
    /** Places of all atoms directly within any one of that name. */
    [[nodiscard]] std::vector<int> withinAll(AtomName parentName) const;
    /** The first of the first's name, and so on inwards; Nowhere where one is missing. */
    [[nodiscard]] int find(int parent, std::initializer_list<const char *> names) const;
    /** The first of that name anywhere. */
    [[nodiscard]] int findAnywhere(AtomName name) const;
    /** Bytes of all atoms of that name. */
    [[nodiscard]] qint64 lengthOfAll(AtomName name) const;

private:
    void walk(qint64 offset, qint64 end, int parent, int depth);
    [[nodiscard]] std::optional<Atom> atomAt(qint64 offset) const;
    [[nodiscard]] std::optional<qint64> childrenOf(const Atom &atom) const;

    SongStream &m_stream;
    std::vector<Atom> m_atoms;
};

} // namespace shell
