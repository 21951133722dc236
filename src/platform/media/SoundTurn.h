// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/media/Media.h"

#include <QList>
#include <QSet>

namespace media {

/** Lets one of several players sound at a time: the one that starts has the others pause. */
class SoundTurn final : public QObject
{
    Q_OBJECT

public:
    /** @p player may go at any time. */
    void add(MediaPlayer &player);

private:
    void follow(MediaPlayer &player, int state);

    QList<MediaPlayer *> m_players;
    /** Told to pause; what they were doing before may still be on its way here. */
    QSet<MediaPlayer *> m_pausing;
};

} // namespace media
