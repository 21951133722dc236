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

bool isLink(int directory, const dirent &entry)
{
    if (entry.d_type != DT_UNKNOWN)
        return entry.d_type == DT_LNK;
    struct stat about;
    return ::fstatat(directory, entry.d_name, &about, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(about.st_mode);
}

// Kind and link in one byte, which no name follows without.
char packed(EntryKind kind, bool link)
{
    return static_cast<char>((link ? 'a' : 'A') + static_cast<int>(kind));
}

Entry unpacked(char kind, QString name)
{
    const bool link = kind >= 'a';
    return {std::move(name), static_cast<EntryKind>(kind - (link ? 'a' : 'A')), link};
}

qint64 nanoseconds(const timespec &time)
{
    return qint64(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

FolderState folderState(const struct stat &about)
{
    return {{about.st_dev, about.st_ino}, nanoseconds(about.st_mtim), nanoseconds(about.st_ctim)};
}

/** Nothing for bytes that would not come back the same; a byte order mark is part of a name. */
std::optional<QString> nameOf(QByteArrayView bytes)
{
    QStringDecoder utf8(QStringDecoder::Utf8,
                        QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    QString name = utf8(bytes);
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

bool Listing::isSettled(qint64 grain) const
{
    return read - state.modified > grain && read - state.changed > grain;
}

std::optional<Listing> listFolder(const QString &folder)
{
    const std::unique_ptr<DIR, CloseDirectory> directory(::opendir(systemPath(folder).constData()));
    if (!directory)
        return {};
    const int handle = ::dirfd(directory.get());
    Listing listing;
    struct stat about;
    timespec now;
    if (::fstat(handle, &about) == 0 && ::clock_gettime(CLOCK_REALTIME_COARSE, &now) == 0) {
        listing.state = folderState(about);
        listing.read = nanoseconds(now);
    }
    while (const dirent *entry = ::readdir(directory.get())) {
        const QByteArrayView bytes(entry->d_name);
        if (bytes == "." || bytes == "..")
            continue;
        listing.names += packed(kindOf(handle, *entry), isLink(handle, *entry));
        listing.names.append(bytes).append('\0');
    }
    return listing;
}

std::vector<Entry> entriesOf(const Listing &listing, QStringList *refused)
{
    std::vector<Entry> entries;
    entries.reserve(static_cast<size_t>(listing.names.count('\0')));
    const QByteArrayView names = listing.names;
    for (qsizetype at = 0; at < names.size();) {
        const qsizetype end = names.indexOf('\0', at);
        const QByteArrayView bytes = names.sliced(at + 1, end - at - 1);
        if (auto name = nameOf(bytes))
            entries.push_back(unpacked(names[at], std::move(*name)));
        else if (refused)
            refused->append(QString::fromUtf8(bytes));
        at = end + 1;
    }
    return entries;
}

std::optional<FolderState> stateOf(const QString &folder)
{
    struct stat about;
    if (::stat(systemPath(folder).constData(), &about) != 0 || !S_ISDIR(about.st_mode))
        return {};
    return folderState(about);
}

bool PseudoFileSystems::hold(const QString &folder, const FolderIdentity &identity)
{
    const auto known = m_known.find(identity.device);
    if (known != m_known.end())
        return known->second;
    const bool pseudo = isPseudoFileSystem(systemPath(folder), identity.device);
    m_known.emplace(identity.device, pseudo);
    return pseudo;
}

std::optional<qint64> fileSize(const QByteArray &path)
{
    struct stat about;
    if (::stat(path.constData(), &about) != 0 || !S_ISREG(about.st_mode))
        return {};
    return about.st_size;
}

} // namespace shell
