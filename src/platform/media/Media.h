// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <memory>

/** The player control: plays one music file, or the files that a list file names. */
namespace media {

class Engine;
class PlayerCore;

/** What the control is doing, by its published numbers. */
enum PlayState : int {
    Undefined = 0, // no URL yet
    Stopped = 1,
    Paused = 2,
    Playing = 3,
    MediaEnded = 8,
    Transitioning = 9, // an item is being opened
    Ready = 10         // a URL is there and its first item known
};

/** A music file as the control knows it. */
struct MediaItem
{
    /** Full path of the file; of the list file itself as long as that was not read. */
    QString sourceURL;
    /** The file's name without folder and extension. */
    QString name;
    /** Place in the current play list, from 0; -1 for no item. */
    qsizetype index = -1;
    /** Seconds; 0 until the file was opened, and when it doesn't tell. */
    double duration = 0;
    /** From the file's tags, empty until it was opened. */
    QString title, artist, album;

    [[nodiscard]] bool isNull() const { return index < 0; }
};

/** `controls` of the player. Each returns at once; events tell what came of it. */
class MediaControls final
{
public:
    explicit MediaControls(PlayerCore &core) : m_core(core) {}

    /** Starts the current item, or goes on after a pause. After the end of a list it starts with the first.
     */
    void play();
    void pause();
    /** Stops and goes back to the beginning of the current item. */
    void stop();
    /**
     * To the item that follows or precedes, from the last to the first and from the first to the last. What
     * was playing plays on with that item, what was paused stays so, a stopped player is Ready with it. In
     * an event that reports MediaEnded both count from the item that is about to play.
     */
    void next();
    void previous();
    /** There is another item that next() or previous() would lead to. */
    [[nodiscard]] bool hasNext() const;
    [[nodiscard]] bool hasPrevious() const;
    /**
     * While the URL is one file: what plays behind the current item, without a gap, in place of what was
     * named before; the empty text for nothing. Items that have played stay in front for previous(), and the
     * list doesn't wrap. Passed over while a list file is the URL.
     */
    void setFollowing(const QString &path);

    /** Seconds from the beginning of the current item. */
    [[nodiscard]] double currentPosition() const;
    /** Values beyond either end are taken to that end. Nothing happens while nothing is open. */
    void setCurrentPosition(double seconds);

    /** Before a list file was read its name is the list file's own, without folder and extension. */
    [[nodiscard]] MediaItem currentItem() const;
    /**
     * Makes an item of the current play list the current one, and plays it if the player plays (or is about
     * to). An item that is the current one already is left alone, and so is a null one.
     */
    void setCurrentItem(const MediaItem &item);

private:
    PlayerCore &m_core;
};

/** `currentPlaylist`: one item for a music file; for a list file one per entry, missing files included. */
class MediaPlaylist final
{
public:
    explicit MediaPlaylist(PlayerCore &core) : m_core(core) {}

    [[nodiscard]] qsizetype count() const;
    /** A null item when @p index is outside the list. */
    [[nodiscard]] MediaItem Item(qsizetype index) const;

    /**
     * Items come, go and move while the list plays, and the current one plays on. The items of a list are
     * those of its file at first; one file becomes a list of which it is the only item. The current item
     * can't be removed.
     */
    void insertItem(qsizetype index, const QString &path);
    void removeItem(qsizetype index);
    /** @p to: the item's place when it has moved. */
    void moveItem(qsizetype from, qsizetype to);

private:
    PlayerCore &m_core;
};

/** `settings` of the player: kept from one URL to the next, not from one player to the next. */
class MediaSettings final
{
public:
    explicit MediaSettings(PlayerCore &core) : m_core(core) {}

    /**
     * "loop": the end of the list leads to its beginning. "shuffle": items come in random order, each once
     * before any comes again. Other names are passed over.
     */
    void setMode(const QString &name, bool on);
    [[nodiscard]] bool getMode(const QString &name) const;

