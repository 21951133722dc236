// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/NewFile.h"

#include "platform/store/DaoError.h"

#include <QFile>
#include <QFileInfo>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace dao {

NewFile::~NewFile()
{
    if (m_kept)
        return;
    for (const QString &ending : {u""_s, u"-wal"_s, u"-shm"_s, u"-journal"_s})
        QFile::remove(m_path + ending);
}

void NewFile::putOnDisk() const
{
    QFile written(m_path);
    if (!written.open(QIODevice::ReadOnly) || ::fsync(written.handle()) != 0)
        throw DaoError(PathFileAccess, u"Path/File access error: '%1'."_s.arg(m_path));
}

void refuseExisting(const QString &path)
{
    if (QFileInfo::exists(path))
        throw DaoError(FileAlreadyExists, u"File already exists: '%1'."_s.arg(path));
}

} // namespace dao
