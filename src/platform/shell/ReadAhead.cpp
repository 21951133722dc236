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

const SongDetails &DetailSlot::details()
{
    prepare();
    for (State state = m_state.load(); state != Done; state = m_state.load())
        m_state.wait(state);
    return m_details;
}

void DetailSlot::abandon()
{
    if (claim())
        m_state.store(Done);
}

ReadAhead::~ReadAhead()
{
    for (std::jthread &thread : m_threads)
        thread.request_stop();
}

void ReadAhead::enqueue(std::shared_ptr<DetailSlot> slot)
{
    {
        const std::scoped_lock lock(m_mutex);
        m_queue.push_back(std::move(slot));
    }
    while (std::ssize(m_threads) < m_threadCount)
        m_threads.emplace_back([this](const std::stop_token &stop) { run(stop); });
    m_arrived.notify_one();
}

void ReadAhead::run(const std::stop_token &stop)
{
    for (;;) {
        std::shared_ptr<DetailSlot> slot;
        {
            std::unique_lock lock(m_mutex);
            if (!m_arrived.wait(lock, stop, [this] { return !m_queue.empty(); }))
                return;
            if (stop.stop_requested())
                return;
            slot = std::move(m_queue.front());
            m_queue.pop_front();
        }
        slot->prepare();
    }
}

} // namespace shell
