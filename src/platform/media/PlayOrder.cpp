// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/PlayOrder.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace media {

void PlayOrder::reset(qsizetype count, bool openEnded)
{
    m_count = count;
    m_openEnded = openEnded;
    rewind();
}

void PlayOrder::rewind()
{
    m_place = 0;
    m_nextRound.clear();
    m_order = isShuffled() ? shuffled(-1) : std::vector<qsizetype>();
}

void PlayOrder::setShuffle(bool on)
{
    if (on == m_shuffle)
        return;
    const qsizetype here = current();
    m_shuffle = on;
    if (m_openEnded)
        return;
    rewind();
    if (!on)
        m_place = std::max<qsizetype>(here, 0);
    else if (m_count > 0)
        std::iter_swap(m_order.begin(), std::find(m_order.begin(), m_order.end(), here));
}

qsizetype PlayOrder::current() const
{
    if (m_count == 0)
        return -1;
    return isShuffled() ? m_order[size_t(m_place)] : m_place;
}

std::optional<qsizetype> PlayOrder::following()
{
    if (m_openEnded && m_loop && m_count > 0)
        return m_place;
    if (m_count == 0 || (isLast() && m_openEnded) || (isLast() && !m_loop))
        return {};
    if (!isShuffled())
        return isLast() ? 0 : m_place + 1;
    if (!isLast())
        return m_order[size_t(m_place + 1)];
    if (m_nextRound.empty())
        m_nextRound = shuffled(current());
    return m_nextRound.front();
}

PlayOrder::Step PlayOrder::goOn()
{
    return m_openEnded && m_loop ? Step{current(), false} : next();
}

PlayOrder::Step PlayOrder::next()
{
    const bool wraps = isLast();
    if (wraps && m_openEnded)
        return {current(), true};
    if (wraps && isShuffled()) {
        m_order = m_nextRound.empty() ? shuffled(current()) : m_nextRound;
        m_nextRound.clear();
    }
    m_place = wraps ? 0 : m_place + 1;
    return {current(), wraps};
}

PlayOrder::Step PlayOrder::previous()
{
    const bool wraps = m_place == 0;
    if (wraps && m_openEnded)
        return {current(), true};
    m_place = (wraps ? m_count : m_place) - 1;
    return {current(), wraps};
}

void PlayOrder::select(qsizetype index)
{
    if (!isShuffled() || index == current()) {
        m_place = index;
        if (isShuffled())
            m_place = std::find(m_order.begin(), m_order.end(), index) - m_order.begin();
        return;
    }
    // It comes now instead of later, or once more; all that were still to come are still to come.
    const auto from = std::find(m_order.begin(), m_order.end(), index);
    if (from - m_order.begin() < m_place)
        --m_place;
    m_order.erase(from);
    ++m_place;
    m_order.insert(m_order.begin() + m_place, index);
}

void PlayOrder::insert(qsizetype index)
{
    ++m_count;
    m_nextRound.clear();
    if (!isShuffled()) {
        m_place += index <= m_place ? 1 : 0;
        return;
    }
    for (qsizetype &item : m_order)
        item += item >= index ? 1 : 0;
    m_order.insert(m_order.begin() + m_place + 1, index);
}

void PlayOrder::remove(qsizetype index)
{
    --m_count;
    m_nextRound.clear();
    if (!isShuffled()) {
        m_place -= index < m_place ? 1 : 0;
        return;
    }
    const auto gone = std::find(m_order.begin(), m_order.end(), index);
    m_place -= gone - m_order.begin() < m_place ? 1 : 0;
    m_order.erase(gone);
    for (qsizetype &item : m_order)
        item -= item > index ? 1 : 0;
}

void PlayOrder::move(qsizetype from, qsizetype to)
{
    m_nextRound.clear();
    if (!isShuffled()) {
        m_place = moved(m_place, from, to);
        return;
    }
    for (qsizetype &item : m_order)
        item = moved(item, from, to);
}

qsizetype PlayOrder::moved(qsizetype index, qsizetype from, qsizetype to)
{
    if (index == from)
        return to;
    return index - (from < index ? 1 : 0) + (to <= index - (from < index ? 1 : 0) ? 1 : 0);
}

std::vector<qsizetype> PlayOrder::shuffled(qsizetype notFirst)
{
    std::vector<qsizetype> order(size_t(m_count), 0);
    std::iota(order.begin(), order.end(), 0);
    std::shuffle(order.begin(), order.end(), m_random);
    if (m_count > 1 && order.front() == notFirst)
        std::swap(order.front(), order.back());
    return order;
}

} // namespace media
