// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/Mp4Atoms.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

constexpr int DeepestNesting = 12;

bool isOneOf(AtomName name, std::initializer_list<const char *> names)
{
    return std::ranges::any_of(names, [name](const char *one) { return atomName(one) == name; });
}

} // namespace

Mp4Atoms::Mp4Atoms(SongStream &stream) : m_stream(stream)
{
    walk(0, stream.size(), Nowhere, 0);
}

void Mp4Atoms::walk(qint64 offset, qint64 end, int parent, int depth)
{
    if (depth > DeepestNesting)
        throw Unreadable(u"Damaged: nested too deeply"_s);
    while (offset < end) {
        auto atom = atomAt(offset);
        if (!atom)
            return;
        atom->parent = parent;
        m_atoms.push_back(*atom);
        if (const auto children = childrenOf(*atom))
            walk(*children, atom->end, static_cast<int>(m_atoms.size()) - 1, depth + 1);
        offset = atom->end;
    }
}

std::optional<Atom> Mp4Atoms::atomAt(qint64 offset) const
{
    const QByteArrayView head = m_stream.viewAt(offset, 2 * HeadLength);
    if (head.size() < HeadLength)
        return {};
    Atom atom{.name = atomName(head.sliced(4)), .offset = offset, .content = offset + HeadLength};
    qint64 length = qFromBigEndian<quint32>(head.data());
    if (length == 1 && head.size() == 2 * HeadLength) {
        atom.content += HeadLength;
        length = qFromBigEndian<qint64>(head.data() + HeadLength);
    } else if (length == 0) {
        length = m_stream.size() - offset;
    }
    if (length < atom.content - offset)
        return {};
    atom.end = offset + std::min(length, m_stream.size() - offset);
    return atom;
}

/** Where the first of them stands; nothing for an atom that has none. */
std::optional<qint64> Mp4Atoms::childrenOf(const Atom &atom) const
{
    if (atom.name == atomName("stsd"))
        return atom.content + 8;
    if (atom.name == atomName("meta")) {
        // Usually four bytes of version stand in front; some writers leave them out.
        const QByteArrayView name = m_stream.viewAt(atom.content + 4, 4);
        const bool without =
            name.size() == 4 && isOneOf(atomName(name), {"hdlr", "ilst", "mhdr", "ctry", "lang"});
        return atom.content + (without ? 0 : 4);
    }
    const bool holdsAtoms =
        isOneOf(atom.name, {"moov", "udta", "mdia", "ilst", "stbl", "minf", "moof", "traf", "trak", "mvex"});
    return holdsAtoms ? std::optional(atom.content) : std::nullopt;
}

std::vector<int> Mp4Atoms::within(int parent, AtomName name) const
{
    std::vector<int> places;
    // Behind an atom stands all that is in it, however deep.
    for (int place = parent + 1; place < std::ssize(m_atoms) && at(place).parent >= parent; ++place) {
        if (at(place).parent == parent && at(place).name == name)
            places.push_back(place);
    }
    return places;
}

std::vector<int> Mp4Atoms::withinAll(AtomName parentName) const
{
    std::vector<int> places;
    for (int place = 0; place < std::ssize(m_atoms); ++place) {
        if (const int parent = at(place).parent; parent >= 0 && at(parent).name == parentName)
            places.push_back(place);
    }
    return places;
}

int Mp4Atoms::find(int parent, std::initializer_list<const char *> names) const
{
    for (const char *name : names) {
        const std::vector<int> found = within(parent, atomName(name));
        if (found.empty())
            return Nowhere;
        parent = found.front();
    }
    return parent;
}

int Mp4Atoms::findAnywhere(AtomName name) const
{
    const auto found = std::ranges::find(m_atoms, name, &Atom::name);
    return found == m_atoms.end() ? Nowhere : static_cast<int>(found - m_atoms.begin());
}

qint64 Mp4Atoms::lengthOfAll(AtomName name) const
{
    qint64 length = 0;
    for (const Atom &atom : m_atoms)
        length += atom.name == name ? atom.end - atom.offset : 0;
    return length;
}

} // namespace shell
