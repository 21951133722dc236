// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/ReadAhead.h"

namespace shell {

bool DetailSlot::claim()
{
    State expected = Untouched;
    return m_state.compare_exchange_strong(expected, Reading);
}

void DetailSlot::prepare()
{
    if (!claim())
        return;
    m_details = readSongDetails(m_path);
    m_state.store(Done);
    m_state.notify_all();
}

void DetailSlot::wait() const
{
    for (State state = m_state.load(); state != Done; state = m_state.load())
        m_state.wait(state);
}

void DetailSlot::abandon()
{
    if (claim())
        m_state.store(Done);
}

ReadAhead::~ReadAhead()
{
    {
        const std::scoped_lock lock(m_mutex);
        m_stopped = true;
    }
    m_arrived.notify_all();
    for (std::thread &thread : m_threads)
        thread.join();
}

void ReadAhead::enqueue(const Slots &more)
{
    bool sleeping = false;
    {
        const std::scoped_lock lock(m_mutex);
        m_queue.insert(m_queue.end(), more.begin(), more.end());
        sleeping = m_idle > 0;
    }
    while (std::ssize(m_threads) < m_threadCount)
        m_threads.emplace_back([this] { run(); });
    if (sleeping)
        m_arrived.notify_one();
}

const SongDetails &ReadAhead::detailsOf(DetailSlot &slot)
{
    slot.prepare();
    // To sleep until the other thread is done would cost more than to do some of what comes next.
    while (!slot.isDone()) {
        if (const auto next = takeNext())
            next->prepare();
        else
            slot.wait();
    }
    return slot.details();
}

std::shared_ptr<DetailSlot> ReadAhead::takeNext()
{
    const std::scoped_lock lock(m_mutex);
    if (m_queue.empty())
        return nullptr;
    auto next = std::move(m_queue.front());
    m_queue.pop_front();
    return next;
}

void ReadAhead::run()
{
    for (;;) {
        std::shared_ptr<DetailSlot> slot;
        {
            std::unique_lock lock(m_mutex);
            ++m_idle;
            m_arrived.wait(lock, [this] { return m_stopped || !m_queue.empty(); });
            --m_idle;
            if (m_stopped)
                return;
            slot = std::move(m_queue.front());
            m_queue.pop_front();
        }
        slot->prepare();
    }
}

} // namespace shell
