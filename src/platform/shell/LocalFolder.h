// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/Lookahead.h"
#include "platform/shell/NaturalOrder.h"
#include "platform/shell/Shell.h"

#include <deque>

namespace shell {

class LocalFolder;

class LocalItem final : public Item
{
public:
    LocalItem(LocalFolder &folder, qsizetype index, Entry entry)
        : m_folder(&folder), m_index(index), m_entry(std::move(entry))
    {}
    [[nodiscard]] const Entry &entry() const { return m_entry; }
    /** -1 for no song. */
    [[nodiscard]] int songType() const;

    [[nodiscard]] QString name() const override;
    [[nodiscard]] bool isFile() const override { return stamp().has_value(); }
    [[nodiscard]] std::optional<FileStamp> stamp() const override;
    [[nodiscard]] QString detail(int column) const override;
    [[nodiscard]] QString readFailure() const override;

private:
    static constexpr int NotLookedAt = -2;

    LocalFolder *m_folder;
    qsizetype m_index;
    Entry m_entry;
    mutable int m_songType = NotLookedAt;
    mutable std::optional<FileStamp> m_stamp;
};

/** The items of a folder on this machine, their details read when asked for or shortly before. */
class LocalFolder final : public Folder
{
public:
    LocalFolder(const QString &path, std::vector<Entry> entries, const NaturalOrder &order,
                const ShellTraits &traits, std::shared_ptr<Lookahead> ahead);
    ~LocalFolder() override;
    Q_DISABLE_COPY_MOVE(LocalFolder)

    [[nodiscard]] qsizetype count() const override { return std::ssize(m_items); }
    [[nodiscard]] const Item &item(qsizetype index) override;

    [[nodiscard]] const ShellTraits &traits() const { return m_traits; }
    [[nodiscard]] int versionMajor() const { return static_cast<int>(m_traits.version); }
    [[nodiscard]] QByteArray pathOf(const QString &name) const { return m_path + name.toUtf8(); }
    [[nodiscard]] const SongDetails &detailsOf(qsizetype index);
    [[nodiscard]] int songTypeAt(qsizetype index) const { return at(index).songType(); }

    /** Opened ahead of being asked for. */
    [[nodiscard]] bool isUpcoming() const { return m_upcoming; }
    void setUpcoming(bool upcoming) { m_upcoming = upcoming; }
    /** The song's slot, to be read ahead; null when someone has asked for it. */
    [[nodiscard]] std::shared_ptr<DetailSlot> putOnWaiting(qsizetype index);
    /** True for a song that was on it. */
    [[nodiscard]] bool takeFromWaiting(qsizetype index);

private:
    struct Song
    {
        std::shared_ptr<DetailSlot> slot;
        bool asked = false;
        bool waiting = false;
    };

    [[nodiscard]] const LocalItem &at(qsizetype index) const
    {
        return m_items.at(static_cast<size_t>(index));
    }
    [[nodiscard]] Song &songAt(qsizetype index) { return m_songs[static_cast<size_t>(index)]; }
    [[nodiscard]] std::shared_ptr<DetailSlot> &slotOf(qsizetype index);
    void keep(qsizetype index);
    void leave(qsizetype index);

    QByteArray m_path;
    ShellTraits m_traits;
    std::shared_ptr<Lookahead> m_ahead;
    std::vector<LocalItem> m_items;
    std::vector<Song> m_songs;
    std::deque<qsizetype> m_kept;
    qsizetype m_current = -1;
    qsizetype m_lastRead = -1;
    int m_waiting = 0;
    bool m_upcoming = false;
};

} // namespace shell
