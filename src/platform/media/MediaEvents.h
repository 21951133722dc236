// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/media/Engine.h"
#include "platform/media/Media.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <iterator>
#include <optional>
#include <variant>

namespace media {

// What the player will tell its handlers ...
struct StateEvent
{
    PlayState state = Undefined;
    bool afterFailure = false;
};
struct ItemEvent
{
    qsizetype index = -1;
};
struct SkippedEvent
{
    QString path;
    QString sentence;
};
struct ErrorEvent
{
    QString sentence;
};
struct PositionEvent
{
    double seconds = 0;
    bool jumped = false;
};
// ... what it has still to do in its turn ...
struct LoadEvent
{};
/** The current item was not given to the engine. */
struct RefusedEvent
{
    QString sentence;
};
// ... and what the engine said.
struct DetailsEvent
{
    Token file = 0;
    FileDetails details;
};
struct StartedEvent
{
    Token file = 0;
};
struct EndedEvent
{
    Token file = 0;
};
struct FailedEvent
{
    Token file = 0;
    Failure failure = Failure::Damaged;
};

using Event = std::variant<StateEvent, ItemEvent, SkippedEvent, ErrorEvent, PositionEvent, LoadEvent,
                           RefusedEvent, DetailsEvent, StartedEvent, EndedEvent, FailedEvent>;

/**
 * The events to come, in the order in which they will be told. What follows from the event that was taken
 * last goes before all that waits; what is new goes behind it.
 */
class EventQueue final
{
public:
    [[nodiscard]] bool isEmpty() const { return m_events.empty(); }
    [[nodiscard]] Event take();
    /** Behind all that waits. */
    void append(Event event) { m_events.push_back(std::move(event)); }
    /** Before all that waits, behind what was inserted since take(). */
    void insert(Event event);
    /** insert() goes behind all that waits now. */
    void insertBehind() { m_place = std::ssize(m_events); }
    /** A position that was not told yet is of no interest any more. */
    void appendPosition(const PositionEvent &event);

    /** Items that wait to be told bear other numbers now. */
    void renumber(const std::function<qsizetype(qsizetype)> &numberOf);

    void clear();
    /** Forgets states that were to be told of an item that is over. */
    void dropStates();

    /** What will have been told when an inserted event's turn comes; nothing when nothing waits before it. */
    [[nodiscard]] std::optional<PlayState> stateBefore() const;
    [[nodiscard]] std::optional<qsizetype> itemBefore() const;
    /** The last state that waits, wherever. */
    [[nodiscard]] std::optional<PlayState> lastState() const;

private:
    std::deque<Event> m_events;
    std::ptrdiff_t m_place = 0;
};

} // namespace media
