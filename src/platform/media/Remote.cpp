// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/Remote.h"

#include "platform/media/Media.h"

#include <QtMath>

using namespace Qt::StringLiterals;

namespace media {

namespace {

const auto LoopMode = u"loop"_s;
const auto ShuffleMode = u"shuffle"_s;
constexpr double FullVolume = 100;

RemoteStatus::Playback playbackOf(PlayState state)
{
    switch (state) {
    case Playing:
    case MediaEnded: // for a moment only, before the next song or Stopped
    case Transitioning:
        return RemoteStatus::Playback::Playing;
    case Paused:
        return RemoteStatus::Playback::Paused;
    case Undefined:
    case Stopped:
    case Ready:
        break;
    }
    return RemoteStatus::Playback::Stopped;
}

QString firstOf(const std::function<QString()> &catalogue, const QString &tag)
{
    const QString text = catalogue ? catalogue() : QString();
    return text.isEmpty() ? tag : text;
}

} // namespace

PlayerRemote::PlayerRemote(MediaPlayer &player, RemoteHost host) : m_player(player), m_host(std::move(host))
{
    connect(&player, &MediaPlayer::PlayStateChange, this, &RemoteTarget::changed);
    connect(&player, &MediaPlayer::CurrentItemChange, this, &RemoteTarget::changed);
    connect(&player, &MediaPlayer::mediaChanged, this, &RemoteTarget::changed);
    connect(&player, &MediaPlayer::settingsChanged, this, &RemoteTarget::changed);
    connect(&player, &MediaPlayer::seeked, this, &RemoteTarget::seeked);
}

RemoteStatus PlayerRemote::status() const
{
    const MediaItem media = m_player.currentMedia();
    const MediaSettings &settings = m_player.settings();
    RemoteStatus status;
    status.playback = playbackOf(m_player.playState());
    status.track = media.index;
    status.title = firstOf(m_host.title, media.title.isEmpty() ? media.name : media.title);
    status.artist = firstOf(m_host.artist, media.artist);
    status.album = media.album;
    status.file = media.sourceURL;
    status.length = media.duration;
    status.canGoNext = m_player.controls().hasNext();
    status.canGoPrevious = m_player.controls().hasPrevious();
    status.loop = settings.getMode(LoopMode);
    status.shuffle = settings.getMode(ShuffleMode);
    status.volume = settings.volume() / FullVolume;
    return status;
}

double PlayerRemote::position() const
{
    return m_player.controls().currentPosition();
}

void PlayerRemote::play()
{
    m_player.controls().play();
}

void PlayerRemote::pause()
{
    m_player.controls().pause();
}

void PlayerRemote::stop()
{
    m_player.controls().stop();
}

void PlayerRemote::next()
{
    m_player.controls().next();
}

void PlayerRemote::previous()
{
    m_player.controls().previous();
}

void PlayerRemote::setPosition(double seconds)
{
    m_player.controls().setCurrentPosition(seconds);
}

void PlayerRemote::setVolume(double volume)
{
    m_player.settings().setVolume(qRound(qBound(0.0, volume, 1.0) * FullVolume));
}

void PlayerRemote::setLoop(bool on)
{
    if (m_host.setLoop)
        m_host.setLoop(on);
    else
        m_player.settings().setMode(LoopMode, on);
}

void PlayerRemote::setShuffle(bool on)
{
    if (m_host.setShuffle)
        m_host.setShuffle(on);
    else
        m_player.settings().setMode(ShuffleMode, on);
}

void PlayerRemote::raise()
{
    if (m_host.raise)
        m_host.raise();
}

void PlayerRemote::quit()
{
    if (m_host.quit)
        m_host.quit();
}

} // namespace media
