// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

namespace dao {

class Connection;

/** What tells a file from another one that bears its name later. */
struct FileMark
{
    /** 0 where it means nothing: not known, or on a file system that numbers its files anew at each mount. */
    qint64 inode = 0;
    /** Bytes; -1 when it is not known. */
    qint64 size = -1;

    [[nodiscard]] bool fits(const FileMark &other) const;
};

/** Of the file that is there now; of a link, of what it leads to. */
[[nodiscard]] std::optional<FileMark> markOf(const QString &path);

/** Notes in the journal how the file that a row of the log tells of was left. */
void noteFileMark(Connection &connection, qint64 seq, const FileMark &mark);

} // namespace dao
