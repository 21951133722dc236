// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/Directory.h"

#include <QStringDecoder>

#include <algorithm>
#include <array>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>

namespace shell {

namespace {

struct CloseDirectory
{
    void operator()(DIR *directory) const { ::closedir(directory); }
};

EntryKind kindOfMode(mode_t mode)
{
    return S_ISDIR(mode) ? EntryKind::Folder : S_ISREG(mode) ? EntryKind::File : EntryKind::Other;
}

EntryKind kindOf(int directory, const dirent &entry)
{
    switch (entry.d_type) {
    case DT_REG:
        return EntryKind::File;
    case DT_DIR:
        return EntryKind::Folder;
    case DT_LNK:
    case DT_UNKNOWN: {
        struct stat about;
        const bool known = ::fstatat(directory, entry.d_name, &about, 0) == 0;
        return known ? kindOfMode(about.st_mode) : EntryKind::Other;
    }
    default:
        return EntryKind::Other;
    }
}

/** Nothing for bytes that would not come back the same; a byte order mark is part of a name. */
std::optional<QString> nameOf(const char *bytes)
{
    QStringDecoder utf8(QStringDecoder::Utf8,
                        QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    QString name = utf8(QByteArrayView(bytes));
    if (utf8.hasError())
        return {};
    return name;
}

bool isPseudoFileSystem(const QByteArray &path, dev_t device)
{
    // By number where the system's headers have no name for it.
    static constexpr std::array<quint32, 20> magics{PROC_SUPER_MAGIC,
                                                    SYSFS_MAGIC,
                                                    DEBUGFS_MAGIC,
                                                    TRACEFS_MAGIC,
                                                    SECURITYFS_MAGIC,
                                                    CGROUP_SUPER_MAGIC,
                                                    CGROUP2_SUPER_MAGIC,
                                                    DEVPTS_SUPER_MAGIC,
                                                    BPF_FS_MAGIC,
                                                    PSTOREFS_MAGIC,
                                                    EFIVARFS_MAGIC,
                                                    BINFMTFS_MAGIC,
                                                    HUGETLBFS_MAGIC,
                                                    SELINUX_MAGIC,
                                                    NSFS_MAGIC,
                                                    SMACK_MAGIC,
                                                    AAFS_MAGIC,
                                                    0x62656570 /* configfs */,
                                                    0x19800202 /* mqueue */,
                                                    0x65735543 /* fusectl */};
    struct statfs about;
    if (::statfs(path.constData(), &about) != 0)
        return true;
    if (std::ranges::find(magics, static_cast<quint32>(about.f_type)) != magics.end())
        return true;
    // The device folder's file system calls itself a plain one in memory.
    if (about.f_type != TMPFS_MAGIC && about.f_type != RAMFS_MAGIC)
        return false;
    struct stat devices;
    struct stat root;
    return ::stat("/dev", &devices) == 0 && ::stat("/", &root) == 0 && devices.st_dev == device &&
           devices.st_dev != root.st_dev;
}

} // namespace

QByteArray systemPath(const QString &path)
{
    return path.contains(QChar(u'\0')) ? QByteArray() : path.toUtf8();
}

std::optional<std::vector<Entry>> listFolder(const QString &folder, QStringList *refused)
{
    const std::unique_ptr<DIR, CloseDirectory> directory(::opendir(systemPath(folder).constData()));
    if (!directory)
        return {};
    const int handle = ::dirfd(directory.get());
    std::vector<Entry> entries;
    while (const dirent *entry = ::readdir(directory.get())) {
        const QByteArrayView bytes(entry->d_name);
        if (bytes == "." || bytes == "..")
            continue;
        if (auto name = nameOf(entry->d_name))
            entries.push_back({std::move(*name), kindOf(handle, *entry)});
        else if (refused)
            refused->append(QString::fromUtf8(bytes));
    }
    return entries;
}

std::optional<FolderIdentity> identityOf(const QString &folder)
{
    const QByteArray path = systemPath(folder);
    struct stat about;
    if (::stat(path.constData(), &about) != 0 || !S_ISDIR(about.st_mode))
        return {};
    if (isPseudoFileSystem(path, about.st_dev))
        return {};
    return FolderIdentity{about.st_dev, about.st_ino};
}

std::optional<qint64> fileSize(const QByteArray &path)
{
    struct stat about;
    if (::stat(path.constData(), &about) != 0 || !S_ISREG(about.st_mode))
        return {};
    return about.st_size;
}

} // namespace shell
