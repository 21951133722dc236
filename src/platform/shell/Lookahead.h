// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/MusicKinds.h"
#include "platform/shell/ReadAhead.h"

#include <functional>
#include <vector>

namespace shell {

class LocalFolder;

/**
 * Decides which files are read ahead: those behind the one asked for, of types that were asked for
 * before, in this folder and the next ones. The reach doubles with every song that is asked for in a
 * row, and is gone with one that is passed by.
 */
class Lookahead final
{
public:
    /** Opens the folder behind the last one that was opened; null when none is known, or enough are open. */
    using NextFolder = std::function<LocalFolder *()>;

    explicit Lookahead(int threads) : m_threads(threads) {}

    [[nodiscard]] bool isOn() const { return m_threads.isOn(); }
    void setNextFolder(NextFolder next) { m_nextFolder = std::move(next); }

    /** A song's details are wanted for the first time. */
    void asked(LocalFolder &folder, qsizetype index);
    /** Nobody wanted the details of a song. */
    void passedBy(LocalFolder &folder, qsizetype index);
    /** The folder goes, and so many of its songs were to be read ahead. */
    void gone(const LocalFolder &folder, int waiting);

    [[nodiscard]] const SongDetails &detailsOf(DetailSlot &slot) { return m_threads.detailsOf(slot); }

private:
    void reach(int songs);
    [[nodiscard]] bool nextFolder();

    ReadAhead m_threads;
    NextFolder m_nextFolder;
    /** Of each type, how many were asked for in a row. */
    std::vector<int> m_run = std::vector<int>(musicKinds().size());
    /** The first item that hasn't been looked at yet. */
    LocalFolder *m_folder = nullptr;
    qsizetype m_index = 0;
    /** Songs that are to be read ahead and haven't been asked for. */
    int m_waiting = 0;
};

} // namespace shell
