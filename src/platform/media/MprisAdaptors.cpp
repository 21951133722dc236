// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/MprisAdaptors.h"

#include <QUrl>
#include <QtMath>

using namespace Qt::StringLiterals;

namespace media {

namespace {

constexpr double MicrosecondsPerSecond = 1e6;
const auto NoLoop = u"None"_s;
const auto ListLoop = u"Playlist"_s;

qlonglong microseconds(double seconds)
{
    return qRound64(seconds * MicrosecondsPerSecond);
}

void insertIfAny(QVariantMap &map, const QString &name, const QVariant &value, const QString &text)
{
    if (!text.isEmpty())
        map.insert(name, value);
}

} // namespace

QString MprisRoot::identity() const
{
    return u"Quaverly"_s;
}

QString MprisRoot::desktopEntry() const
{
    return u"quaverly"_s;
}

QString MprisPlayer::playbackStatus() const
{
    switch (m_target.status().playback) {
    case RemoteStatus::Playback::Playing:
        return u"Playing"_s;
    case RemoteStatus::Playback::Paused:
        return u"Paused"_s;
    case RemoteStatus::Playback::Stopped:
        break;
    }
    return u"Stopped"_s;
}

QString MprisPlayer::loopStatus() const
{
    return m_target.status().loop ? ListLoop : NoLoop;
}

void MprisPlayer::setLoopStatus(const QString &status)
{
    // "Track" is a mode that this player doesn't have.
    if (status == NoLoop || status == ListLoop)
        m_target.setLoop(status == ListLoop);
}

void MprisPlayer::setRate(double rate)
{
    // The one rate is 1; 0 means the same as Pause.
    if (rate == 0)
        m_target.pause();
}

QDBusObjectPath MprisPlayer::trackId() const
{
    const qsizetype track = m_target.status().track;
    return QDBusObjectPath(track < 0 ? u"/org/mpris/MediaPlayer2/TrackList/NoTrack"_s
                                     : u"/org/quaverly/Track/%1"_s.arg(track));
}

QVariantMap MprisPlayer::metadata() const
{
    const RemoteStatus status = m_target.status();
    if (status.track < 0)
        return {};
    QVariantMap map = {{u"mpris:trackid"_s, QVariant::fromValue(trackId())}};
    insertIfAny(map, u"xesam:title"_s, status.title, status.title);
    insertIfAny(map, u"xesam:artist"_s, QStringList(status.artist), status.artist);
    insertIfAny(map, u"xesam:album"_s, status.album, status.album);
    insertIfAny(map, u"xesam:url"_s, QString::fromLatin1(QUrl::fromLocalFile(status.file).toEncoded()),
                status.file);
    if (status.length > 0)
        map.insert(u"mpris:length"_s, microseconds(status.length));
    return map;
}

qlonglong MprisPlayer::position() const
{
    return microseconds(m_target.position());
}

void MprisPlayer::PlayPause()
{
    if (m_target.status().playback == RemoteStatus::Playback::Playing)
        m_target.pause();
    else
        m_target.play();
}

void MprisPlayer::Seek(qlonglong Offset)
{
    const double to = m_target.position() + double(Offset) / MicrosecondsPerSecond;
    const double length = m_target.status().length;
    if (length > 0 && to > length)
        m_target.next();
    else
        m_target.setPosition(qMax(to, 0.0));
}

void MprisPlayer::SetPosition(const QDBusObjectPath &TrackId, qlonglong Position)
{
    // A wish that crossed the change to another song is too late.
    if (TrackId == trackId() && Position >= 0 && Position <= microseconds(m_target.status().length))
        m_target.setPosition(double(Position) / MicrosecondsPerSecond);
}

void MprisPlayer::OpenUri(const QString & /*Uri*/)
{
    // No scheme is offered; what plays is chosen on the screens.
}

} // namespace media
