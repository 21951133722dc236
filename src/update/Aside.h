// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <condition_variable>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <thread>

namespace quaverly {

/**
 * One piece of work on a thread of its own, since a file system may answer slowly or never. An object that
 * goes before its work is done asks it to stop, and leaves work that hangs to itself: nobody waits for it. So
 * the work holds what it needs, and nothing of anybody else.
 */
template <typename Result> class Aside final
{
public:
    using Work = std::function<Result(const std::stop_token &)>;

    explicit Aside(Work work) : m_state(std::make_shared<State>())
    {
        m_state->work = std::move(work);
        std::thread(&Aside::run, m_state).detach();
    }
    ~Aside() { m_state->stop.request_stop(); }
    Aside(const Aside &) = delete;
    Aside &operator=(const Aside &) = delete;

    /** True once it is done; waits no longer than @p patience. */
    [[nodiscard]] bool isDone(std::chrono::milliseconds patience)
    {
        std::unique_lock lock(m_state->mutex);
        return m_state->ended.wait_for(lock, patience, [this] { return m_state->isDone; });
    }
    /** What the work gave, once; or what it threw. */
    [[nodiscard]] Result take()
    {
        if (m_state->error)
            std::rethrow_exception(m_state->error);
        return std::move(*m_state->result);
    }

private:
    struct State
    {
        Work work;
        std::stop_source stop;
        std::mutex mutex;
        std::condition_variable ended;
        std::optional<Result> result;
        std::exception_ptr error;
        bool isDone = false;
    };

    static void run(const std::shared_ptr<State> &state)
    {
        try {
            state->result.emplace(state->work(state->stop.get_token()));
        } catch (...) {
            state->error = std::current_exception();
        }
        const std::lock_guard lock(state->mutex);
        state->isDone = true;
        state->ended.notify_all();
    }

    std::shared_ptr<State> m_state;
};

} // namespace quaverly
