// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/FileMark.h"

#include "platform/store/Sqlite.h"

#include <QFile>

#include <algorithm>

#include <sys/stat.h>
#include <sys/vfs.h>

namespace dao {

namespace {

/** FAT, exFAT, FUSE, and the two of Windows' shares: the numbers of their files don't outlast a mount. */
constexpr quint32 WithoutLastingNumbers[] = {0x4d44, 0x2011bab0, 0x65735546, 0xff534d42, 0xfe534d42};

bool hasLastingNumbers(const QByteArray &path)
{
    struct statfs system = {};
    return ::statfs(path.constData(), &system) == 0 &&
           std::ranges::find(WithoutLastingNumbers, static_cast<quint32>(system.f_type)) ==
               std::end(WithoutLastingNumbers);
}

} // namespace

bool FileMark::fits(const FileMark &other) const
{
    const auto fit = [](qint64 mine, qint64 others, qint64 unknown) {
        return mine == unknown || others == unknown || mine == others;
    };
    return fit(inode, other.inode, 0) && fit(size, other.size, -1);
}

std::optional<FileMark> markOf(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat about = {};
    if (::stat(name.constData(), &about) != 0)
        return std::nullopt;
    return FileMark{hasLastingNumbers(name) ? static_cast<qint64>(about.st_ino) : 0, about.st_size};
}

void noteFileMark(Connection &connection, qint64 seq, const FileMark &mark)
{
    Statement note =
        connection.prepare("INSERT OR REPLACE INTO sysFile (Seq, Inode, Size) VALUES (?1, ?2, ?3)");
    note.bind(1, seq);
    note.bind(2, mark.inode);
    note.bind(3, mark.size);
    static_cast<void>(note.step());
}

} // namespace dao
