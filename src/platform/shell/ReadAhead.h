// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/SongDetails.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <stop_token>
#include <thread>
#include <vector>

namespace shell {

/** The details of one file, read once by whichever thread comes first. */
class DetailSlot final
{
public:
    explicit DetailSlot(QByteArray path) : m_path(std::move(path)) {}

    /** Reads the file, or waits until the thread that has begun is done. */
    [[nodiscard]] const SongDetails &details();
    /** Reads the file unless that has been begun or isn't wanted any more. */
    void prepare();
    /** From here on nobody will ask; a reading under way ends by itself. */
    void abandon();

private:
    enum State { Untouched, Reading, Done };
    [[nodiscard]] bool claim();

    QByteArray m_path;
    SongDetails m_details;
    std::atomic<State> m_state = Untouched;
};

/** Threads that prepare slots in the order in which they are given. They start with the first slot. */
class ReadAhead final
{
public:
    explicit ReadAhead(int threads) : m_threadCount(threads) {}
    ~ReadAhead();
    Q_DISABLE_COPY_MOVE(ReadAhead)

    [[nodiscard]] bool isOn() const { return m_threadCount > 0; }
    void enqueue(std::shared_ptr<DetailSlot> slot);

private:
    void run(const std::stop_token &stop);

    int m_threadCount;
    std::mutex m_mutex;
    std::condition_variable_any m_arrived;
    std::deque<std::shared_ptr<DetailSlot>> m_queue;
    std::vector<std::jthread> m_threads;
};

} // namespace shell
