// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlists/OneSongRun.h"

#include "desktop/Guard.h"
#include "player/SongQueue.h"

using namespace Qt::StringLiterals;

namespace quaverly {

OneSongRun::OneSongRun(OneSongRunParts parts) : m_parts(std::move(parts))
{
    m_parts.window.songEnded = [this] { songEnded(); };
    m_parts.window.closedByUser = [this] { closedByUser(); };
}

void OneSongRun::run(const std::function<void()> &step)
{
    if (!guarded(m_parts.desktop, u"Play Current Song"_s, step))
        end();
}

void OneSongRun::cmdPlay1_Click()
{
    if (m_running)
        return;
    m_running = true;
    run([this] {
        if (m_parts.ListCount() > 0 && m_parts.ListIndex() < 0) {
            m_parts.focusDetail();
            m_parts.select(0);
        }
        goOn();
    });
}

void OneSongRun::songEnded()
{
    if (!m_running)
        return;
    run([this] {
        m_parts.select(m_parts.ListIndex() + 1);
        goOn();
    });
}

void OneSongRun::closedByUser()
{
    m_StopOneSongRun = true;
    run([this] { goOn(); });
}

void OneSongRun::goOn()
{
    const int blankRow = m_parts.ListCount() - 1;
    for (int row = m_parts.ListIndex(); !m_StopOneSongRun && row >= 0 && row < blankRow; ++row) {
        const auto track = m_parts.track(row);
        if (!track)
            continue;
        if (row != m_parts.ListIndex())
            m_parts.select(row);
        m_parts.window.play(songRow(track->SongTitle, track->ArtistName), track->FileName);
        return;
    }
    end();
}

void OneSongRun::end()
{
    m_StopOneSongRun = false;
    m_running = false;
    m_parts.window.unload();
}

} // namespace quaverly
