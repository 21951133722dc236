// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/Media.h"

#include "platform/media/EngineModule.h"
#include "platform/media/PlayerCore.h"
#include "platform/media/SoundTurn.h"

using namespace Qt::StringLiterals;

namespace media {

namespace {

constexpr QLatin1StringView LoopMode{"loop"};
constexpr QLatin1StringView ShuffleMode{"shuffle"};

} // namespace

// --- controls

void MediaControls::play()
{
    m_core.play();
}

void MediaControls::pause()
{
    m_core.pause();
}

void MediaControls::stop()
{
    m_core.stop();
}

void MediaControls::next()
{
    m_core.next();
}

void MediaControls::previous()
{
    m_core.previous();
}

bool MediaControls::hasNext() const
{
    return m_core.order().hasNext();
}

bool MediaControls::hasPrevious() const
{
    return m_core.order().hasPrevious();
}

void MediaControls::setFollowing(const QString &path)
{
    m_core.setFollowing(path);
}

double MediaControls::currentPosition() const
{
    return m_core.position();
}

void MediaControls::setCurrentPosition(double seconds)
{
    m_core.seek(seconds);
}

MediaItem MediaControls::currentItem() const
{
    return m_core.currentItem();
}

void MediaControls::setCurrentItem(const MediaItem &item)
{
    m_core.setCurrentItem(item.index);
}

// --- currentPlaylist

qsizetype MediaPlaylist::count() const
{
    return m_core.count();
}

MediaItem MediaPlaylist::Item(qsizetype index) const
{
    return m_core.item(index);
}

void MediaPlaylist::insertItem(qsizetype index, const QString &path)
{
    m_core.insertItem(index, path);
}

void MediaPlaylist::removeItem(qsizetype index)
{
    m_core.removeItem(index);
}

void MediaPlaylist::moveItem(qsizetype from, qsizetype to)
{
    m_core.moveItem(from, to);
}

// --- settings

void MediaSettings::setMode(const QString &name, bool on)
{
    if (name == LoopMode)
        m_core.setLoop(on);
    else if (name == ShuffleMode)
        m_core.setShuffle(on);
}

bool MediaSettings::getMode(const QString &name) const
{
    if (name == LoopMode)
        return m_core.order().loop();
    return name == ShuffleMode && m_core.order().shuffle();
}

int MediaSettings::volume() const
{
    return m_core.volume();
}

void MediaSettings::setVolume(int percent)
{
    m_core.setVolume(percent);
}

bool MediaSettings::mute() const
{
    return m_core.mute();
}

void MediaSettings::setMute(bool on)
{
    m_core.setMute(on);
}

// --- the player

MediaPlayer::MediaPlayer(EngineMaker makeEngine, QObject *parent)
    : QObject(parent), m_core(std::make_unique<PlayerCore>(*this, std::move(makeEngine))),
      m_controls(*m_core), m_playlist(*m_core), m_settings(*m_core)
{}

MediaPlayer::~MediaPlayer() = default;

QString MediaPlayer::URL() const
{
    return m_core->url();
}

void MediaPlayer::setURL(const QString &url)
{
    m_core->setURL(url);
}

PlayState MediaPlayer::playState() const
{
    return m_core->state();
}

MediaItem MediaPlayer::currentMedia() const
{
    return m_core->media();
}

MediaFactory::MediaFactory(MediaOptions options)
    : m_options(std::move(options)), m_turn(std::make_shared<SoundTurn>())
{}

std::unique_ptr<MediaPlayer> MediaFactory::makeMediaPlayer() const
{
    auto player = std::make_unique<MediaPlayer>([options = m_options] { return loadEngine(options); });
    m_turn->add(*player);
    return player;
}

} // namespace media
