// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/media/Engine.h"

#include <QHash>
#include <QObject>

#include <atomic>
#include <initializer_list>
#include <memory>

struct mpv_event;
struct mpv_event_end_file;
struct mpv_handle;

namespace media {

/**
 * The engine on libmpv. Its play list never holds more than the file that plays and the one behind it.
 * libmpv's own threads only wake this one; everything is sent without waiting for an answer.
 */
class MpvEngine final : public Engine
{
public:
    /** @throws std::runtime_error with a sentence when libmpv can't be set up */
    explicit MpvEngine(const EngineOptions &options);
    ~MpvEngine() override;
    MpvEngine(const MpvEngine &) = delete;
    MpvEngine &operator=(const MpvEngine &) = delete;

    void setListener(EngineListener *listener) override { m_listener = listener; }
    Token open(const QString &path, bool paused) override;
    Token setNext(const QString &path) override;
    void stop() override;
    void setPaused(bool paused) override;
    void seek(double seconds) override;
    void askPosition() override;
    void setVolume(int percent) override;
    void setMute(bool on) override;

private:
    struct HandleDeleter
    {
        void operator()(mpv_handle *handle) const;
    };

    /** What an answer of libmpv belongs to; goes with each question, beside the file that it is about. */
    enum class Reply : quint64 { None, Loaded, Output, Duration, Metadata, Position, JumpedTo };
    [[nodiscard]] static quint64 replyFor(Reply what, Token file) { return file << 3 | quint64(what); }

    void configure(const EngineOptions &options);
    void load(const QByteArray &path, const char *how, Token token);
    void send(std::initializer_list<const char *> command, quint64 reply = 0);
    void ask(const char *property, int format, Reply what);

    void wake();
    void drain();
    void handle(const mpv_event &event);
    void startFile(qint64 entry);
    void endFile(const mpv_event_end_file &event);
    void playbackRestarted();
    void tellStarted();
    void loaded(Token file, const mpv_event &event);
    void answered(Reply what, const mpv_event &event);

    EngineListener *m_listener = nullptr;
    QObject m_thread; // its events run on the thread that made the engine
    std::atomic<bool> m_awake = false;

    Token m_lastToken = 0;
    Token m_current = 0; // given to open(), or followed by itself; files with lower numbers are history
    Token m_next = 0;
    QByteArray m_nextPath;
    QHash<qint64, Token> m_files; // by libmpv's number of the entry
    Token m_playing = 0;          // what libmpv says that it is at, as far as it was asked for
    bool m_started = false;       // and the listener knows it
    bool m_seeking = false;
    FileDetails m_details;
    // Goes first: until then libmpv's threads may wake this engine.
    std::unique_ptr<mpv_handle, HandleDeleter> m_handle;
};

} // namespace media
