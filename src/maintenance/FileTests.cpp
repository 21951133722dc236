// SPDX-License-Identifier: GPL-3.0-or-later
#include "maintenance/FileTests.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>

namespace quaverly {

/** What both threads share; it lives as long as the longer-lived of them. */
struct FileTests::State
{
    Test test;
    std::mutex mutex;
    std::condition_variable asked;
    std::condition_variable answered;
    std::deque<QString> questions;
    std::vector<bool> answers;
    /** Questions without an answer, the one being looked at included. */
    std::size_t open = 0;
    bool ended = false;
};

FileTests::FileTests(Test test) : m_state(std::make_shared<State>())
{
    m_state->test = std::move(test);
    // Detached, since a test that never returns can't be joined.
    std::thread(&FileTests::work, m_state).detach();
}

FileTests::~FileTests()
{
    const std::lock_guard lock(m_state->mutex);
    m_state->ended = true;
    m_state->asked.notify_one();
}

void FileTests::ask(const QStringList &paths)
{
    const std::lock_guard lock(m_state->mutex);
    m_state->questions.insert(m_state->questions.end(), paths.begin(), paths.end());
    m_state->open += static_cast<std::size_t>(paths.size());
    m_state->asked.notify_one();
}

std::vector<bool> FileTests::answers(std::chrono::milliseconds patience)
{
    std::unique_lock lock(m_state->mutex);
    m_state->answered.wait_for(lock, patience, [this] { return m_state->open == 0; });
    return std::exchange(m_state->answers, {});
}

void FileTests::work(const std::shared_ptr<State> &state)
{
    std::unique_lock lock(state->mutex);
    while (true) {
        state->asked.wait(lock, [&state] { return state->ended || !state->questions.empty(); });
        if (state->ended)
            return;
        const QString path = std::move(state->questions.front());
        state->questions.pop_front();
        lock.unlock();
        const bool isThere = !path.isEmpty() && state->test(path);
        lock.lock();
        state->answers.push_back(isThere);
        if (--state->open == 0)
            state->answered.notify_one();
    }
}

} // namespace quaverly
