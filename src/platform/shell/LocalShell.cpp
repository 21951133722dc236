// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/Directory.h"
#include "platform/shell/LocalFolder.h"

#include <QHash>

#include <algorithm>
#include <deque>

namespace shell {

namespace {

/** Listings that are kept take up no more memory than this. */
constexpr qsizetype MostKeptBytes = 64 << 20;
/** Folders that are opened before they are asked for. */
constexpr size_t MostUpcoming = 16;

/** The listings of a walk, in its order. */
class KeptListings final
{
public:
    void add(const QString &folder, const Listing &listing)
    {
        if (m_bytes + listing.names.size() > MostKeptBytes)
            return;
        m_bytes += listing.names.size();
        m_places.insert(folder, m_listings.size());
        m_listings.push_back({folder, listing});
    }
    void clear() { *this = KeptListings(); }

    /** The listing, unless the folder has changed since; what follows it comes next. */
    [[nodiscard]] std::optional<Listing> take(const QString &folder)
    {
        const auto place = m_places.constFind(folder);
        if (place == m_places.cend())
            return {};
        m_next = *place + 1;
        return takeAt(*place);
    }
    /** The one behind the last one taken. */
    [[nodiscard]] std::optional<std::pair<QString, Listing>> takeNext()
    {
        if (m_next >= m_listings.size())
            return {};
        const QString folder = m_listings[m_next].first;
        if (auto listing = takeAt(m_next++))
            return std::pair(folder, std::move(*listing));
        return {};
    }

private:
    [[nodiscard]] std::optional<Listing> takeAt(size_t place)
    {
        auto &[folder, listing] = m_listings[place];
        if (stateOf(folder) != listing.state)
            return {};
        return std::exchange(listing, Listing());
    }

    std::deque<std::pair<QString, Listing>> m_listings;
    QHash<QString, size_t> m_places;
    size_t m_next = 0;
    qsizetype m_bytes = 0;
};

class LocalShell final : public Shell
{
public:
    explicit LocalShell(const ShellTraits &traits)
        : m_traits(traits), m_ahead(std::make_shared<Lookahead>(traits.readAheadThreads))
    {
        m_ahead->setNextFolder([this] { return openNext(); });
    }
    ~LocalShell() override { m_ahead->setNextFolder({}); }
    Q_DISABLE_COPY_MOVE(LocalShell)

    [[nodiscard]] std::unique_ptr<Folder> NameSpace(const QString &folder) override
    {
        if (auto opened = takeUpcoming(folder))
            return opened;
        if (const auto kept = m_listings.take(folder))
            return open(folder, *kept);
        if (!identity(folder))
            return nullptr;
        const auto listing = listFolder(folder);
        return listing ? open(folder, *listing) : nullptr;
    }
    [[nodiscard]] std::unique_ptr<Folder> filesOf(const QString &folder, const QStringList &names) override
    {
        std::vector<Entry> entries;
        for (const QString &name : names)
            entries.push_back({name, EntryKind::File, false});
        return std::make_unique<LocalFolder>(folder, std::move(entries), m_order, m_traits, m_ahead);
    }
    [[nodiscard]] std::vector<Entry> search(const QString &folder, QStringList *refused) override
    {
        const auto listing = listFolder(folder);
        if (!listing)
            return {};
        if (m_keeping && listing->isSettled(m_traits.timeGrain))
            m_listings.add(folder, *listing);
        return entriesOf(*listing, refused);
    }
    [[nodiscard]] std::optional<FolderIdentity> identity(const QString &folder) override
    {
        const auto state = stateOf(folder);
        if (!m_keeping)
            m_pseudo.forget();
        if (!state || m_pseudo.hold(folder, state->identity))
            return {};
        return state->identity;
    }
    void keepListings(bool keep) override
    {
        m_keeping = keep;
        m_listings.clear();
        m_upcoming.clear();
        m_pseudo.forget();
    }
    [[nodiscard]] std::vector<Drive> drives() override { return mountedDrives(); }
    [[nodiscard]] int versionMajor() const override { return static_cast<int>(m_traits.version); }
    [[nodiscard]] double version() const override { return m_traits.version; }
    [[nodiscard]] bool hideFileExt() const override { return m_traits.hideFileExt; }

private:
    struct Upcoming
    {
        QString path;
        FolderState state;
        std::unique_ptr<LocalFolder> folder;
    };

    [[nodiscard]] std::unique_ptr<LocalFolder> open(const QString &folder, const Listing &listing)
    {
        return std::make_unique<LocalFolder>(folder, entriesOf(listing, nullptr), m_order, m_traits, m_ahead);
    }

    [[nodiscard]] LocalFolder *openNext()
    {
        if (m_upcoming.size() >= MostUpcoming)
            return nullptr;
        auto next = m_listings.takeNext();
        if (!next)
            return nullptr;
        auto &[path, listing] = *next;
        m_upcoming.push_back({path, listing.state, open(path, listing)});
        m_upcoming.back().folder->setUpcoming(true);
        return m_upcoming.back().folder.get();
    }

    /** Those in front of the one asked for are not wanted any more. */
    [[nodiscard]] std::unique_ptr<LocalFolder> takeUpcoming(const QString &path)
    {
        const auto found = std::ranges::find(m_upcoming, path, &Upcoming::path);
        if (found == m_upcoming.end())
            return nullptr;
        Upcoming upcoming = std::move(*found);
        m_upcoming.erase(m_upcoming.begin(), std::next(found));
        if (stateOf(path) != upcoming.state)
            return nullptr;
        upcoming.folder->setUpcoming(false);
        return std::move(upcoming.folder);
    }

    ShellTraits m_traits;
    NaturalOrder m_order;
    std::shared_ptr<Lookahead> m_ahead;
    bool m_keeping = false;
    PseudoFileSystems m_pseudo;
    KeptListings m_listings;
    std::deque<Upcoming> m_upcoming;
};

} // namespace

std::unique_ptr<Shell> makeShell(const ShellTraits &traits)
{
    return std::make_unique<LocalShell>(traits);
}

} // namespace shell
