// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/MediaFixture.h"

#include "platform/media/ListFile.h"
#include "platform/media/PlayOrder.h"

#include <QSet>
#include <QTcpServer>
#include <QTest>

#include <ctime>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace media::test {

namespace {

class PlayListTest : public MediaTest
{
protected:
    QString three() { return list({song(u"a.mp3"_s), song(u"b.flac"_s), song(u"c.ogg"_s)}); }
};

TEST_F(PlayListTest, MissingAndDamagedItemsArePassedOver)
{
    const QString damaged = file(u"damaged.mp3"_s, QByteArray(3000, '\x7F'));
    player().setURL(list({song(u"a.mp3"_s), path(u"gone.mp3"_s), damaged, song(u"b.mp3"_s)}));
    EXPECT_EQ(eventsUntilStopped(),
              u"10, item a, 9, 3, 8, 9, item gone, skip gone, item damaged, skip damaged, "
              u"item b, 3, 8, 1"_s);
    EXPECT_EQ(player().currentPlaylist().count(), 4);
    EXPECT_EQ(m_sentences.size(), 2);
    player().setURL(list({path(u"x.mp3"_s), song(u"a.mp3"_s), path(u"y.mp3"_s)}));
    EXPECT_EQ(eventsUntilStopped(), u"10, item x, 9, skip x, item a, 3, 8, 9, item y, skip y, 1"_s);
}

TEST_F(PlayListTest, AListOfOnlyMissingItemsStopsEvenInALoop)
{
    const QString nothing = list({path(u"x.mp3"_s), path(u"y.mp3"_s)});
    for (const bool loop : {false, true}) {
        player().settings().setMode(u"loop"_s, loop);
        player().setURL(nothing);
        on(u"1"_s, [&] { player().controls().play(); });
        EXPECT_EQ(eventsUntilStopped(), u"10, item x, 9, skip x, item y, skip y, error, 1"_s);
    }
    player().setURL(song(u"a.mp3"_s));
    EXPECT_EQ(eventsUntil(u"8"_s), u"10, item a, 9, 3, 8"_s);
}

TEST_F(PlayListTest, NextAndStopInTheEndedEventCountFromTheItemToCome)
{
    player().setURL(three());
    on(u"8"_s, [&] { player().controls().next(); });
    EXPECT_EQ(eventsUntilStopped(), u"10, item a, 9, 3, 8, 9, item c, 3, 8, 1"_s);

    // From the last but one the list begins anew.
    player().controls().setCurrentItem(player().currentPlaylist().Item(1));
    player().controls().play();
    on(u"8"_s, [&] { player().controls().next(); });
    EXPECT_EQ(eventsUntil(u"3"_s), u"9, item b, 3"_s);
    EXPECT_EQ(eventsUntil(u"3"_s), u"8, 10, item a, 9, 3"_s);

    player().setURL(three());
    on(u"8"_s, [&] { player().controls().stop(); });
    EXPECT_EQ(eventsUntilStopped(), u"10, item a, 9, 3, 8, 1"_s);
    player().controls().play();
    EXPECT_EQ(eventsUntil(u"3"_s), u"9, 3"_s);
}

TEST_F(PlayListTest, LoopGoesRoundUntilItIsCleared)
{
    player().settings().setMode(u"loop"_s, true);
    player().setURL(three());
    EXPECT_EQ(eventsUntil(u"item c"_s), u"10, item a, 9, 3, 8, 9, item b, 3, 8, 9, item c"_s);
    EXPECT_EQ(eventsUntil(u"item c"_s), u"3, 8, 9, item a, 3, 8, 9, item b, 3, 8, 9, item c"_s);
    player().settings().setMode(u"loop"_s, false);
    EXPECT_EQ(eventsUntilStopped(), u"3, 8, 1"_s);
    player().controls().play();
    EXPECT_EQ(eventsUntil(u"3"_s), u"10, item a, 9, 3"_s) << "behind the end it starts with the first";
}

TEST_F(PlayListTest, BeforeItIsReadTheListIsItsOnlyItem)
{
    player().setURL(three());
    EXPECT_EQ(player().controls().currentItem().name, u"QVPlayList"_s);
    // Asking for its items reads it.
    const MediaItem last = player().currentPlaylist().Item(2);
    EXPECT_EQ(last.name, u"c"_s);
    player().controls().setCurrentItem(last);
    EXPECT_EQ(eventsUntilStopped(), u"10, item c, 9, 3, 8, 1"_s);
    EXPECT_TRUE(player().currentPlaylist().Item(3).isNull());
    EXPECT_TRUE(player().currentPlaylist().Item(-1).isNull());
}

TEST_F(PlayListTest, ItemsPlayWithoutAGap)
{
    const auto heard = [this](const QString &name, const QString &url, const QString &following = {}) {
        usePlayer({.audioOutput = u"pcm"_s, .outputFile = path(name), .untimed = true, .moduleFolder = {}});
        player().setURL(url);
        // Time for the second song to be made ready, which a song played at its own pace has.
        player().controls().pause();
        eventsUntil(u"2"_s);
        player().controls().setFollowing(following);
        player().controls().play();
        eventsUntilStopped();
        dropPlayer();
        const QByteArray bytes = quaverly::test::bytesOf(path(name));
        return bytes.size() - bytes.indexOf("data") - 8;
    };
    const qsizetype first = heard(u"first.wav"_s, song(u"a.flac"_s));
    const qsizetype second = heard(u"second.wav"_s, song(u"b.flac"_s));
    EXPECT_GT(first, 8000);
    EXPECT_EQ(heard(u"both.wav"_s, list({path(u"a.flac"_s), path(u"b.flac"_s)})), first + second);
    EXPECT_EQ(heard(u"next.wav"_s, path(u"a.flac"_s), path(u"b.flac"_s)), first + second);
}

// --- what stands in a music file or list that somebody else made

// Whatever is changed around it: the current item stays, and in random order each other one comes once.
TEST_F(PlayListTest, ChangesOfTheListLeaveTheCurrentItem)
{
    QRandomGenerator random(7);
    for (const bool shuffle : {false, true}) {
        PlayOrder order;
        order.setShuffle(shuffle);
        order.reset(6);
        QStringList items{u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s, u"f"_s};
        QSet<QString> toCome(items.begin(), items.end());
        const auto now = [&] { return items.at(order.current()); };
        toCome.remove(now());
        for (int step = 0; step < 400; ++step) {
            const QString before = now();
            const auto from = qsizetype(random.bounded(int(items.size())));
            const auto to = qsizetype(random.bounded(int(items.size())));
            switch (random.bounded(3)) {
            case 0:
                items.insert(to, QString::number(step));
                order.insert(to);
                toCome.insert(QString::number(step));
                break;
            case 1:
                items.move(from, to);
                order.move(from, to);
                break;
            default:
                if (from == order.current())
                    break;
                toCome.remove(items.takeAt(from));
                order.remove(from);
            }
            ASSERT_EQ(now(), before) << step;
            if (shuffle && step % 4 == 0 && order.following()) {
                order.next();
                ASSERT_TRUE(toCome.remove(now())) << now().toStdString() << " came twice";
            }
        }
        ASSERT_TRUE(!shuffle || toCome.size() < items.size());
    }
}

TEST_F(PlayListTest, OneFileGoesOnToWhatWasNamed)
{
    player().setURL(song(u"a.mp3"_s));
    const QString b = song(u"b.mp3"_s);
    on(u"3"_s, [&] { player().controls().setFollowing(b); });
    EXPECT_EQ(eventsUntil(u"item b"_s), u"10, item a, 9, 3, 8, 9, item b"_s);
    EXPECT_FALSE(player().controls().hasNext());
    EXPECT_TRUE(player().controls().hasPrevious());
    player().settings().setMode(u"loop"_s, true);
    EXPECT_EQ(eventsUntil(u"8"_s), u"3, 8"_s);
    EXPECT_EQ(eventsUntil(u"8"_s), u"9, 3, 8"_s) << "a loop repeats the one that plays";
    player().settings().setMode(u"loop"_s, false);
    EXPECT_EQ(eventsUntilStopped(), u"9, 3, 8, 1"_s);
    player().controls().play();
    EXPECT_EQ(eventsUntil(u"3"_s), u"9, 3"_s) << "not the first one again";
    player().controls().previous();
    EXPECT_EQ(eventsUntil(u"3"_s), u"9, item a, 3"_s);
    player().controls().setFollowing({});
    EXPECT_EQ(eventsUntilStopped(), u"8, 1"_s);
    EXPECT_EQ(player().currentPlaylist().count(), 1);
}

TEST_F(PlayListTest, OneOfTwoPlayersSounds)
{
    const MediaFactory factory(silently(false));
    const auto first = factory.makeMediaPlayer();
    const auto waitFor = [](MediaPlayer &player, PlayState state) {
        return QTest::qWaitFor([&] { return player.playState() == state; });
    };
    first->setURL(longSong(u"a.wav"_s));
    ASSERT_TRUE(waitFor(*first, Playing));
    {
        const auto second = factory.makeMediaPlayer();
        second->setURL(longSong(u"b.wav"_s));
        ASSERT_TRUE(waitFor(*second, Playing));
        EXPECT_TRUE(waitFor(*first, Paused));
        first->controls().play();
        ASSERT_TRUE(waitFor(*first, Playing));
        EXPECT_TRUE(waitFor(*second, Paused));
    }
    first->controls().pause();
    EXPECT_TRUE(waitFor(*first, Paused));
}

TEST_F(PlayListTest, NothingIsFetchedForAFileThatRefersElsewhere)
{
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    const QByteArray url = "http://127.0.0.1:" + QByteArray::number(server.serverPort()) + "/a.ts";
    const QByteArray local = song(u"real.mp3"_s).toUtf8();
    const QString hostile =
        list({file(u"list.mp3"_s, "#EXTM3U\n" + url + '\n'),
              file(u"segments.mp3"_s,
                   "#EXTM3U\n#EXT-X-TARGETDURATION:9\n#EXTINF:9,\n" + url + "\n#EXT-X-ENDLIST\n"),
              file(u"concat.mp3"_s, "ffconcat version 1.0\nfile " + url + '\n'),
              file(u"edl.mp3"_s, "# mpv EDL v0\n" + local + '\n'), QString::fromUtf8(url),
              u"edl://"_s + path(u"real.mp3"_s), u"av://lavfi:sine"_s, path(u"QVPlayList.m3u"_s)});
    player().setURL(hostile);
    const QString told = eventsUntilStopped();
    EXPECT_TRUE(told.endsWith(u"skip QVPlayList, error, 1"_s)) << told.toStdString();
    EXPECT_EQ(told.count(u"skip"_s), 8) << told.toStdString();
    EXPECT_FALSE(server.hasPendingConnections());
}

TEST_F(PlayListTest, LinesOfAList)
{
    const QByteArray folder = path(QString()).toUtf8();
    const std::tuple<const char *, QByteArray, QStringList> cases[] = {
        {"CR LF", "/a.mp3\r\n/b.mp3\r\n", {u"/a.mp3"_s, u"/b.mp3"_s}},
        {"LF and no end", "/a.mp3\n/b.mp3", {u"/a.mp3"_s, u"/b.mp3"_s}},
        {"comments and blanks", "#EXTM3U\n#EXTINF:1,x\n/a.mp3\n\n \t\n", {u"/a.mp3"_s}},
        {"a byte order mark", "\xEF\xBB\xBF/a.mp3\n", {u"/a.mp3"_s}},
        {"UTF-8", "/\xC3\xA9.mp3\n", {u"/é.mp3"_s}},
        {"the old code page", "/\xE9\x80.mp3\n", {u"/é€.mp3"_s}},
        {"blanks of a name", "/a .mp3 \n", {u"/a .mp3 "_s}},
        {"relative", "sub/../a.mp3\n", {path(u"a.mp3"_s)}},
        {"file URL", "file:///m%C3%BC%20x.mp3\n", {u"/mü x.mp3"_s}},
        {"other URL", "http://a/b.mp3\n", {u"http://a/b.mp3"_s}},
        {"a long line", QByteArray(1 << 20, 'x') + "\n/a.mp3\n", {u"/a.mp3"_s}},
        {"binary", QByteArray("/\0\1\2\n/a.mp3\n", 12), {u"/a.mp3"_s}},
        {"empty", "", {}},
    };
    for (const auto &[what, bytes, names] : cases)
        EXPECT_EQ(readListFile(file(u"case.m3u"_s, bytes)), names) << what;
    EXPECT_THROW((void)readListFile(u"/dev/zero"_s), std::runtime_error);
}

TEST_F(PlayListTest, AHundredThousandEntriesAreReadAtOnce)
{
    QByteArray bytes;
    for (int i = 0; i < 100'000; ++i)
        bytes +=
            "/home/somebody/Music/An Artist/An Album of Theirs/" + QByteArray::number(i) + " Song.mp3\r\n";
    const QString huge = file(u"huge.m3u"_s, bytes);
    const std::clock_t before = std::clock();
    player().setURL(huge);
    EXPECT_EQ(player().currentPlaylist().count(), 100'000);
    player().settings().setMode(u"shuffle"_s, true);
    for (int i = 0; i < 1000; ++i)
        player().controls().next();
    EXPECT_LT(std::clock() - before, CLOCKS_PER_SEC);
}

// --- the order alone

TEST(PlayOrderTest, AShuffledRoundHasEveryItemHoweverItIsWalked)
{
    PlayOrder order;
    order.setShuffle(true);
    order.setLoop(true);
    order.reset(5);
    std::vector<int> seen(5, 0);
    for (int i = 0; i < 5; ++i) {
        ++seen[size_t(order.current())];
        const qsizetype coming = *order.following();
        EXPECT_NE(coming, order.current());
        EXPECT_EQ(order.next().index, coming) << "what was promised comes";
    }
    EXPECT_EQ(seen, std::vector<int>(5, 1));
}

TEST(PlayOrderTest, AChosenItemComesNowAndNotAgain)
{
    PlayOrder order;
    order.setShuffle(true);
    order.reset(6);
    const qsizetype first = order.current();
    order.select((first + 3) % 6);
    std::vector<int> seen(6, 0);
    ++seen[size_t(first)];
    ++seen[size_t(order.current())];
    while (order.following())
        ++seen[size_t(order.next().index)];
    EXPECT_EQ(seen, std::vector<int>(6, 1));
    // Back in its own order the list goes on from where it is.
    const qsizetype here = order.current();
    order.setShuffle(false);
    EXPECT_EQ(order.current(), here);
    EXPECT_EQ(order.previous().index, (here + 5) % 6);
}

} // namespace

} // namespace media::test
