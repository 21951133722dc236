// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/RowSet.h"

#include "platform/store/Sqlite.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace dao {

namespace {

constexpr quint32 Nowhere = std::numeric_limits<quint32>::max();

} // namespace

void RunColumn::append(const QVariant &value)
{
    if (m_runs.empty() || m_runs.back().value != value || m_runs.back().value.isNull() != value.isNull())
        m_runs.push_back({m_size, value});
    ++m_size;
}

const QVariant &RunColumn::at(qint64 position) const
{
    const auto behind = std::upper_bound(m_runs.begin(), m_runs.end(), position,
                                         [](qint64 p, const Run &run) { return p < run.start; });
    return std::prev(behind)->value;
}

void RunColumn::remove(qint64 position)
{
    auto behind = std::upper_bound(m_runs.begin(), m_runs.end(), position,
                                   [](qint64 p, const Run &run) { return p < run.start; });
    for (auto run = behind; run != m_runs.end(); ++run)
        --run->start;
    const auto own = std::prev(behind);
    const qint64 end = behind == m_runs.end() ? m_size - 1 : behind->start;
    if (own->start == end)
        m_runs.erase(own);
    --m_size;
}

void KeySet::clear()
{
    m_keys.clear();
    m_places.clear();
    m_built = false;
}

void KeySet::append(qint64 key)
{
    m_keys.push_back(key);
    m_built = false;
}

void KeySet::remove(qint64 position)
{
    m_keys.erase(m_keys.begin() + static_cast<std::ptrdiff_t>(position));
    m_built = false;
}

void KeySet::buildPlaces() const
{
    m_built = true;
    m_places.clear();
    if (m_keys.empty())
        return;
    const auto [low, high] = std::minmax_element(m_keys.begin(), m_keys.end());
    m_lowest = *low;
    const auto span = static_cast<quint64>(*high) - static_cast<quint64>(*low);
    // Keys are given one after the other: a place for each number costs little until most of them are gone.
    m_direct = span < 4 * m_keys.size() + 1024;
    if (m_direct) {
        m_places.assign(span + 1, Nowhere);
        // From the end, so that of a key that comes twice the first place stays.
        for (std::size_t i = m_keys.size(); i-- > 0;)
            m_places[static_cast<std::size_t>(m_keys[i] - m_lowest)] = static_cast<quint32>(i);
        return;
    }
    m_places.resize(m_keys.size());
    std::iota(m_places.begin(), m_places.end(), 0U);
    std::stable_sort(m_places.begin(), m_places.end(),
                     [this](quint32 a, quint32 b) { return m_keys[a] < m_keys[b]; });
}

qint64 KeySet::positionOf(qint64 key) const
{
    if (!m_built)
        buildPlaces();
    if (m_direct || m_keys.empty()) {
        const auto place = static_cast<quint64>(key - m_lowest);
        if (m_keys.empty() || key < m_lowest || place >= m_places.size() || m_places[place] == Nowhere)
            return -1;
        return m_places[place];
    }
    const auto found = std::lower_bound(m_places.begin(), m_places.end(), key,
                                        [this](quint32 p, qint64 k) { return m_keys[p] < k; });
    return found == m_places.end() || m_keys[*found] != key ? -1 : *found;
}

void RowSet::append(const Statement &row, bool keyed)
{
    int column = 0;
    if (keyed)
        keys.append(row.integer(column++));
    for (RunColumn &each : held)
        each.append(row.variant(column++));
    ++count;
}

} // namespace dao