    /** 0 to 100; at first 100. */
    [[nodiscard]] int volume() const;
    void setVolume(int percent);
    [[nodiscard]] bool mute() const;
    void setMute(bool on);

private:
    PlayerCore &m_core;
};

/**
 * The player control. Lives on the user-interface thread; a player that is destroyed stops at once.
 *
 * Events come from the event loop, never from inside a call; one at a time, in order, each after the state
 * that it reports: playState() and currentMedia() are those of the last event. While a handler runs no other
 * event comes, also if it lets events run. A handler may delete the player.
 *
 * - One file: Ready, CurrentItemChange, Transitioning, Playing ... MediaEnded, then Stopped unless the
 * handler of MediaEnded set another URL or called play().
 * - A list: Ready, CurrentItemChange, Transitioning, Playing ... MediaEnded, Transitioning,
 * CurrentItemChange, Playing ... MediaEnded, Stopped. With "loop" the last item is followed by the first in
 * the same way.
 * - A URL set while an event is being handled stops at Ready (and its CurrentItemChange) and waits for
 *   play(); a URL set otherwise plays by itself.
 * - next() from the last item to the first, and play() after the end of a list: Ready, CurrentItemChange,
 *   Transitioning, Playing. previous() from the first to the last: Stopped, CurrentItemChange, Transitioning,
 *   Playing. Any other change of item: Transitioning, CurrentItemChange, Playing (Paused if it was paused).
 * - An item that is missing or can't be played becomes current (CurrentItemChange) and is passed over with
 *   itemSkipped; there is no MediaEnded for it. When nothing is left to try: mediaError, then Stopped. A
 *   play() from the handler of that Stopped is passed over, else a screen that repeats would try for ever.
 */
class MediaPlayer final : public QObject
{
    Q_OBJECT

public:
    /** Makes the engine when something is to be played first; throws std::runtime_error with a sentence. */
    using EngineMaker = std::function<std::unique_ptr<Engine>()>;

    explicit MediaPlayer(EngineMaker makeEngine, QObject *parent = nullptr);
    ~MediaPlayer() override;

    /** What was set last: the path of a music file or of a list (`.m3u`, `.m3u8`). */
    [[nodiscard]] QString URL() const;
    /**
     * Takes another URL: the path of a local file, nothing else. What was playing stops without an event. A
     * list file is read at the next turn of the event loop, or when its items are asked for before that. The
     * empty text stops, with the event Stopped.
     */
    void setURL(const QString &url);

    [[nodiscard]] PlayState playState() const;
    /** The item of the last CurrentItemChange. */
    [[nodiscard]] MediaItem currentMedia() const;

    [[nodiscard]] MediaControls &controls() { return m_controls; }
    [[nodiscard]] const MediaControls &controls() const { return m_controls; }
    [[nodiscard]] MediaPlaylist &currentPlaylist() { return m_playlist; }
    [[nodiscard]] const MediaPlaylist &currentPlaylist() const { return m_playlist; }
    [[nodiscard]] MediaSettings &settings() { return m_settings; }
    [[nodiscard]] const MediaSettings &settings() const { return m_settings; }

Q_SIGNALS:
    void PlayStateChange(int newState);
    void CurrentItemChange();

    /** Seconds; some times a second while playing, and after each jump. */
    void positionChanged(double seconds);
    /** The position jumped because setCurrentPosition() was called. */
    void seeked(double seconds);
    /** Duration and tags of the current item became known; as a rule shortly before Playing. */
    void mediaChanged();
    /** A mode, the volume, mute or what follows changed. */
    void settingsChanged();

    /** An item of a list was passed over; the sentence tells the user which and why. */
    void itemSkipped(const QString &sourceURL, const QString &sentence);
    /** Playing has come to an end that nobody asked for; a sentence for the user. */
    void mediaError(const QString &sentence);

private:
    std::unique_ptr<PlayerCore> m_core;
    MediaControls m_controls;
    MediaPlaylist m_playlist;
    MediaSettings m_settings;
};

/** Where the sound goes and where the module that makes it is found. */
struct MediaOptions
{
    /** Empty: the desktop's sound output. "null": none. "pcm": a WAV file, see outputFile. */
    QString audioOutput;
    /** Full path of the WAV file that "pcm" writes; what plays without a gap stands in it without one. */
    QString outputFile;
    /** "null" and "pcm" only: as fast as the machine can, not at the sound's own pace. */
    bool untimed = false;
    /** Folder of the module; empty: beside the program, as it is built or installed. */
    QString moduleFolder;
};

class SoundTurn;

/** Makes players, of which one sounds at a time. Cheap: nothing is loaded before a player is to play. */
class MediaFactory final
{
public:
    explicit MediaFactory(MediaOptions options = {});

    [[nodiscard]] std::unique_ptr<MediaPlayer> makeMediaPlayer() const;

private:
    MediaOptions m_options;
    std::shared_ptr<SoundTurn> m_turn;
};

} // namespace media
