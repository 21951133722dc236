// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/PlayerCore.h"

#include "platform/media/Sentences.h"

#include <QPointer>

#include <stdexcept>
#include <utility>

namespace media {

// --- what the engine says waits for its turn

void PlayerCore::fileDetails(Token file, const FileDetails &details)
{
    m_queue.append(DetailsEvent{file, details});
    schedule();
}

void PlayerCore::started(Token file)
{
    m_queue.append(StartedEvent{file});
    schedule();
}

void PlayerCore::ended(Token file)
{
    m_queue.append(EndedEvent{file});
    schedule();
}

void PlayerCore::failed(Token file, Failure failure)
{
    m_queue.append(FailedEvent{file, failure});
    schedule();
}

void PlayerCore::position(double seconds, bool jumped)
{
    m_queue.appendPosition({seconds, jumped});
    schedule();
}

// --- telling, one event a turn of the event loop

void PlayerCore::schedule()
{
    if (!m_telling && !m_queue.isEmpty() && !m_pump.isActive())
        m_pump.start(0);
}

// One event a turn: its handlers give commands, and what these change must not have been told yet. Events
// that concern nobody any more take no turn.
void PlayerCore::pump()
{
    if (m_telling)
        return;
    const QPointer<MediaPlayer> alive(&m_player);
    bool told = false;
    while (!told && !m_queue.isEmpty()) {
        Event event = m_queue.take();
        m_telling = true;
        told = deliver(event);
        // A handler may have closed the player.
        if (!alive)
            return;
        m_telling = false;
        m_tellingFailure = false;
        // Only now, since a handler of the end may have asked for another item, or for silence.
        if (m_mode == Mode::Ending)
            goOn();
    }
    schedule();
}

bool PlayerCore::deliver(const Event &event)
{
    return std::visit([this](const auto &what) { return tell(what); }, event);
}

bool PlayerCore::tell(const StateEvent &event)
{
    m_state = event.state;
    m_tellingFailure = event.afterFailure;
    if (m_state != Playing && m_state != Paused)
        m_position = 0;
    if (m_state == Playing)
        m_positionTimer.start();
    else
        m_positionTimer.stop();
    Q_EMIT m_player.PlayStateChange(m_state);
    return true;
}

bool PlayerCore::tell(const ItemEvent &event)
{
    // item() gives back what it knows of the current one: of the same item played again nothing is known.
    m_media = {};
    m_media = item(event.index);
    Q_EMIT m_player.CurrentItemChange();
    return true;
}

bool PlayerCore::tell(const SkippedEvent &event)
{
    Q_EMIT m_player.itemSkipped(event.path, event.sentence);
    return true;
}

bool PlayerCore::tell(const ErrorEvent &event)
{
    Q_EMIT m_player.mediaError(event.sentence);
    return true;
}

bool PlayerCore::tell(const PositionEvent &event)
{
    if (m_open == 0 || !m_started)
        return false;
    m_position = event.seconds;
    const QPointer<MediaPlayer> alive(&m_player);
    Q_EMIT m_player.positionChanged(event.seconds);
    if (alive && event.jumped)
        Q_EMIT m_player.seeked(event.seconds);
    return true;
}

bool PlayerCore::tell(const DetailsEvent &event)
{
    if (event.file != m_open || m_media.index != m_order.current())
        return false;
    m_media.duration = event.details.duration;
    m_media.title = event.details.title;
    m_media.artist = event.details.artist;
    m_media.album = event.details.album;
    Q_EMIT m_player.mediaChanged();
    return true;
}

bool PlayerCore::tell(const LoadEvent & /*event*/)
{
    readItems();
    m_mode = Mode::Ready;
    // Of a URL nothing is known yet, so its first item is news even if it bears the last one's number.
    m_media = {};
    if (m_paths.isEmpty()) {
        giveUp(m_listFailure);
        return false;
    }
    m_queue.insert(StateEvent{Ready});
    announceItem();
    if (m_playsAtOnce)
        begin();
    return false;
}

bool PlayerCore::tell(const StartedEvent &event)
{
    if (event.file != m_open || m_started)
        return false;
    m_started = true;
    planNext();
    return tell(StateEvent{m_paused ? Paused : Playing});
}

bool PlayerCore::tell(const EndedEvent &event)
{
    if (event.file != m_open)
        return false;
    m_open = 0;
    m_failures = 0;
    m_anyPlayed = true;
    m_mode = Mode::Ending;
    // A pause that was still to be told came too late.
    m_queue.dropStates();
    return tell(StateEvent{MediaEnded});
}

bool PlayerCore::tell(const FailedEvent &event)
{
    // The engine's word on a file that was given up meanwhile.
    if (event.file != m_open)
        return false;
    m_open = 0;
    // Without sound output every item of a list would fail.
    const QString sentence = sentences::failure(event.failure, m_paths.at(m_order.current()));
    if (event.failure == Failure::NoSoundOutput)
        giveUp(sentence);
    else
        passOver(sentence);
    return false;
}

bool PlayerCore::tell(const RefusedEvent &event)
{
    passOver(event.sentence);
    return false;
}

// --- what is to come

// What the handlers will have heard by then is not told twice.
void PlayerCore::announce(PlayState state)
{
    if (m_queue.stateBefore().value_or(m_state) != state)
        m_queue.insert(StateEvent{state});
}

void PlayerCore::announceItem()
{
    if (m_queue.itemBefore().value_or(m_media.index) != m_order.current())
        m_queue.insert(ItemEvent{m_order.current()});
}

/** The current item from its beginning, because somebody wants it. */
void PlayerCore::begin()
{
    m_mode = Mode::Active;
    m_atEnd = false;
    m_anyPlayed = false;
    m_failures = 0;
    announce(Transitioning);
    announceItem();
    openCurrent();
}

/** The item that comes by itself. */
void PlayerCore::advance()
{
    const qsizetype index = m_order.goOn().index;
    m_mode = Mode::Active;
    announce(Transitioning);
    announceItem();
    if (m_next == 0 || m_nextIndex != index) {
        openCurrent();
        return;
    }
    // The engine is at it already.
    m_open = std::exchange(m_next, 0);
    m_started = false;
}

void PlayerCore::goOn()
{
    if (m_order.following()) {
        advance();
        return;
    }
    m_mode = Mode::Stopped;
    m_paused = false;
    m_atEnd = true;
    announce(Stopped);
}

void PlayerCore::passOver(const QString &sentence)
{
    ++m_failures;
    m_queue.dropStates();
    const bool isList = m_order.count() > 1;
    if (isList)
        m_queue.insert(SkippedEvent{m_paths.at(m_order.current()), sentence});
    // In a loop a whole round without a song is the end.
    if (m_order.following() && m_failures < m_order.count())
        advance();
    else if (m_anyPlayed && m_failures < m_order.count())
        goOn();
    else
        giveUp(isList ? sentences::nothingLeft() : sentence);
    m_atEnd = m_mode == Mode::Stopped;
}

void PlayerCore::giveUp(const QString &sentence)
{
    silence();
    m_mode = Mode::Stopped;
    m_paused = false;
    m_queue.insert(ErrorEvent{sentence});
    // Not by announce(), which may leave it out: play() heeds the failure while this is told.
    m_queue.insert(StateEvent{Stopped, true});
}

void PlayerCore::openCurrent()
{
    const QString path = m_paths.at(m_order.current());
    const QString refusal = sentences::refusal(path);
    if (!refusal.isEmpty()) {
        silence();
        m_queue.insert(RefusedEvent{refusal});
        return;
    }
    m_started = false;
    m_next = 0;
    try {
        m_open = engine().open(path, m_paused);
    } catch (const std::runtime_error &e) {
        giveUp(QString::fromUtf8(e.what()));
    }
}

/** Tells the engine what will follow the item that plays. */
void PlayerCore::planNext()
{
    if (m_open == 0 || !m_started)
        return;
    m_nextIndex = m_order.following().value_or(-1);
    const QString path = m_nextIndex < 0 ? QString() : m_paths.at(m_nextIndex);
    const bool goesOn = m_nextIndex >= 0 && sentences::refusal(path).isEmpty();
    m_next = m_engine->setNext(goesOn ? path : QString());
}

void PlayerCore::silence()
{
    if (m_engine && (m_open != 0 || m_next != 0))
        m_engine->stop();
    m_open = 0;
    m_next = 0;
    m_started = false;
}

} // namespace media
