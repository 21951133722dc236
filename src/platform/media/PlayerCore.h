// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/media/Engine.h"
#include "platform/media/Media.h"
#include "platform/media/MediaEvents.h"
#include "platform/media/PlayOrder.h"

#include <QStringList>
#include <QTimer>

namespace media {

/**
 * What the control does: commands change at once what is to come (mode, order, engine) and queue the events
 * that will report it; the engine's news goes through the same queue. The published state is that of the
 * last event told.
 */
class PlayerCore final : private EngineListener
{
public:
    PlayerCore(MediaPlayer &player, MediaPlayer::EngineMaker makeEngine);
    ~PlayerCore() override;
    PlayerCore(const PlayerCore &) = delete;
    PlayerCore &operator=(const PlayerCore &) = delete;

    void setURL(const QString &url);
    void play();
    void pause();
    void stop();
    void next() { move(true); }
    void previous() { move(false); }
    void setCurrentItem(qsizetype index);
    void setFollowing(const QString &path);
    void insertItem(qsizetype index, const QString &path);
    void removeItem(qsizetype index);
    void moveItem(qsizetype from, qsizetype to);
    void seek(double seconds);

    void setLoop(bool on);
    void setShuffle(bool on);
    void setVolume(int percent);
    void setMute(bool on);

    [[nodiscard]] const QString &url() const { return m_url; }
    [[nodiscard]] PlayState state() const { return m_state; }
    [[nodiscard]] const MediaItem &media() const { return m_media; }
    [[nodiscard]] double position() const { return m_position; }
    [[nodiscard]] qsizetype count();
    [[nodiscard]] MediaItem item(qsizetype index);
    [[nodiscard]] MediaItem currentItem();
    [[nodiscard]] const PlayOrder &order() const { return m_order; }
    [[nodiscard]] int volume() const { return m_volume; }
    [[nodiscard]] bool mute() const { return m_mute; }

private:
    /** Where the commands have brought the player; the events follow behind. */
    enum class Mode {
        Idle,    // no URL
        Loading, // a URL whose items were not yet announced
        Ready,
        Stopped,
        Active, // opening, playing or paused
        Ending, // MediaEnded is being told; what comes next is decided after it
    };

    // EngineListener
    void fileDetails(Token file, const FileDetails &details) override;
    void started(Token file) override;
    void ended(Token file) override;
    void failed(Token file, Failure failure) override;
    void position(double seconds, bool jumped) override;

    // The queue; telling gives false when there was nothing for the handlers
    void schedule();
    void pump();
    bool deliver(const Event &event);
    bool tell(const StateEvent &event);
    bool tell(const ItemEvent &event);
    bool tell(const SkippedEvent &event);
    bool tell(const ErrorEvent &event);
    bool tell(const LoadEvent &event);
    bool tell(const DetailsEvent &event);
    bool tell(const StartedEvent &event);
    bool tell(const EndedEvent &event);
    bool tell(const FailedEvent &event);
    bool tell(const RefusedEvent &event);
    bool tell(const PositionEvent &event);

    // What is to come
    void move(bool ahead);
    void restart();
    void begin();
    void advance();
    void goOn();
    void passOver(const QString &sentence);
    void giveUp(const QString &sentence);
    void openCurrent();
    void planNext();
    /** Of an open-ended list the current item stays. */
    void becomeList();
    void renumber(const std::function<qsizetype(qsizetype)> &numberOf);
    void silence();
    void readItems();
    void announce(PlayState state);
    void announceItem();
    [[nodiscard]] bool isPlaying() const { return m_mode == Mode::Active || m_mode == Mode::Ending; }
    [[nodiscard]] Engine &engine();

    MediaPlayer &m_player;
    MediaPlayer::EngineMaker m_makeEngine;
    std::unique_ptr<Engine> m_engine;

    QString m_url;
    QStringList m_paths;
    bool m_itemsRead = false;
    QString m_listFailure;
    PlayOrder m_order;
    Mode m_mode = Mode::Idle;
    bool m_playsAtOnce = false; // while loading
    bool m_paused = false;
    bool m_atEnd = false;     // the list ran to its end: playing starts with its first item
    bool m_anyPlayed = false; // since playing was begun
    qsizetype m_failures = 0; // items passed over in a row

    Token m_open = 0;
    bool m_started = false;
    Token m_next = 0;
    qsizetype m_nextIndex = -1;

    EventQueue m_queue;
    QTimer m_pump;
    QTimer m_positionTimer;
    bool m_telling = false;
    bool m_tellingFailure = false;

    PlayState m_state = Undefined;
    MediaItem m_media;
    double m_position = 0;
    int m_volume = 100;
    bool m_mute = false;
};

} // namespace media
