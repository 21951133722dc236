// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "lists/PlayListStore.h"

#include <QString>

#include <functional>

namespace quaverly {

class Desktop;

/** The window that plays one song of a list at a time, as the run through the list knows it. */
class SongWindow
{
public:
    virtual ~SongWindow() = default;

    /** Plays @p FileName, in the window that is open or in a new one. */
    virtual void play(const QString &title, const QString &FileName) = 0;
    /** Closes the window, if one is open. */
    virtual void unload() = 0;

    /** The song came to its end; called from the event loop, so that it may play or unload. */
    std::function<void()> songEnded{};
    /** The user closed the window. */
    std::function<void()> closedByUser{};
};

/** What a run works with. All of it outlives the run. */
struct OneSongRunParts
{
    Desktop &desktop;
    SongWindow &window;
    /** The track that a row of lbDetail shows; nothing when it is gone from the list. */
    std::function<std::optional<TrackTexts>(int)> track;
    /** Rows of lbDetail, the blank one included, and the selected one; -1 without one. */
    std::function<int()> ListCount;
    std::function<int()> ListIndex;
    /** Selects a row of lbDetail as a click there does, the rules of lbDetail_Click included. */
    std::function<void(int)> select;
    std::function<void()> focusDetail;
};

/**
 * "Play Current Song": plays from the selected song of a list to its end, one song after the other. It ends
 * behind the last song and when the user closes the window.
 */
class OneSongRun final
{
public:
    /** Takes over the window's callbacks. */
    explicit OneSongRun(OneSongRunParts parts);

    void cmdPlay1_Click();

    /** Set on the blank row of lbDetail, cleared on a song: a run that meets it ends. */
    void setStopOneSongRun(bool stop) { m_StopOneSongRun = stop; }
    [[nodiscard]] bool StopOneSongRun() const { return m_StopOneSongRun; }
    [[nodiscard]] bool isRunning() const { return m_running; }

private:
    void songEnded();
    void closedByUser();
    void goOn();
    void end();
    void run(const std::function<void()> &step);

    OneSongRunParts m_parts;
    bool m_StopOneSongRun = false;
    bool m_running = false;
};

} // namespace quaverly
