// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>
#include <QString>

namespace quaverly::test {

/** As on a full disk: for the length of a scope no file of this process grows beyond that size. */
class FullDisk final
{
public:
    explicit FullDisk(qint64 bytes);
    ~FullDisk();
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

private:
    qint64 m_before = 0;
};

/**
 * For the length of a scope @p path, a folder or a file, grants its owner no more than @p rights. Root, whom
 * no mode keeps out, is an ordinary user meanwhile, who owns @p home and all that it holds.
 */
class LockedFolder final
{
public:
    LockedFolder(QString path, const QString &home,
                 QFile::Permissions rights = QFile::ReadOwner | QFile::ExeOwner);
    ~LockedFolder();
    LockedFolder(const LockedFolder &) = delete;
    LockedFolder &operator=(const LockedFolder &) = delete;

private:
    bool m_wasRoot = false;
    QString m_path;
    QFile::Permissions m_before;
};

/** What to name a temporary folder on another file system than the usual one's; empty where there is none. */
[[nodiscard]] QString folderOnAnotherFileSystem();

} // namespace quaverly::test
