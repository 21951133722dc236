// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

#include <functional>

namespace media {

class MediaPlayer;

/** What a remote control shows of the player. */
struct RemoteStatus
{
    enum class Playback { Stopped, Paused, Playing };

    Playback playback = Playback::Stopped;
    /** Place of the song in its list; -1 for no song. */
    qsizetype track = -1;
    QString title, artist, album;
    /** Full path of the song. */
    QString file;
    /** Seconds; 0 when not known. */
    double length = 0;
    bool canGoNext = false;
    bool canGoPrevious = false;
    bool loop = false;
    bool shuffle = false;
    /** 0 to 1, muted or not. */
    double volume = 1;

    bool operator==(const RemoteStatus &) const = default;
};

/** What a remote control may see and do; each call returns at once. */
class RemoteTarget : public QObject
{
    Q_OBJECT

public:
    [[nodiscard]] virtual RemoteStatus status() const = 0;
    /** Seconds from the beginning of the song. */
    [[nodiscard]] virtual double position() const = 0;

    virtual void play() = 0;
    virtual void pause() = 0;
    virtual void stop() = 0;
    virtual void next() = 0;
    virtual void previous() = 0;
    virtual void setPosition(double seconds) = 0;
    virtual void setVolume(double volume) = 0;
    virtual void setLoop(bool on) = 0;
    virtual void setShuffle(bool on) = 0;
    /** Brings the window to the front. */
    virtual void raise() = 0;
    virtual void quit() = 0;

Q_SIGNALS:
    /** status() may be another one. */
    void changed();
    void seeked(double seconds);
};

/** What of a remote control's wishes the player alone can't do. A wish without a function is passed over. */
struct RemoteHost
{
    std::function<void()> raise;
    std::function<void()> quit;
    /** Without them the player's own modes are set. */
    std::function<void(bool)> setLoop, setShuffle;
    /** Title and artist of the current song as the catalogue knows them; empty ones come from the tags. */
    std::function<QString()> title, artist;
};

/** A MediaPlayer under remote control. The player must outlive it. */
class PlayerRemote final : public RemoteTarget
{
    Q_OBJECT

public:
    PlayerRemote(MediaPlayer &player, RemoteHost host);

    [[nodiscard]] RemoteStatus status() const override;
    [[nodiscard]] double position() const override;
    void play() override;
    void pause() override;
    void stop() override;
    void next() override;
    void previous() override;
    void setPosition(double seconds) override;
    void setVolume(double volume) override;
    void setLoop(bool on) override;
    void setShuffle(bool on) override;
    void raise() override;
    void quit() override;

private:
    MediaPlayer &m_player;
    RemoteHost m_host;
};

} // namespace media
