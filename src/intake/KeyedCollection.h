// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/DaoError.h"

#include <QHash>
#include <QString>

#include <iterator>
#include <list>
#include <utility>

namespace quaverly {

/**
 * Items in the order in which they were added, found by their key or by their place, which counts from 1.
 * Keys compare exactly. A place costs a walk, everything else does not grow with the number of items.
 */
template <typename Item> class KeyedCollection final
{
public:
    KeyedCollection() = default;
    KeyedCollection(const KeyedCollection &) = delete;
    KeyedCollection &operator=(const KeyedCollection &) = delete;
    KeyedCollection(KeyedCollection &&) noexcept = default;
    KeyedCollection &operator=(KeyedCollection &&) noexcept = default;

    [[nodiscard]] qint32 count() const { return static_cast<qint32>(m_items.size()); }
    [[nodiscard]] bool contains(const QString &key) const { return m_places.contains(key); }

    /** @throws dao::DaoError 5. */
    [[nodiscard]] const Item &item(const QString &key) const { return find(key)->second; }
    /** @throws dao::DaoError 9. */
    [[nodiscard]] const Item &item(qint32 place) const { return find(place)->second; }

    /** False, and no change, when there is one of that key. */
    bool add(const QString &key, Item item)
    {
        if (contains(key))
            return false;
        m_items.emplace_back(key, std::move(item));
        m_places.insert(key, std::prev(m_items.end()));
        return true;
    }

    /** @throws dao::DaoError 5 for a key, 9 for a place that is not there. */
    template <typename KeyOrPlace> void remove(const KeyOrPlace &which)
    {
        const auto found = find(which);
        m_places.remove(found->first);
        m_items.erase(found);
    }

private:
    using Items = std::list<std::pair<QString, Item>>;

    [[nodiscard]] typename Items::const_iterator find(const QString &key) const
    {
        constexpr int InvalidCall = 5;
        const auto found = m_places.constFind(key);
        if (found == m_places.constEnd())
            throw dao::DaoError(InvalidCall, QStringLiteral("Invalid procedure call or argument"));
        return *found;
    }
    [[nodiscard]] typename Items::const_iterator find(qint32 place) const
    {
        constexpr int OutOfRange = 9;
        if (place < 1 || place > count())
            throw dao::DaoError(OutOfRange, QStringLiteral("Subscript out of range"));
        return std::next(m_items.begin(), place - 1);
    }

    Items m_items;
    QHash<QString, typename Items::const_iterator> m_places;
};

} // namespace quaverly
