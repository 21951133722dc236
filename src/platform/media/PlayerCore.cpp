// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/PlayerCore.h"

#include "platform/media/ListFile.h"
#include "platform/media/Sentences.h"

#include <QFileInfo>

#include <algorithm>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace media {

namespace {

constexpr int PositionIntervalMs = 200;

/** Full path of what the caller named; a URL of another kind stays as it is and is refused later. */
QString localPath(const QString &url)
{
    return url.contains("://"_L1) && !url.startsWith(u'/') ? url : QFileInfo(url).absoluteFilePath();
}

} // namespace

PlayerCore::PlayerCore(MediaPlayer &player, MediaPlayer::EngineMaker makeEngine)
    : m_player(player), m_makeEngine(std::move(makeEngine))
{
    m_pump.setSingleShot(true);
    QObject::connect(&m_pump, &QTimer::timeout, [this] { pump(); });
    m_positionTimer.setInterval(PositionIntervalMs);
    QObject::connect(&m_positionTimer, &QTimer::timeout, [this] {
        if (m_engine && m_started)
            m_engine->askPosition();
    });
}

PlayerCore::~PlayerCore() = default;

Engine &PlayerCore::engine()
{
    if (!m_engine) {
        m_engine = m_makeEngine();
        m_engine->setListener(this);
        m_engine->setVolume(m_volume);
        m_engine->setMute(m_mute);
    }
    return *m_engine;
}

// --- what the control is told

void PlayerCore::setURL(const QString &url)
{
    // What waits to be told is about the URL before.
    m_queue.clear();
    silence();
    m_url = url;
    m_itemsRead = false;
    m_paused = false;
    m_atEnd = false;
    m_order.reset(0);
    m_paths.clear();
    if (url.isEmpty()) {
        m_mode = Mode::Idle;
        m_media = {};
        if (m_state != Undefined)
            announce(Stopped);
    } else {
        m_mode = Mode::Loading;
        // A handler that sets one decides itself, when it hears of Ready, whether it plays.
        m_playsAtOnce = !m_telling;
        m_queue.append(LoadEvent());
    }
    schedule();
}

void PlayerCore::play()
{
    // A screen that repeats what has stopped would try the same damaged files for ever.
    if (m_tellingFailure)
        return;
    switch (m_mode) {
    case Mode::Idle:
        return;
    case Mode::Loading:
        m_playsAtOnce = true;
        m_paused = false;
        return;
    case Mode::Active:
        if (m_paused) {
            m_paused = false;
            if (m_engine)
                m_engine->setPaused(false);
            if (m_started)
                m_queue.append(StateEvent{Playing});
            schedule();
        }
        return;
    case Mode::Ending:
        // The next item comes by itself.
        if (m_order.following())
            return;
        break;
    case Mode::Ready:
    case Mode::Stopped:
        break;
    }
    restart();
}

void PlayerCore::restart()
{
    if (m_order.count() == 0)
        return;
    const bool fromTheTop =
        (m_atEnd || m_mode == Mode::Ending) && m_order.count() > 1 && !m_order.openEnded();
    // A Ready that somebody waited for was told already, and its item stands before what follows.
    if (m_mode == Mode::Ready && !m_queue.lastState())
        m_queue.insertBehind();
    else
        m_queue.clear();
    if (fromTheTop) {
        m_order.rewind();
        announce(Ready);
        announceItem();
    }
    begin();
    schedule();
}

void PlayerCore::pause()
{
    if (m_paused || (m_mode != Mode::Loading && !isPlaying()))
        return;
    m_paused = true;
    if (m_mode == Mode::Loading || !m_engine)
        return;
    m_engine->setPaused(true);
    if (m_mode == Mode::Active && m_started)
        m_queue.append(StateEvent{Paused});
    schedule();
}

void PlayerCore::stop()
{
    m_playsAtOnce = false;
    if (!isPlaying())
        return;
    m_queue.clear();
    silence();
    m_mode = Mode::Stopped;
    m_paused = false;
    announce(Stopped);
    schedule();
}

void PlayerCore::move(bool ahead)
{
    if (count() == 0)
        return;
    // While an end is told the list stands on the item to come, and moves on from there.
    if (m_mode == Mode::Ending && m_order.following())
        m_order.goOn();
    const PlayOrder::Step step = ahead ? m_order.next() : m_order.previous();
    // The load that waits announces the item.
    if (m_mode == Mode::Loading)
        return;
    m_queue.clear();
    const bool wraps = step.wraps && m_order.count() > 1 && !m_order.openEnded();
    // In these states the screens' rules expect the list to jump from one of its ends to the other.
    if (wraps)
        announce(ahead ? Ready : Stopped);
    else if (!isPlaying())
        announce(Ready);
    if (isPlaying() && !wraps) {
        begin();
    } else {
        announceItem();
        if (isPlaying())
            begin();
        else
            m_mode = wraps && !ahead ? Mode::Stopped : Mode::Ready;
    }
    m_atEnd = false;
    schedule();
}

