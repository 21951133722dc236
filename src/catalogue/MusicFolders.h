// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace quaverly {

struct Catalogue;

/** The folders that music was added from, as the catalogue remembers them. May throw dao::DaoError. */
class MusicFolders final
{
public:
    explicit MusicFolders(Catalogue &catalogue) : m_catalogue(catalogue) {}

    /** In the order of their names, each with its trailing separator; none lies within another. */
    [[nodiscard]] QStringList all() const;
    /** Does nothing for one that lies within another; those within this one go. */
    void remember(const QString &folder);
    void forget(const QString &folder);

    /**
     * Where the songs of a catalogue lie that remembers no folder: the fewest folders that hold them all and
     * are not the root or one directly below.
     */
    [[nodiscard]] QStringList foldersOfSongs() const;

private:
    Catalogue &m_catalogue;
};

} // namespace quaverly
