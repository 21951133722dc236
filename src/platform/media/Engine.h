// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QtPlugin>

#include <memory>

namespace media {

/** One file given to the engine; 0 is none. */
using Token = quint64;

/** Why a file could not be played. */
enum class Failure { Unreadable, Damaged, NoSoundOutput };

/** What the engine finds in a file when it opens it. */
struct FileDetails
{
    double duration = 0;
    QString title, artist, album;
};

/** Hears from the engine, on the thread that made it and from its event loop. */
class EngineListener
{
public:
    virtual ~EngineListener() = default;
    virtual void fileDetails(Token file, const FileDetails &details) = 0;
    /** Sound comes, or would if it weren't paused; before ended() of the same file. */
    virtual void started(Token file) = 0;
    virtual void ended(Token file) = 0;
    /** Also possible after started(). */
    virtual void failed(Token file, Failure failure) = 0;
    /** An answer to askPosition(), or where a file that started or a seek() has arrived (@p jumped). */
    virtual void position(double seconds, bool jumped) = 0;
};

/** How the engine makes sound; see MediaOptions. */
struct EngineOptions
{
    QString audioOutput;
    QString outputFile;
    bool untimed = false;
};

/** Plays single files, one behind the other. No call waits for what it starts. */
class Engine
{
public:
    virtual ~Engine() = default;

    virtual void setListener(EngineListener *listener) = 0;
    /** Plays @p path in place of everything that was given before. */
    virtual Token open(const QString &path, bool paused) = 0;
    /** What plays without a gap after the current file; takes the place of one given before. Empty: nothing.
     */
    virtual Token setNext(const QString &path) = 0;
    virtual void stop() = 0;
    virtual void setPaused(bool paused) = 0;
    virtual void seek(double seconds) = 0;
    virtual void askPosition() = 0;
    virtual void setVolume(int percent) = 0;
    virtual void setMute(bool on) = 0;
};

/** What the module offers. */
class EngineFactory
{
public:
    virtual ~EngineFactory() = default;
    /** @throws std::runtime_error with a sentence when no engine can be made. */
    [[nodiscard]] virtual std::unique_ptr<Engine> makeEngine(const EngineOptions &options) const = 0;
};

} // namespace media

Q_DECLARE_INTERFACE(media::EngineFactory, "org.quaverly.MediaEngine/1")