void PlayerCore::setCurrentItem(qsizetype index)
{
    if (index < 0 || index >= count())
        return;
    m_atEnd = false;
    if (index == m_order.current() && m_mode != Mode::Ending)
        return;
    m_order.select(index);
    if (m_mode == Mode::Loading)
        return;
    m_queue.clear();
    if (isPlaying()) {
        begin();
    } else {
        m_mode = Mode::Ready;
        announce(Ready);
        announceItem();
    }
    schedule();
}

void PlayerCore::setFollowing(const QString &path)
{
    if (count() == 0 || !m_order.openEnded())
        return;
    m_paths.resize(m_order.current() + 1);
    if (!path.isEmpty())
        m_paths.append(path);
    m_order.setCount(m_paths.size());
    planNext();
    Q_EMIT m_player.settingsChanged();
}

void PlayerCore::insertItem(qsizetype index, const QString &path)
{
    if (count() == 0)
        return;
    becomeList();
    const qsizetype at = std::clamp<qsizetype>(index, 0, m_paths.size());
    m_paths.insert(at, path);
    m_order.insert(at);
    renumber([at](qsizetype item) { return item + (item >= at ? 1 : 0); });
}

void PlayerCore::removeItem(qsizetype index)
{
    if (index < 0 || index >= count() || index == m_order.current())
        return;
    m_paths.removeAt(index);
    m_order.remove(index);
    renumber([index](qsizetype item) { return item == index ? -1 : item - (item > index ? 1 : 0); });
}

void PlayerCore::moveItem(qsizetype from, qsizetype to)
{
    if (from < 0 || from >= count() || to < 0 || to >= count())
        return;
    m_paths.move(from, to);
    m_order.move(from, to);
    renumber([=](qsizetype item) { return PlayOrder::moved(item, from, to); });
}

void PlayerCore::becomeList()
{
    if (!m_order.openEnded())
        return;
    const qsizetype here = m_order.current();
    m_paths = {m_paths.at(here)};
    m_order.reset(1);
    renumber([here](qsizetype item) { return item == here ? 0 : -1; });
}

void PlayerCore::renumber(const std::function<qsizetype(qsizetype)> &numberOf)
{
    m_media.index = numberOf(m_media.index);
    m_queue.renumber(numberOf);
    m_atEnd = false;
    planNext();
    Q_EMIT m_player.settingsChanged();
}

void PlayerCore::seek(double seconds)
{
    if (!m_engine || m_open == 0 || !m_started)
        return;
    const double end = m_media.duration > 0 ? m_media.duration : seconds;
    m_position = std::clamp(seconds, 0.0, std::max(end, 0.0));
    m_engine->seek(m_position);
}

void PlayerCore::setLoop(bool on)
{
    if (on == m_order.loop())
        return;
    m_order.setLoop(on);
    planNext();
    Q_EMIT m_player.settingsChanged();
}

void PlayerCore::setShuffle(bool on)
{
    if (on == m_order.shuffle())
        return;
    m_order.setShuffle(on);
    planNext();
    Q_EMIT m_player.settingsChanged();
}

void PlayerCore::setVolume(int percent)
{
    const int volume = std::clamp(percent, 0, 100);
    if (volume == m_volume)
        return;
    m_volume = volume;
    if (m_engine)
        m_engine->setVolume(volume);
    Q_EMIT m_player.settingsChanged();
}

void PlayerCore::setMute(bool on)
{
    if (on == m_mute)
        return;
    m_mute = on;
    if (m_engine)
        m_engine->setMute(on);
    Q_EMIT m_player.settingsChanged();
}

// --- items

void PlayerCore::readItems()
{
    if (m_itemsRead)
        return;
    m_itemsRead = true;
    m_listFailure.clear();
    const QString path = localPath(m_url);
    m_paths = {path};
    if (isListFile(path)) {
        try {
            m_paths = readListFile(path);
            if (m_paths.isEmpty())
                m_listFailure = sentences::emptyList(path);
        } catch (const std::runtime_error &e) {
            m_paths.clear();
            m_listFailure = QString::fromUtf8(e.what());
        }
    }
    m_order.reset(m_paths.size(), !isListFile(path));
}

qsizetype PlayerCore::count()
{
    if (m_mode == Mode::Loading)
        readItems();
    return m_paths.size();
}

MediaItem PlayerCore::item(qsizetype index)
{
    if (index < 0 || index >= count())
        return {};
    if (index == m_media.index && m_media.sourceURL == m_paths.at(index))
        return m_media;
    MediaItem item;
    item.sourceURL = m_paths.at(index);
    item.name = QFileInfo(item.sourceURL).completeBaseName();
    item.index = index;
    return item;
}

MediaItem PlayerCore::currentItem()
{
    if (m_mode != Mode::Loading || m_itemsRead)
        return item(m_order.current());
    MediaItem whole;
    whole.sourceURL = localPath(m_url);
    whole.name = QFileInfo(m_url).completeBaseName();
    whole.index = 0;
    return whole;
}

} // namespace media
