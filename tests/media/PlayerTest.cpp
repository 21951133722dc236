// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/MediaFixture.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace media::test {

namespace {

const QStringList Types = {u"mp3"_s, u"m4a"_s, u"mp4"_s, u"flac"_s, u"ogg"_s, u"wma"_s, u"wav"_s, u"aac"_s};

class PlayerTest : public MediaTest
{};

// --- one file

TEST_F(PlayerTest, OneFileOfEachTypePlaysToItsEnd)
{
    for (const QString &type : Types) {
        SCOPED_TRACE(type.toStdString());
        player().setURL(song(u"song."_s + type));
        EXPECT_TRUE(events().isEmpty()) << "nothing is told from inside the call";
        EXPECT_EQ(eventsUntilStopped(), u"10, item song, 9, 3, 8, 1"_s);
        EXPECT_EQ(player().currentMedia().sourceURL, path(u"song."_s + type));
    }
    EXPECT_TRUE(m_sentences.isEmpty()) << m_sentences.join(u' ').toStdString();
}

TEST_F(PlayerTest, LengthAndTagsAreKnownWhenItPlays)
{
    usePlayer(silently(false));
    for (const QString &type : Types) {
        SCOPED_TRACE(type.toStdString());
        player().setURL(song(u"song."_s + type));
        eventsUntil(u"3"_s);
        EXPECT_NEAR(player().currentMedia().duration, 1, 0.2);
        EXPECT_EQ(player().currentMedia().title, u"Title of song"_s);
        EXPECT_EQ(player().currentMedia().artist, u"Somebody"_s);
    }
}

TEST_F(PlayerTest, NamesWithAnyCharacterPlay)
{
    for (const QString &name : {u"a#b.mp3"_s, u"50%25.mp3"_s, u"it's \"quoted\".mp3"_s, u"line\nbreak.mp3"_s,
                                u"--option=1.mp3"_s, u"音楽 ü.mp3"_s, u"a;b,[c].mp3"_s, u"%n.mp3"_s}) {
        SCOPED_TRACE(name.toStdString());
        player().setURL(song(name));
        EXPECT_EQ(eventsUntilStopped(), u"10, item %1, 9, 3, 8, 1"_s.arg(name.chopped(4)));
    }
}

TEST_F(PlayerTest, WhatAnEventsHandlerAsksForComesBehindTheEvent)
{
    const QString first = song(u"first.mp3"_s);
    const QString second = song(u"second.mp3"_s);
    player().setURL(first);
    on(u"8"_s, [&] { player().setURL(second); });
    EXPECT_EQ(eventsUntil(u"item second"_s), u"10, item first, 9, 3, 8, 10, item second"_s);
    EXPECT_EQ(player().playState(), Ready) << "it waits for play";
    on(u"8"_s, [&] { player().controls().play(); });
    player().controls().play();
    EXPECT_EQ(eventsUntilStopped(), u"9, 3, 8, 9, 3, 8, 1"_s);

    player().setURL(first);
    on(u"8"_s, [&] {
        player().setURL(second);
        on(u"10"_s, [&] { player().controls().play(); });
    });
    EXPECT_EQ(eventsUntilStopped(), u"10, item first, 9, 3, 8, 10, item second, 9, 3, 8, 1"_s);
}

TEST_F(PlayerTest, FilesThatCannotBePlayedEndWithASentence)
{
    const std::tuple<QString, QString, const char *> cases[] = {
        {path(u"gone.mp3"_s), u"10, item gone, 9, error, 1"_s, "was not found"},
        {file(u"empty.mp3"_s, {}), u"10, item empty, 9, error, 1"_s, "it is empty"},
        {file(u"noise.mp3"_s, QByteArray("\x01\x80\x7Fnoise", 8).repeated(500)),
         u"10, item noise, 9, error, 1"_s, "it is damaged"},
        {path(u"."_s), u"10, item %1, 9, error, 1"_s.arg(QFileInfo(path(QString())).fileName()),
         "it is no file"},
        {u"http://127.0.0.1:9/a.mp3"_s, u"10, item a, 9, error, 1"_s, "only files on this machine"},
        {file(u"list.m3u"_s, "\r\n# nothing\r\n"), u"error, 1"_s, "names no songs"},
        {path(u"gone.m3u"_s), u"error, 1"_s, "can't be read"},
    };
    for (const auto &[path, events, sentence] : cases) {
        SCOPED_TRACE(path.toStdString());
        m_sentences.clear();
        player().setURL(path);
        on(u"1"_s,
           [&] { player().controls().play(); }); // as a screen does that repeats; it is not tried again
        EXPECT_EQ(eventsUntilStopped(), events);
        ASSERT_EQ(m_sentences.size(), 1);
        EXPECT_TRUE(m_sentences.first().contains(QLatin1StringView(sentence)))
            << m_sentences.first().toStdString();
    }
    player().setURL(song(u"a.mp3"_s));
    EXPECT_EQ(eventsUntilStopped(), u"10, item a, 9, 3, 8, 1"_s);
}

TEST_F(PlayerTest, WithoutASoundOutputOrTheModuleTheListStopsAtOnce)
{
    const QString songs = list({song(u"a.mp3"_s), song(u"b.mp3"_s)});
    usePlayer({.audioOutput = u"nosuchoutput"_s, .outputFile = {}, .untimed = false, .moduleFolder = {}});
    player().setURL(songs);
    EXPECT_EQ(eventsUntilStopped(), u"10, item a, 9, error, 1"_s);
    usePlayer({.audioOutput = {}, .outputFile = {}, .untimed = false, .moduleFolder = path(QString())});
    player().setURL(songs);
    EXPECT_EQ(eventsUntilStopped(), u"10, item a, 9, error, 1"_s);
    EXPECT_TRUE(m_sentences.first().contains("no sound output"_L1)) << m_sentences.first().toStdString();
    EXPECT_TRUE(m_sentences.last().contains("quaverly-media"_L1)) << m_sentences.last().toStdString();
}

// --- in the midst of a song

class LongSongTest : public MediaTest
{
protected:
    LongSongTest() { usePlayer(silently(false)); }
    void playLongSong()
    {
        player().setURL(longSong(u"long.wav"_s));
        eventsUntil(u"3"_s);
    }
};

TEST_F(LongSongTest, PauseAndPlayAndStop)
{
    playLongSong();
    player().controls().pause();
    EXPECT_EQ(eventsUntil(u"2"_s), u"2"_s);
    player().controls().pause();
    player().controls().play();
    EXPECT_EQ(eventsUntil(u"3"_s), u"3"_s);
    player().controls().stop();
    EXPECT_EQ(eventsUntilStopped(), u"1"_s);
    EXPECT_EQ(player().controls().currentPosition(), 0);
    player().controls().play();
    EXPECT_EQ(eventsUntil(u"3"_s), u"9, 3"_s);
}

TEST_F(LongSongTest, PositionMovesAndCanBeSet)
{
    playLongSong();
    double position = 0;
    double jump = -1;
    QObject::connect(&player(), &MediaPlayer::positionChanged, &player(), [&](double to) { position = to; });
    QObject::connect(&player(), &MediaPlayer::seeked, &player(), [&](double to) { jump = to; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return position > 0; }));

