// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/ListFile.h"

#include "platform/text/Text.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <stdexcept>

using namespace Qt::StringLiterals;
using quaverly::PathSeparator;

namespace media {

namespace {

constexpr qint64 LongestList = 64LL * 1024 * 1024;
constexpr qsizetype MostEntries = 500'000;
// What the system takes for a path, PATH_MAX.
constexpr qsizetype LongestPath = 4096;

QByteArray withoutByteOrderMark(const QByteArray &bytes)
{
    return bytes.startsWith("\xEF\xBB\xBF") ? bytes.sliced(3) : bytes;
}

bool isPath(QByteArrayView line)
{
    return !line.trimmed().isEmpty() && line.front() != '#' && line.size() <= LongestPath &&
           !line.contains('\0');
}

QString fullPath(const QString &entry, const QString &folder)
{
    if (entry.startsWith(PathSeparator))
        return entry;
    if (entry.startsWith("file:"_L1, Qt::CaseInsensitive)) {
        const QString local = QUrl(entry).toLocalFile();
        return local.isEmpty() ? entry : local;
    }
    // Another kind of URL stays what it is, so that it is refused by its name.
    return entry.contains("://"_L1) ? entry : QDir::cleanPath(folder + PathSeparator + entry);
}

} // namespace

bool isListFile(const QString &path)
{
    return path.endsWith(".m3u"_L1, Qt::CaseInsensitive) || path.endsWith(".m3u8"_L1, Qt::CaseInsensitive);
}

QStringList readListFile(const QString &path)
{
    QFile file(path);
    // A pipe or a device of that name would never come to its end.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        throw std::runtime_error(u"The list \"%1\" can't be read."_s.arg(path).toStdString());
    const QByteArray bytes = withoutByteOrderMark(file.read(LongestList));
    const QString folder = QFileInfo(path).absolutePath();

    QStringList paths;
    for (qsizetype start = 0; start < bytes.size() && paths.size() < MostEntries;) {
        qsizetype end = bytes.indexOf('\n', start);
        if (end < 0)
            end = bytes.size();
        QByteArrayView line = QByteArrayView(bytes).sliced(start, end - start);
        if (line.endsWith('\r'))
            line.chop(1);
        if (isPath(line))
            paths.append(fullPath(quaverly::fromSystemCodePage(line), folder));
        start = end + 1;
    }
    return paths;
}

} // namespace media
