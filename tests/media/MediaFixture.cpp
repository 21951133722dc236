// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/MediaFixture.h"

#include "samples/SampleMaker.h"
#include "samples/Silence.h"

#include <QTest>

#include <utility>

using namespace Qt::StringLiterals;

namespace media::test {

MediaOptions MediaTest::silently(bool untimed)
{
    return {.audioOutput = u"null"_s, .outputFile = {}, .untimed = untimed, .moduleFolder = {}};
}

MediaTest::MediaTest()
{
    usePlayer(silently(true));
}

void MediaTest::usePlayer(const MediaOptions &options)
{
    m_player = MediaFactory(options).makeMediaPlayer();
    MediaPlayer *made = m_player.get();
    QObject::connect(made, &MediaPlayer::PlayStateChange, made, [this](int state) {
        EXPECT_EQ(player().playState(), state);
        note(QString::number(state));
    });
    QObject::connect(made, &MediaPlayer::CurrentItemChange, made,
                     [this] { note(u"item "_s + player().currentMedia().name); });
    QObject::connect(made, &MediaPlayer::itemSkipped, made, [this](const QString &url, const QString &why) {
        m_sentences.append(why);
        note(u"skip "_s + QFileInfo(url).completeBaseName());
    });
    QObject::connect(made, &MediaPlayer::mediaError, made, [this](const QString &why) {
        m_sentences.append(why);
        note(u"error"_s);
    });
}

void MediaTest::note(const QString &event)
{
    m_events.append(event);
    if (m_act && event == m_awaited)
        std::exchange(m_act, nullptr)();
}

void MediaTest::on(const QString &event, std::function<void()> act)
{
    m_awaited = event;
    m_act = std::move(act);
}

QStringList MediaTest::events()
{
    return std::exchange(m_events, {});
}

QString MediaTest::eventsUntil(const QString &last)
{
    EXPECT_TRUE(QTest::qWaitFor([&] { return m_events.contains(last); }, 20'000)) << last.toStdString();
    const qsizetype end = m_events.indexOf(last) + 1;
    const QString told = m_events.first(end).join(u", "_s);
    m_events.remove(0, end);
    return told;
}

QString MediaTest::file(const QString &name, const QByteArray &bytes)
{
    quaverly::test::writeFile(path(name), bytes);
    return path(name);
}

QString MediaTest::song(const QString &name)
{
    samples::SongTags tags;
    tags.title = u"Title of "_s + QFileInfo(name).completeBaseName();
    tags.artist = u"Somebody"_s;
    samples::makeSong(path(name), tags);
    return path(name);
}

QString MediaTest::longSong(const QString &name)
{
    return file(name, samples::silence(u"wav", 600));
}

QString MediaTest::list(const QStringList &paths, const QString &name)
{
    return file(name, (paths.join(u"\r\n"_s) + u"\r\n"_s).toUtf8());
}

} // namespace media::test