    player().controls().setCurrentPosition(300);
    EXPECT_EQ(player().controls().currentPosition(), 300);
    EXPECT_TRUE(QTest::qWaitFor([&] { return jump >= 0; }));
    EXPECT_NEAR(jump, 300, 0.5);
    EXPECT_NEAR(player().currentMedia().duration, 600, 0.1);

    player().controls().setCurrentPosition(10'000);
    EXPECT_EQ(eventsUntilStopped(), u"8, 1"_s);
}

TEST_F(LongSongTest, AnotherItemInTheMidst)
{
    player().setURL(list({longSong(u"a.wav"_s), longSong(u"b.wav"_s), longSong(u"c.wav"_s)}));
    eventsUntil(u"3"_s);
    player().controls().next();
    EXPECT_EQ(eventsUntil(u"3"_s), u"9, item b, 3"_s);
    player().controls().pause();
    eventsUntil(u"2"_s);
    player().controls().previous();
    EXPECT_EQ(eventsUntil(u"2"_s), u"9, item a, 2"_s) << "it stays paused";
    player().controls().play();
    eventsUntil(u"3"_s);
    player().controls().previous();
    EXPECT_EQ(eventsUntil(u"3"_s), u"1, item c, 9, 3"_s);
    player().controls().next();
    EXPECT_EQ(eventsUntil(u"3"_s), u"10, item a, 9, 3"_s);

    // As a click in the list does it.
    player().controls().stop();
    player().controls().setCurrentItem(player().currentPlaylist().Item(2));
    player().controls().play();
    player().controls().setCurrentItem(player().currentPlaylist().Item(2));
    EXPECT_EQ(eventsUntil(u"3"_s), u"9, item c, 3"_s);

    player().controls().stop();
    eventsUntilStopped();
    player().controls().next();
    EXPECT_EQ(eventsUntil(u"item a"_s), u"10, item a"_s);
    player().controls().play();
    EXPECT_EQ(eventsUntil(u"3"_s), u"9, 3"_s);
}

TEST_F(LongSongTest, AFileThatVanishesPlaysOn)
{
    playLongSong();
    ASSERT_TRUE(QFile::remove(path(u"long.wav"_s)));
    player().controls().setCurrentPosition(599.9);
    EXPECT_EQ(eventsUntilStopped(), u"8, 1"_s);
    player().controls().play();
    EXPECT_EQ(eventsUntilStopped(), u"9, error, 1"_s);
}

TEST_F(LongSongTest, ThePlayerMayGoAtAnyMoment)
{
    const auto threads = [] { return QDir(u"/proc/self/task"_s).count(); };
    const QString songs = list({longSong(u"a.wav"_s), longSong(u"b.wav"_s)});
    const auto before = threads();
    for (const QString &moment : {u"10"_s, u"item a"_s, u"9"_s, u"3"_s}) {
        SCOPED_TRACE(moment.toStdString());
        player().setURL(songs);
        bool gone = false;
        on(moment, [&] {
            dropPlayer();
            gone = true;
        });
        EXPECT_TRUE(QTest::qWaitFor([&] { return gone; }));
        usePlayer(silently(false));
    }
    player().setURL(songs);
    dropPlayer();
    EXPECT_EQ(threads(), before);
}

} // namespace

} // namespace media::test
