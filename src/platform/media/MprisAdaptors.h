// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/media/Remote.h"

#include <QDBusAbstractAdaptor>
#include <QDBusObjectPath>
#include <QStringList>
#include <QVariantMap>

namespace media {

/** The interface org.mpris.MediaPlayer2: the program as a whole. */
class MprisRoot final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2")
    Q_PROPERTY(bool CanQuit READ yes CONSTANT)
    Q_PROPERTY(bool CanRaise READ yes CONSTANT)
    Q_PROPERTY(bool HasTrackList READ no CONSTANT)
    Q_PROPERTY(QString Identity READ identity CONSTANT)
    Q_PROPERTY(QString DesktopEntry READ desktopEntry CONSTANT)
    Q_PROPERTY(QStringList SupportedUriSchemes READ none CONSTANT)
    Q_PROPERTY(QStringList SupportedMimeTypes READ none CONSTANT)

public:
    MprisRoot(QObject *parent, RemoteTarget &target) : QDBusAbstractAdaptor(parent), m_target(target) {}

    [[nodiscard]] bool yes() const { return true; }
    [[nodiscard]] bool no() const { return false; }
    [[nodiscard]] QString identity() const;
    [[nodiscard]] QString desktopEntry() const;
    [[nodiscard]] QStringList none() const { return {}; }

public Q_SLOTS:
    Q_NOREPLY void Raise() { m_target.raise(); }
    Q_NOREPLY void Quit() { m_target.quit(); }

private:
    RemoteTarget &m_target;
};

/** The interface org.mpris.MediaPlayer2.Player. Times are in microseconds there. */
class MprisPlayer final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2.Player")
    Q_PROPERTY(QString PlaybackStatus READ playbackStatus)
    Q_PROPERTY(QString LoopStatus READ loopStatus WRITE setLoopStatus)
    Q_PROPERTY(double Rate READ rate WRITE setRate)
    Q_PROPERTY(double MinimumRate READ rate)
    Q_PROPERTY(double MaximumRate READ rate)
    Q_PROPERTY(bool Shuffle READ shuffle WRITE setShuffle)
    Q_PROPERTY(QVariantMap Metadata READ metadata)
    Q_PROPERTY(double Volume READ volume WRITE setVolume)
    Q_PROPERTY(qlonglong Position READ position)
    Q_PROPERTY(bool CanGoNext READ canGoNext)
    Q_PROPERTY(bool CanGoPrevious READ canGoPrevious)
    Q_PROPERTY(bool CanPlay READ hasSong)
    Q_PROPERTY(bool CanPause READ hasSong)
    Q_PROPERTY(bool CanSeek READ canSeek)
    Q_PROPERTY(bool CanControl READ yes CONSTANT)

public:
    MprisPlayer(QObject *parent, RemoteTarget &target) : QDBusAbstractAdaptor(parent), m_target(target) {}

    [[nodiscard]] QString playbackStatus() const;
    [[nodiscard]] QString loopStatus() const;
    void setLoopStatus(const QString &status);
    [[nodiscard]] double rate() const { return 1; }
    void setRate(double rate);
    [[nodiscard]] bool shuffle() const { return m_target.status().shuffle; }
    void setShuffle(bool on) { m_target.setShuffle(on); }
    [[nodiscard]] QVariantMap metadata() const;
    [[nodiscard]] double volume() const { return m_target.status().volume; }
    void setVolume(double volume) { m_target.setVolume(volume); }
    [[nodiscard]] qlonglong position() const;
    [[nodiscard]] bool canGoNext() const { return m_target.status().canGoNext; }
    [[nodiscard]] bool canGoPrevious() const { return m_target.status().canGoPrevious; }
    [[nodiscard]] bool hasSong() const { return m_target.status().track >= 0; }
    [[nodiscard]] bool canSeek() const { return m_target.status().length > 0; }
    [[nodiscard]] bool yes() const { return true; }

public Q_SLOTS:
    void Next() { m_target.next(); }
    void Previous() { m_target.previous(); }
    void Play() { m_target.play(); }
    void Pause() { m_target.pause(); }
    void Stop() { m_target.stop(); }
    void PlayPause();
    void Seek(qlonglong Offset);
    void SetPosition(const QDBusObjectPath &TrackId, qlonglong Position);
    void OpenUri(const QString &Uri);

Q_SIGNALS:
    void Seeked(qlonglong Position);

private:
    [[nodiscard]] QDBusObjectPath trackId() const;

    RemoteTarget &m_target;
};

} // namespace media
