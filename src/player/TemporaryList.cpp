// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/TemporaryList.h"

#include "desktop/FileHelpers.h"
#include "platform/store/DaoError.h"
#include "player/PlayerRules.h"

#include <QFile>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace quaverly {

QString temporaryList(const QString &databaseFolder)
{
    return databaseFolder + QString::fromUtf16(TemporaryListName);
}

bool fitsInList(const QString &path)
{
    return !path.contains(u'\n') && !path.contains(u'\r');
}

void writeListFile(const QString &path, const QStringList &lines)
{
    QByteArray bytes;
    for (const QString &line : lines)
        bytes += QFile::encodeName(line) + "\r\n";
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        const int number = file.error() == QFileDevice::ResourceError ? dao::DiskFull : dao::PathFileAccess;
        throw dao::DaoError(number, u"The list of songs could not be written: %1"_s.arg(file.errorString()));
    }
}

void writeTemporaryList(const QString &databaseFolder, const QStringList &paths)
{
    const QString path = temporaryList(databaseFolder);
    DeleteFile(path);
    writeListFile(path, paths);
}

void removeTemporaryList(const QString &databaseFolder)
{
    try {
        DeleteFile(temporaryList(databaseFolder));
    } catch (const dao::DaoError &) { // NOLINT(bugprone-empty-catch)
        // The next list replaces it.
    }
}

} // namespace quaverly
