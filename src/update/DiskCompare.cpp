// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/DiskCompare.h"

#include <QHash>

#include <algorithm>
#include <map>
#include <set>
#include <unordered_map>

namespace quaverly {

namespace {

struct HashOfBytes
{
    using is_transparent = void;
    std::size_t operator()(QByteArrayView bytes) const { return qHash(bytes); }
};
template <typename Value> using ByBytes = std::unordered_map<QByteArray, Value, HashOfBytes, std::equal_to<>>;

/** What two names of one file that nobody wrote to share. */
using Identity = std::tuple<qint64, qint64, qint64, qint64>;

Identity identityOf(const shell::FileStamp &stamp)
{
    return {stamp.inode, stamp.device, stamp.size, stamp.modified};
}

QByteArray parentOf(const QByteArray &folder)
{
    return folder.left(folder.lastIndexOf('/', -2) + 1);
}

/** Where a stick or another volume is hung in: such a folder comes and goes with it. */
bool isPlaceOfVolume(const QByteArray &folder)
{
    const auto isBelow = [&](QByteArrayView place, qsizetype depth) {
        return folder.startsWith(place) && folder.count('/') == depth;
    };
    return isBelow("/mnt/", 3) || isBelow("/media/", 4) || isBelow("/run/media/", 5);
}

class Comparison final
{
public:
    Comparison(shell::TreeContent seen, std::vector<KnownFile> known, const QStringList &roots)
        : m_seen(std::move(seen)), m_known(std::move(known))
    {
        for (const QString &root : roots)
            m_roots.push_back(root.toUtf8());
    }

    DiskDifference run()
    {
        m_result.refused = m_seen.refused;
        m_result.unreadableFolders = m_seen.unreadable;
        sortByFolder();
        for (const shell::TreeFolder &folder : m_seen.folders)
            compareFolder(folder);
        for (std::size_t place = 0; place < m_known.size(); ++place) {
            if (!m_found[place])
                lookAt(m_known[place]);
        }
        leaveOutOtherNames();
        findMoved();
        setAsideWhatIsAway();
        return std::move(m_result);
    }

private:
    void sortByFolder()
    {
        m_found.resize(m_known.size());
        for (std::size_t place = 0; place < m_known.size(); ++place)
            m_byFolder[m_known[place].folder].push_back(place);
        for (const shell::TreeFolder &folder : m_seen.folders)
            m_folders.emplace(folder.path, &folder);
    }

    void compareFolder(const shell::TreeFolder &folder)
    {
        const auto known = m_byFolder.find(folder.path);
        ByBytes<std::size_t> names;
        if (known != m_byFolder.end()) {
            for (const std::size_t place : known->second)
                names.emplace(m_known[place].name, place);
        }
        for (const shell::TreeFile &file : folder.files) {
            DiskFile now{folder.path, file.name, file.stamp};
            const auto found = names.find(file.name);
            if (found == names.end()) {
                m_result.added.push_back(std::move(now));
                continue;
            }
            m_found[found->second] = true;
            compareFile(m_known[found->second], std::move(now));
        }
    }

    void compareFile(const KnownFile &known, DiskFile now)
    {
        if (known.stamp && now.stamp.isUnchangedSince(*known.stamp))
            ++m_result.unchanged;
        else
            m_result.changed.push_back({known, std::move(now)});
    }

    /** The walk did not come by its name: it may be there by way of a link, or gone. */
    void lookAt(const KnownFile &known)
    {
        if (!isWalked(known.folder))
            return;
        switch (shell::fileStateOf(known.path())) {
        case shell::FileState::Gone:
            m_result.gone.push_back(known);
            break;
        case shell::FileState::Unreachable:
            // A folder that can't be listed speaks for all in it.
            if (!isUnreadable(known.folder))
                m_result.unreachable.push_back(known);
            break;
        case shell::FileState::There:
            if (const auto stamp = shell::stampOf(known.path())) {
                m_byOtherNames.insert({stamp->inode, stamp->device});
                compareFile(known, {known.folder, known.name, *stamp});
            }
        }
    }

    [[nodiscard]] bool isWalked(const QByteArray &folder) const
    {
        return std::ranges::any_of(m_roots, [&](const QByteArray &root) { return folder.startsWith(root); });
    }

    [[nodiscard]] bool isUnreadable(const QByteArray &folder) const
    {
        return std::ranges::any_of(m_seen.unreadable, [&](const QString &unreadable) {
            return folder.startsWith(unreadable.toUtf8());
        });
    }

    /** A file that a song names by way of a link is no new one under its own name. */
    void leaveOutOtherNames()
    {
        if (m_byOtherNames.empty())
            return;
        std::erase_if(m_result.added, [&](const DiskFile &file) {
            return m_byOtherNames.contains({file.stamp.inode, file.stamp.device});
        });
    }

