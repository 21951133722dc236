// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/MusicTree.h"

#include "platform/shell/Directory.h"
#include "platform/shell/SystemStamp.h"

#include <QUtf8StringView>

#include <algorithm>
#include <array>
#include <cerrno>
#include <deque>
#include <memory>
#include <set>

#include <dirent.h>
#include <fcntl.h>
#include <linux/magic.h>
#include <sys/vfs.h>

namespace shell {

namespace {

struct CloseDirectory
{
    void operator()(DIR *directory) const { ::closedir(directory); }
};

/** Those that number their files anew each time they are mounted, or as they like. */
bool hasLastingInodes(int directory)
{
    static constexpr std::array<quint32, 7> Passing{
        MSDOS_SUPER_MAGIC,     0x2011BAB0 /* exfat */, SMB_SUPER_MAGIC, CIFS_SUPER_MAGIC,
        0xFE534D42 /* smb2 */, FUSE_SUPER_MAGIC,       V9FS_MAGIC};
    struct statfs about;
    return ::fstatfs(directory, &about) == 0 &&
           std::ranges::find(Passing, static_cast<quint32>(about.f_type)) == Passing.end();
}

QByteArray folderBelow(const QByteArray &folder, QByteArrayView name)
{
    return QByteArray(folder).append(name).append('/');
}

class TreeWalk final
{
public:
    TreeWalk(const std::function<bool(QByteArrayView)> &isWanted, const std::stop_token &stop)
        : m_isWanted(isWanted), m_stop(stop)
    {}

    TreeContent walk(const QStringList &folders)
    {
        for (const QString &folder : folders)
            m_queue.push_back(systemPath(folder));
        while (!m_stop.stop_requested() && (!m_queue.empty() || !m_links.empty())) {
            // Links wait until no folder is left, so that a folder within the tree goes by its own path.
            std::deque<QByteArray> &next = m_queue.empty() ? m_links : m_queue;
            const QByteArray folder = std::move(next.front());
            next.pop_front();
            visit(folder);
        }
        return std::move(m_content);
    }

private:
    void visit(const QByteArray &path)
    {
        const std::unique_ptr<DIR, CloseDirectory> directory(::opendir(path.constData()));
        struct stat about;
        if (!directory || ::fstat(::dirfd(directory.get()), &about) != 0) {
            // One that isn't there has nothing to be read.
            if (errno != ENOENT && errno != ENOTDIR)
                m_content.unreadable.append(QString::fromUtf8(path));
            return;
        }
        const FolderIdentity identity{about.st_dev, about.st_ino};
        if (!m_seen.insert(identity).second || m_pseudo.hold(QString::fromUtf8(path), identity))
            return;
        m_lasting = lasting(about.st_dev, ::dirfd(directory.get()));
        TreeFolder folder{path, {}, true};
        std::vector<QByteArray> below;
        while (const dirent *entry = ::readdir(directory.get())) {
            const QByteArrayView name(entry->d_name);
            if (name == "." || name == "..")
                continue;
            folder.isEmpty = false;
            look(::dirfd(directory.get()), *entry, folder, below);
        }
        m_content.folders.push_back(std::move(folder));
        std::ranges::sort(below);
        std::ranges::move(below, std::back_inserter(m_queue));
    }

    void look(int directory, const dirent &entry, TreeFolder &folder, std::vector<QByteArray> &below)
    {
        const QByteArrayView name(entry.d_name);
        const bool isLink = entry.d_type == DT_LNK;
        if (entry.d_type == DT_DIR)
            return below.push_back(folderBelow(folder.path, name));
        if (entry.d_type != DT_REG && !isLink && entry.d_type != DT_UNKNOWN)
            return;
        const bool isWanted = m_isWanted(name);
        if (!isWanted && entry.d_type == DT_REG)
            return;
        struct stat about;
        if (::fstatat(directory, entry.d_name, &about, 0) != 0)
            return;
        if (S_ISDIR(about.st_mode)) {
            if (isLink)
                m_links.push_back(folderBelow(folder.path, name));
            else
                below.push_back(folderBelow(folder.path, name));
        } else if (isWanted && S_ISREG(about.st_mode)) {
            keep(name, about, folder);
        }
    }

    void keep(QByteArrayView name, const struct stat &about, TreeFolder &folder)
    {
        if (!QUtf8StringView(name).isValidUtf8()) {
            m_content.refused.append(QString::fromUtf8(QByteArray(folder.path).append(name)));
            return;
        }
        FileStamp stamp = stampFrom(about);
        if (!m_lasting)
            stamp.inode = 0;
        folder.files.push_back({name.toByteArray(), stamp});
    }

    [[nodiscard]] bool lasting(quint64 device, int directory)
    {
        const auto known = m_lastingDevices.find(device);
        if (known != m_lastingDevices.end())
            return known->second;
        return m_lastingDevices.emplace(device, hasLastingInodes(directory)).first->second;
    }

    const std::function<bool(QByteArrayView)> &m_isWanted;
    const std::stop_token &m_stop;
    std::deque<QByteArray> m_queue;
    std::deque<QByteArray> m_links;
    std::set<FolderIdentity> m_seen;
    PseudoFileSystems m_pseudo;
    std::map<quint64, bool> m_lastingDevices;
    bool m_lasting = true;
    TreeContent m_content;
};

} // namespace

TreeContent walkTree(const QStringList &folders, const std::function<bool(QByteArrayView)> &isWanted,
                     const std::stop_token &stop)
{
    return TreeWalk(isWanted, stop).walk(folders);
}

} // namespace shell
