// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/Lookahead.h"

#include "platform/shell/LocalFolder.h"

#include <algorithm>

namespace shell {

namespace {

/** At most 32 songs are read ahead. */
constexpr int LongestRun = 5;

} // namespace

void Lookahead::asked(LocalFolder &folder, qsizetype index)
{
    int &run = m_run[static_cast<size_t>(folder.songTypeAt(index))];
    run = std::min(run + 1, LongestRun);
    m_waiting -= folder.takeFromWaiting(index) ? 1 : 0;
    const bool isAhead = m_folder && (m_folder == &folder ? m_index > index : m_folder->isUpcoming());
    if (!isAhead) {
        m_folder = &folder;
        m_index = index + 1;
    }
    // In large steps, as every one may have to wake a thread.
    if (const int songs = 1 << run; m_waiting <= songs / 2)
        reach(songs);
}

void Lookahead::passedBy(LocalFolder &folder, qsizetype index)
{
    m_run[static_cast<size_t>(folder.songTypeAt(index))] = 0;
    m_waiting -= folder.takeFromWaiting(index) ? 1 : 0;
}

void Lookahead::gone(const LocalFolder &folder, int waiting)
{
    m_waiting -= waiting;
    if (m_folder == &folder)
        m_folder = nullptr;
}

void Lookahead::reach(int songs)
{
    ReadAhead::Slots more;
    while (m_waiting < songs) {
        if (m_index >= m_folder->count()) {
            if (!nextFolder())
                break;
            continue;
        }
        const int type = m_folder->songTypeAt(m_index);
        if (type >= 0 && m_run[static_cast<size_t>(type)] > 0) {
            if (auto slot = m_folder->putOnWaiting(m_index)) {
                more.push_back(std::move(slot));
                ++m_waiting;
            }
        }
        ++m_index;
    }
    if (!more.empty())
        m_threads.enqueue(more);
}

bool Lookahead::nextFolder()
{
    LocalFolder *next = m_nextFolder ? m_nextFolder() : nullptr;
    if (!next)
        return false;
    m_folder = next;
    m_index = 0;
    return true;
}

} // namespace shell