    /**
     * A file that bears the inode, size and time of another song's, which is not in its place any more, is
     * that song's. It may stand where a third song's file was, so that whole rings of names are followed.
     */
    void findMoved()
    {
        std::map<Identity, const KnownFile *> homeless;
        const auto add = [&](const KnownFile &known) {
            if (known.stamp && known.stamp->inode != 0)
                homeless.emplace(identityOf(*known.stamp), &known);
        };
        for (const KnownFile &known : m_result.gone)
            add(known);
        for (const FilePair &pair : m_result.changed)
            add(pair.known);
        if (homeless.empty())
            return;
        std::set<qint64> followed;
        const auto follow = [&](const DiskFile &file) {
            const auto found = homeless.find(identityOf(file.stamp));
            if (found == homeless.end())
                return false;
            m_result.moved.push_back({*found->second, file});
            followed.insert(found->second->recordId);
            homeless.erase(found);
            return true;
        };
        std::vector<DiskFile> added;
        for (const DiskFile &file : m_result.added) {
            if (!follow(file))
                added.push_back(file);
        }
        std::vector<FilePair> changed;
        std::vector<KnownFile> gone;
        std::vector<std::pair<FilePair, bool>> taken;
        for (const FilePair &pair : m_result.changed)
            taken.emplace_back(pair, follow(pair.now));
        for (const auto &[pair, isTaken] : taken) {
            const bool hasLeft = followed.contains(pair.known.recordId);
            if (!isTaken && hasLeft)
                added.push_back(pair.now);
            else if (!isTaken)
                changed.push_back(pair);
            else if (!hasLeft)
                gone.push_back(pair.known);
        }
        std::ranges::copy_if(m_result.gone, std::back_inserter(gone),
                             [&](const KnownFile &known) { return !followed.contains(known.recordId); });
        m_result.added = std::move(added);
        m_result.changed = std::move(changed);
        m_result.gone = std::move(gone);
    }

    void setAsideWhatIsAway()
    {
        ByBytes<std::vector<KnownFile>> byFolder;
        for (KnownFile &known : m_result.gone)
            byFolder[known.folder].push_back(std::move(known));
        m_result.gone.clear();
        std::map<QByteArray, std::vector<KnownFile>> bySuspect;
        for (auto &[folder, songs] : byFolder) {
            const QByteArray suspect = suspectOf(folder);
            std::vector<KnownFile> &to = suspect.isEmpty() ? m_result.gone : bySuspect[suspect];
            std::ranges::move(songs, std::back_inserter(to));
        }
        for (auto &[folder, songs] : bySuspect) {
            if (std::ssize(songs) < ManySongs && !isRoot(folder) && !isPlaceOfVolume(folder))
                std::ranges::move(songs, std::back_inserter(m_result.gone));
            else
                m_result.away.push_back({QString::fromUtf8(folder), std::move(songs)});
        }
        std::ranges::sort(m_result.gone, {}, &KnownFile::recordId);
    }

    /**
     * The folder that may be a volume which is away: it stands there empty, or it is a root or the place of a
     * volume and isn't there. Empty when its songs are simply gone.
     */
    [[nodiscard]] QByteArray suspectOf(const QByteArray &songFolder) const
    {
        for (QByteArray folder = songFolder; !folder.isEmpty(); folder = parentOf(folder)) {
            const auto seen = m_folders.find(folder);
            if (seen != m_folders.end())
                return seen->second->isEmpty ? folder : QByteArray();
            if (isRoot(folder) || isPlaceOfVolume(folder))
                return folder;
        }
        return {};
    }

    [[nodiscard]] bool isRoot(const QByteArray &folder) const
    {
        return std::ranges::find(m_roots, folder) != m_roots.end();
    }

    shell::TreeContent m_seen;
    std::vector<KnownFile> m_known;
    std::vector<QByteArray> m_roots;
    std::vector<bool> m_found;
    ByBytes<std::vector<std::size_t>> m_byFolder;
    ByBytes<const shell::TreeFolder *> m_folders;
    /** Inode and device of files that songs name by way of a link. */
    std::set<std::pair<qint64, qint64>> m_byOtherNames;
    DiskDifference m_result;
};

} // namespace

qint64 DiskDifference::changedSinceRead() const
{
    return std::ranges::count_if(changed, [](const FilePair &pair) { return pair.known.stamp.has_value(); });
}

DiskDifference compareWithDisk(shell::TreeContent seen, std::vector<KnownFile> known,
                               const QStringList &roots)
{
    return Comparison(std::move(seen), std::move(known), roots).run();
}

} // namespace quaverly
