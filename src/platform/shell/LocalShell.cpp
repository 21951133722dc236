// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/Columns.h"
#include "platform/shell/Directory.h"
#include "platform/shell/NaturalOrder.h"
#include "platform/shell/ReadAhead.h"

#include "platform/text/Text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

// Details are kept for items near the last one asked for; others are read again when they must.
constexpr size_t MostKept = 128;
constexpr qsizetype MostAhead = 32;

class LocalFolder;

class LocalItem final : public Item
{
public:
    LocalItem(LocalFolder &folder, qsizetype index, Entry entry)
        : m_folder(&folder), m_index(index), m_entry(std::move(entry))
    {}
    [[nodiscard]] const Entry &entry() const { return m_entry; }
    [[nodiscard]] bool isSong() const
    {
        return m_entry.kind != EntryKind::Folder && isSongName(m_entry.name);
    }

    [[nodiscard]] QString name() const override;
    [[nodiscard]] QString detail(int column) const override;
    [[nodiscard]] QString readFailure() const override;

private:
    LocalFolder *m_folder;
    qsizetype m_index;
    Entry m_entry;
};

class LocalFolder final : public Folder
{
public:
    LocalFolder(const QString &path, std::vector<Entry> entries, const NaturalOrder &order,
                const ShellTraits &traits, std::shared_ptr<ReadAhead> ahead);
    ~LocalFolder() override;
    Q_DISABLE_COPY_MOVE(LocalFolder)

    [[nodiscard]] qsizetype count() const override { return std::ssize(m_items); }
    [[nodiscard]] const Item &item(qsizetype index) override
    {
        return m_items.at(static_cast<size_t>(index));
    }

    [[nodiscard]] const ShellTraits &traits() const { return m_traits; }
    [[nodiscard]] int versionMajor() const { return static_cast<int>(m_traits.version); }
    [[nodiscard]] QByteArray pathOf(const QString &name) const { return systemPath(m_path + name); }
    [[nodiscard]] const SongDetails &detailsOf(qsizetype index);

private:
    std::shared_ptr<DetailSlot> &slotOf(qsizetype index);
    void readAheadOf(qsizetype index);
    void keep(qsizetype index);

    QString m_path;
    ShellTraits m_traits;
    std::shared_ptr<ReadAhead> m_ahead;
    std::vector<LocalItem> m_items;
    std::vector<std::shared_ptr<DetailSlot>> m_slots;
    std::deque<qsizetype> m_kept;
    qsizetype m_window = 1;
    qsizetype m_aheadUpTo = 0;
};

QString LocalItem::name() const
{
    const bool shortened = m_folder->traits().hideFileExt && m_entry.kind != EntryKind::Folder;
    return shortened ? withoutKnownExtension(m_entry.name) : m_entry.name;
}

QString LocalItem::detail(int column) const
{
    switch (column) {
    case SizeColumn: {
        const auto size = fileSize(m_folder->pathOf(m_entry.name));
        return size ? sizeText(*size) : QString();
    }
    case TypeColumn:
        return typeText(m_entry.name, m_entry.kind);
    case AttributesColumn:
        return attributesText(m_entry.name, m_entry.kind);
    default:
        break;
    }
    const int version = m_folder->versionMajor();
    if (!isSong() || !isDetailColumn(column, version))
        return {};
    return detailText(m_folder->detailsOf(m_index), column, version);
}

QString LocalItem::readFailure() const
{
    return isSong() ? m_folder->detailsOf(m_index).failure : u"Not a sound file"_s;
}

LocalFolder::LocalFolder(const QString &path, std::vector<Entry> entries, const NaturalOrder &order,
                         const ShellTraits &traits, std::shared_ptr<ReadAhead> ahead)
    : m_path(path.endsWith(quaverly::PathSeparator) ? path : path + quaverly::PathSeparator),
      m_traits(traits), m_ahead(std::move(ahead)), m_slots(entries.size())
{
    std::vector<std::pair<QByteArray, size_t>> keys;
    keys.reserve(entries.size());
    for (size_t i = 0; i < entries.size(); ++i)
        keys.emplace_back(order.key(entries[i].name), i);
    std::ranges::sort(keys);
    m_items.reserve(entries.size());
    for (const auto &[key, i] : keys)
        m_items.emplace_back(*this, std::ssize(m_items), std::move(entries[i]));
}

LocalFolder::~LocalFolder()
{
    for (const auto &slot : m_slots) {
        if (slot)
            slot->abandon();
    }
}

std::shared_ptr<DetailSlot> &LocalFolder::slotOf(qsizetype index)
{
    auto &slot = m_slots[static_cast<size_t>(index)];
    if (!slot) {
        slot = std::make_shared<DetailSlot>(pathOf(m_items[static_cast<size_t>(index)].entry().name));
        keep(index);
    }
    return slot;
}

void LocalFolder::keep(qsizetype index)
{
    m_kept.push_back(index);
    if (m_kept.size() <= MostKept)
        return;
    auto &oldest = m_slots[static_cast<size_t>(m_kept.front())];
    oldest->abandon();
    oldest.reset();
    m_kept.pop_front();
}

const SongDetails &LocalFolder::detailsOf(qsizetype index)
{
    if (m_ahead->isOn())
        readAheadOf(index);
    return slotOf(index)->details();
}

void LocalFolder::readAheadOf(qsizetype index)
{
    // The items in front say whether the next ones will be asked for, so the reach grows with each.
    if (index >= m_aheadUpTo || index + m_window > m_aheadUpTo)
        m_window = std::min(2 * m_window, MostAhead);
    slotOf(index);
    m_aheadUpTo = std::max(m_aheadUpTo, index + 1);
    for (; m_aheadUpTo < count() && m_aheadUpTo <= index + m_window; ++m_aheadUpTo) {
        if (m_items[static_cast<size_t>(m_aheadUpTo)].isSong() && !m_slots[static_cast<size_t>(m_aheadUpTo)])
            m_ahead->enqueue(slotOf(m_aheadUpTo));
    }
}

class LocalShell final : public Shell
{
public:
    explicit LocalShell(const ShellTraits &traits)
        : m_traits(traits), m_ahead(std::make_shared<ReadAhead>(traits.readAheadThreads))
    {}

    [[nodiscard]] std::unique_ptr<Folder> NameSpace(const QString &folder) override
    {
        if (!identityOf(folder))
            return nullptr;
        auto entries = listFolder(folder, nullptr);
        if (!entries)
            return nullptr;
        return std::make_unique<LocalFolder>(folder, std::move(*entries), m_order, m_traits, m_ahead);
    }
    [[nodiscard]] std::vector<Entry> search(const QString &folder, QStringList *refused) override
    {
        return listFolder(folder, refused).value_or(std::vector<Entry>());
    }
    [[nodiscard]] std::optional<FolderIdentity> identity(const QString &folder) override
    {
        return identityOf(folder);
    }
    [[nodiscard]] std::vector<Drive> drives() override { return mountedDrives(); }
    [[nodiscard]] int versionMajor() const override { return static_cast<int>(m_traits.version); }
    [[nodiscard]] double version() const override { return m_traits.version; }
    [[nodiscard]] bool hideFileExt() const override { return m_traits.hideFileExt; }

private:
    ShellTraits m_traits;
    NaturalOrder m_order;
    std::shared_ptr<ReadAhead> m_ahead;
};

} // namespace

std::unique_ptr<Shell> makeShell(const ShellTraits &traits)
{
    return std::make_unique<LocalShell>(traits);
}

} // namespace shell
