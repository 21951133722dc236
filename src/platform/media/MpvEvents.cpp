// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/MpvEngine.h"

#include <mpv/client.h>

#include <utility>

using namespace Qt::StringLiterals;

// The half of the engine that hears what libmpv says.
namespace media {

namespace {

constexpr quint64 ReplyMask = 7;

Failure failureOf(int error)
{
    switch (error) {
    case MPV_ERROR_AO_INIT_FAILED:
        return Failure::NoSoundOutput;
    case MPV_ERROR_LOADING_FAILED:
        return Failure::Unreadable;
    default:
        return Failure::Damaged;
    }
}

/** The text of an entry, whose name may be written in any case; null without one. */
QString textOf(const mpv_node &map, QLatin1StringView name)
{
    if (map.format != MPV_FORMAT_NODE_MAP)
        return {};
    for (int i = 0; i < map.u.list->num; ++i) {
        const mpv_node &value = map.u.list->values[i];
        if (value.format == MPV_FORMAT_STRING &&
            name.compare(QLatin1StringView(map.u.list->keys[i]), Qt::CaseInsensitive) == 0)
            return QString::fromUtf8(value.u.string);
    }
    return {};
}

qint64 entryOf(const mpv_node &map)
{
    if (map.format == MPV_FORMAT_NODE_MAP) {
        for (int i = 0; i < map.u.list->num; ++i) {
            if (qstrcmp(map.u.list->keys[i], "playlist_entry_id") == 0)
                return map.u.list->values[i].u.int64;
        }
    }
    return -1;
}

} // namespace

void MpvEngine::wake()
{
    if (!m_awake.exchange(true))
        QMetaObject::invokeMethod(
            &m_thread, [this] { drain(); }, Qt::QueuedConnection);
}

void MpvEngine::drain()
{
    m_awake = false;
    for (;;) {
        const mpv_event *event = mpv_wait_event(m_handle.get(), 0);
        if (event->event_id == MPV_EVENT_NONE)
            return;
        handle(*event);
    }
}

void MpvEngine::handle(const mpv_event &event)
{
    const auto what = Reply(event.reply_userdata & ReplyMask);
    const Token file = event.reply_userdata >> 3;
    switch (event.event_id) {
    case MPV_EVENT_COMMAND_REPLY:
        if (what == Reply::Loaded)
            loaded(file, event);
        break;
    case MPV_EVENT_GET_PROPERTY_REPLY:
        if (file == m_playing)
            answered(what, event);
        break;
    case MPV_EVENT_START_FILE:
        startFile(static_cast<mpv_event_start_file *>(event.data)->playlist_entry_id);
        break;
    case MPV_EVENT_END_FILE:
        endFile(*static_cast<mpv_event_end_file *>(event.data));
        break;
    case MPV_EVENT_FILE_LOADED:
        ask("duration", MPV_FORMAT_DOUBLE, Reply::Duration);
        ask("metadata", MPV_FORMAT_NODE, Reply::Metadata);
        break;
    case MPV_EVENT_PLAYBACK_RESTART:
        playbackRestarted();
        break;
    default:
        break;
    }
}

void MpvEngine::ask(const char *property, int format, Reply what)
{
    if (m_playing != 0)
        mpv_get_property_async(m_handle.get(), replyFor(what, m_playing), property, mpv_format(format));
}

/** Comes before the entry of that number starts. */
void MpvEngine::loaded(Token file, const mpv_event &event)
{
    if (event.error >= 0)
        m_files.insert(entryOf(static_cast<mpv_event_command *>(event.data)->result), file);
    else if (file == m_current)
        m_listener->failed(file, Failure::Unreadable);
}

void MpvEngine::startFile(qint64 entry)
{
    m_playing = m_files.value(entry);
    m_files.removeIf([entry](const auto &file) { return file.key() < entry; });
    m_started = false;
    m_seeking = false;
    m_details = {};
    if (m_playing != 0 && m_playing == m_next) {
        m_current = std::exchange(m_next, 0);
    } else if (m_playing > m_current) {
        // It was to follow, and was taken back while libmpv went on to it.
        m_playing = 0;
        if (m_next != 0)
            load(m_nextPath, "replace", m_next);
        else
            send({"stop"});
    } else if (m_playing < m_current) {
        m_playing = 0;
    }
}

void MpvEngine::endFile(const mpv_event_end_file &event)
{
    if (m_playing == 0)
        return;
    if (event.reason == MPV_END_FILE_REASON_EOF) {
        tellStarted();
        m_listener->ended(std::exchange(m_playing, 0));
    } else if (event.reason == MPV_END_FILE_REASON_ERROR) {
        m_listener->failed(std::exchange(m_playing, 0), failureOf(event.error));
    } else {
        m_playing = 0;
    }
}

void MpvEngine::playbackRestarted()
{
    // Comes without a sound output too, shortly before the file fails for it.
    if (!m_started)
        ask("current-ao", MPV_FORMAT_STRING, Reply::Output);
    if (std::exchange(m_seeking, false))
        ask("time-pos", MPV_FORMAT_DOUBLE, Reply::JumpedTo);
}

void MpvEngine::tellStarted()
{
    if (!std::exchange(m_started, true))
        m_listener->started(m_playing);
}

void MpvEngine::answered(Reply what, const mpv_event &event)
{
    const bool known = event.error >= 0;
    const void *value = known ? static_cast<mpv_event_property *>(event.data)->data : nullptr;
    switch (what) {
    case Reply::Output:
        if (known)
            tellStarted();
        break;
    case Reply::Duration:
        m_details.duration = known ? *static_cast<const double *>(value) : 0;
        break;
    case Reply::Metadata:
        if (known) {
            const auto &tags = *static_cast<const mpv_node *>(value);
            m_details.title = textOf(tags, "title"_L1);
            m_details.artist = textOf(tags, "artist"_L1);
            m_details.album = textOf(tags, "album"_L1);
        }
        m_listener->fileDetails(m_playing, m_details);
        break;
    case Reply::Position:
    case Reply::JumpedTo:
        if (known && !m_seeking)
            m_listener->position(*static_cast<const double *>(value), what == Reply::JumpedTo);
        break;
    case Reply::None:
    case Reply::Loaded:
        break;
    }
}

} // namespace media
