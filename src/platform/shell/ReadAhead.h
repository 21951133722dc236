// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/SongDetails.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace shell {

/** The details of one file, read once by whichever thread comes first. */
class DetailSlot final
{
public:
    explicit DetailSlot(QByteArray path) : m_path(std::move(path)) {}

    /** Reads the file unless that has been begun or isn't wanted any more. */
    void prepare();
    [[nodiscard]] bool isDone() const { return m_state.load(std::memory_order_acquire) == Done; }
    /** Until the thread that has begun is done. */
    void wait() const;
    /** Once it is done. */
    [[nodiscard]] const SongDetails &details() const { return m_details; }
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
    using Slots = std::vector<std::shared_ptr<DetailSlot>>;

    explicit ReadAhead(int threads) : m_threadCount(threads) {}
    ~ReadAhead();
    Q_DISABLE_COPY_MOVE(ReadAhead)

    [[nodiscard]] bool isOn() const { return m_threadCount > 0; }
    void enqueue(const Slots &more);
    /** Reads the slot's file, or others that are queued while a thread does so. */
    [[nodiscard]] const SongDetails &detailsOf(DetailSlot &slot);

private:
    void run();
    [[nodiscard]] std::shared_ptr<DetailSlot> takeNext();

    int m_threadCount;
    std::mutex m_mutex;
    std::condition_variable m_arrived;
    std::deque<std::shared_ptr<DetailSlot>> m_queue;
    int m_idle = 0;
    bool m_stopped = false;
    std::vector<std::thread> m_threads;
};

} // namespace shell
