// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

namespace dao {
class Database;
}

namespace quaverly {

/** Where a song's file is: folder with its trailing separator, and name. */
struct SongFile
{
    QString PathName;
    QString FileName;

    [[nodiscard]] QString path() const { return PathName + FileName; }
    bool operator==(const SongFile &) const = default;
};

struct FiledSong
{
    qint64 RecordID = 0;
    QString SongName;
};

/** The song whose row names that file, in exactly these letters. @throws dao::DaoError */
[[nodiscard]] std::optional<FiledSong> songOfFile(dao::Database &database, const SongFile &file);

} // namespace quaverly
