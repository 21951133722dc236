// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/SoundTurn.h"

namespace media {

namespace {

bool isSounding(int state)
{
    return state == Playing || state == Transitioning;
}

} // namespace

void SoundTurn::add(MediaPlayer &player)
{
    MediaPlayer *const added = &player;
    m_players.append(added);
    connect(added, &MediaPlayer::PlayStateChange, this, [this, added](int state) { follow(*added, state); });
    connect(added, &QObject::destroyed, this, [this, added] {
        m_players.removeOne(added);
        m_pausing.remove(added);
    });
}

void SoundTurn::follow(MediaPlayer &player, int state)
{
    if (!isSounding(state)) {
        m_pausing.remove(&player);
        return;
    }
    if (m_pausing.contains(&player))
        return;
    for (MediaPlayer *other : m_players) {
        if (other != &player && isSounding(other->playState())) {
            m_pausing.insert(other);
            other->controls().pause();
        }
    }
}

} // namespace media
