// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/media/Media.h"
#include "support/Files.h"

#include <QTemporaryDir>

#include <functional>
#include <memory>

namespace media::test {

/** Songs and lists in a temporary folder, and a player that plays them to nowhere and notes its events. */
class MediaTest : public ::testing::Test
{
protected:
    MediaTest();

    /** A playable song of a second; its name tells its type. Gives the path. */
    QString song(const QString &name);
    /** Silence that lasts long enough to be in the midst of it. */
    QString longSong(const QString &name);
    QString file(const QString &name, const QByteArray &bytes);
    QString path(const QString &name) const { return m_folder.filePath(name); }
    /** A list of these paths, as the program writes it. */
    QString list(const QStringList &paths, const QString &name = QStringLiteral("QVPlayList.m3u"));

    static MediaOptions silently(bool untimed);
    /** In place of the one from the test's beginning, which is fast and silent. */
    void usePlayer(const MediaOptions &options);
    MediaPlayer &player() { return *m_player; }
    void dropPlayer() { m_player.reset(); }

    /** The events since the last call: states by number, items as "item NAME", "skip NAME", "error". */
    QStringList events();
    /** Lets events come until that one was told; what was told with it, all in one text. */
    QString eventsUntil(const QString &last);
    QString eventsUntilStopped() { return eventsUntil(QStringLiteral("1")); }

    /** Runs while that event is told. */
    void on(const QString &event, std::function<void()> act);

    QStringList m_sentences; // of skips and errors

private:
    void note(const QString &event);

    QTemporaryDir m_folder;
    QStringList m_events;
    QString m_awaited;
    std::function<void()> m_act;
    std::unique_ptr<MediaPlayer> m_player;
};

} // namespace media::test
