// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/MpvEngine.h"

#include <QFile>

#include <mpv/client.h>

#include <array>
#include <clocale>
#include <malloc.h>
#include <stdexcept>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace media {

namespace {

constexpr int LargeBlock = 4 * 1024 * 1024;

struct Option
{
    const char *name;
    const char *value;
};

// A library that plays local sound files and does nothing else: none of the user's settings, no scripts,
// no windows, no files but the one given, whatever that one refers to.
constexpr std::array FixedOptions = {
    Option{"config", "no"},
    Option{"load-scripts", "no"},
    Option{"load-stats-overlay", "no"},
    Option{"load-osd-console", "no"},
    Option{"load-auto-profiles", "no"},
    Option{"ytdl", "no"},
    Option{"osc", "no"},
    Option{"terminal", "no"},
    Option{"input-default-bindings", "no"},
    Option{"resume-playback", "no"},
    Option{"access-references", "no"},
    Option{"autoload-files", "no"},
    Option{"load-unsafe-playlists", "no"},
    Option{"demuxer", "lavf"},
    Option{"vid", "no"},
    Option{"sid", "no"},
    Option{"vo", "null"},
    Option{"audio-display", "no"},
    Option{"idle", "yes"},
    Option{"keep-open", "no"},
    Option{"prefetch-playlist", "yes"},
    Option{"gapless-audio", "weak"},
    Option{"volume-max", "100"},
    Option{"audio-client-name", "Quaverly"},
    Option{"title", "${media-title}"},
};

// Those that a desktop has; libmpv's own list goes on to some that take long to find out that they don't
// work.
constexpr char DesktopOutputs[] = "pulse,pipewire,alsa,jack";

[[noreturn]] void failSetUp(const char *reason)
{
    throw std::runtime_error(u"Music can't be played: %1."_s.arg(QString::fromUtf8(reason)).toStdString());
}

} // namespace

void MpvEngine::HandleDeleter::operator()(mpv_handle *handle) const
{
    mpv_set_wakeup_callback(handle, nullptr, nullptr);
    mpv_terminate_destroy(handle);
}

MpvEngine::MpvEngine(const EngineOptions &options)
{
    // libmpv takes ten megabytes for a moment at each file; from the heap they would leave ever more holes.
    ::mallopt(M_MMAP_THRESHOLD, LargeBlock);
    // libmpv refuses to work where numbers are written with a comma; nothing here reads them that way.
    std::setlocale(LC_NUMERIC, "C");
    m_handle.reset(mpv_create());
    if (!m_handle)
        failSetUp("the sound library can't be set up");
    configure(options);
    const int error = mpv_initialize(m_handle.get());
    if (error < 0)
        failSetUp(mpv_error_string(error));
    const auto onWakeUp = [](void *engine) { static_cast<MpvEngine *>(engine)->wake(); };
    mpv_set_wakeup_callback(m_handle.get(), onWakeUp, this);
}

MpvEngine::~MpvEngine() = default;

void MpvEngine::configure(const EngineOptions &options)
{
    const auto set = [this](const char *name, const QByteArray &value) {
        mpv_set_option_string(m_handle.get(), name, value.constData());
    };
    // An option that a later libmpv no longer knows is no reason to be silent.
    for (const Option &option : FixedOptions)
        set(option.name, option.value);
    set("ao", options.audioOutput.isEmpty() ? QByteArray(DesktopOutputs) : options.audioOutput.toUtf8());
    if (options.untimed)
        set("ao-null-untimed", "yes");
    if (!options.outputFile.isEmpty())
        set("ao-pcm-file", QFile::encodeName(options.outputFile));
}

// --- commands

void MpvEngine::send(std::initializer_list<const char *> command, quint64 reply)
{
    std::vector<const char *> arguments(command);
    arguments.push_back(nullptr);
    mpv_command_async(m_handle.get(), reply, arguments.data());
}

void MpvEngine::load(const QByteArray &path, const char *how, Token token)
{
    send({"loadfile", path.constData(), how}, replyFor(Reply::Loaded, token));
}

Token MpvEngine::open(const QString &path, bool paused)
{
    m_next = 0;
    m_current = ++m_lastToken;
    load(QFile::encodeName(path), "replace", m_current);
    setPaused(paused);
    return m_current;
}

Token MpvEngine::setNext(const QString &path)
{
    if (m_next != 0)
        send({"playlist-clear"}); // all but the file that plays
    m_next = 0;
    if (path.isEmpty())
        return 0;
    m_next = ++m_lastToken;
    m_nextPath = QFile::encodeName(path);
    // The current file may be over by the time that this arrives; then this one plays at once.
    load(m_nextPath, "append-play", m_next);
    return m_next;
}

void MpvEngine::stop()
{
    m_next = 0;
    m_current = ++m_lastToken;
    send({"stop"});
}

void MpvEngine::setPaused(bool paused)
{
    int flag = paused ? 1 : 0;
    mpv_set_property_async(m_handle.get(), 0, "pause", MPV_FORMAT_FLAG, &flag);
}

void MpvEngine::seek(double seconds)
{
    m_seeking = true;
    send({"seek", QByteArray::number(seconds, 'f', 3).constData(), "absolute+exact"});
}

void MpvEngine::askPosition()
{
    ask("time-pos", MPV_FORMAT_DOUBLE, Reply::Position);
}

void MpvEngine::setVolume(int percent)
{
    double volume = percent;
    mpv_set_property_async(m_handle.get(), 0, "volume", MPV_FORMAT_DOUBLE, &volume);
}

void MpvEngine::setMute(bool on)
{
    int flag = on ? 1 : 0;
    mpv_set_property_async(m_handle.get(), 0, "mute", MPV_FORMAT_FLAG, &flag);
}

} // namespace media
