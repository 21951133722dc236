// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <memory>

namespace dao {
class Database;
}

namespace quaverly {

/**
 * The statement of a displayed set, reading only @p columns of each song. A statement that doesn't read all
 * columns of songs comes back unchanged.
 */
[[nodiscard]] QString withColumns(const QString &recordSource, const QString &columns);

/** What the player needs to know of a displayed song. */
struct DisplayedSong
{
    /** PathName and FileName joined. */
    QString path;
    QString fileName;
    QString songName;
    QString artist;
};

/** The songs of a displayed set, read in one go, to be walked in order. */
class DisplayedSongs final
{
public:
    /** @throws dao::DaoError. */
    DisplayedSongs(dao::Database &database, const QString &recordSource);
    ~DisplayedSongs();
    DisplayedSongs(const DisplayedSongs &) = delete;
    DisplayedSongs &operator=(const DisplayedSongs &) = delete;

    [[nodiscard]] qint64 count() const;
    [[nodiscard]] DisplayedSong song(qint64 row) const;

private:
    struct Rows;
    std::unique_ptr<Rows> m_rows;
};

} // namespace quaverly
