// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/MediaEvents.h"

#include <utility>

namespace media {

namespace {

/** The last event of kind T among the first @p count. */
template <typename T> const T *lastOf(const std::deque<Event> &events, std::ptrdiff_t count)
{
    for (auto i = count; i-- > 0;) {
        if (const auto *found = std::get_if<T>(&events[size_t(i)]))
            return found;
    }
    return nullptr;
}

} // namespace

Event EventQueue::take()
{
    Event event = std::move(m_events.front());
    m_events.pop_front();
    // What its handlers ask for comes next, before what the engine said meanwhile.
    m_place = 0;
    return event;
}

void EventQueue::insert(Event event)
{
    m_events.insert(m_events.begin() + m_place, std::move(event));
    ++m_place;
}

void EventQueue::appendPosition(const PositionEvent &event)
{
    if (!m_events.empty()) {
        if (auto *last = std::get_if<PositionEvent>(&m_events.back())) {
            *last = {event.seconds, event.jumped || last->jumped};
            return;
        }
    }
    append(event);
}

void EventQueue::renumber(const std::function<qsizetype(qsizetype)> &numberOf)
{
    for (Event &event : m_events) {
        if (auto *item = std::get_if<ItemEvent>(&event))
            item->index = numberOf(item->index);
    }
}

void EventQueue::clear()
{
    m_events.clear();
    m_place = 0;
}

void EventQueue::dropStates()
{
    std::erase_if(m_events, [](const Event &event) { return std::holds_alternative<StateEvent>(event); });
    m_place = 0;
}

std::optional<PlayState> EventQueue::stateBefore() const
{
    const auto *found = lastOf<StateEvent>(m_events, m_place);
    return found ? std::optional(found->state) : std::nullopt;
}

std::optional<qsizetype> EventQueue::itemBefore() const
{
    const auto *found = lastOf<ItemEvent>(m_events, m_place);
    return found ? std::optional(found->index) : std::nullopt;
}

std::optional<PlayState> EventQueue::lastState() const
{
    const auto *found = lastOf<StateEvent>(m_events, std::ssize(m_events));
    return found ? std::optional(found->state) : std::nullopt;
}

} // namespace media
