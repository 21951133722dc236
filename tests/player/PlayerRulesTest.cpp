// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/PlayerRules.h"

#include "player/NextSong.h"
#include "support/QtPrinters.h"

using namespace Qt::StringLiterals;
using namespace quaverly;

namespace {

const QString OneFile = u"/music/a.mp3"_s;
const QString ListFile = u"/home/anna/qvplaylist.M3U"_s;

constexpr int Stopped = 1, Paused = 2, Playing = 3, Ended = 8, Transitioning = 9, Ready = 10;

constexpr StateStep Follow = StateStep::Follow;

struct StateCase
{
    const char *what;
    StateChange change;
    StateDecision decision;
};

const StateCase StateCases[] = {
    {"ready, next", {Ready, Ready, OneFile, {.cbPlayNext = true}, 1, 0}, {StateStep::Play}},
    {"ready, random, a list too", {Ready, Ready, ListFile, {.cbPlayRandom = true}, 3, 0}, {StateStep::Play}},
    {"ready, nothing checked", {Ready, Ready, OneFile, {}, 1, -1}, {Follow, {}}},
    {"one song loops when stopped", {Stopped, Stopped, OneFile, {.cbLoop = true}, 1, 0}, {StateStep::Play}},
    {"and at its end, in a list too", {Ended, Ended, ListFile, {.cbLoop = true}, 1, 0}, {StateStep::Play}},
    {"two songs loop by the control",
     {Stopped, Stopped, ListFile, {.cbLoop = true}, 2, 1},
     {Follow, {false, false, false}}},
    {"no loop while paused", {Paused, Paused, OneFile, {.cbLoop = true}, 1, 0}, {Follow, {false}}},
    {"the end of one file", {Ended, Ended, OneFile, {}, 1, 0}, {StateStep::Unload}},
    {"and of the program", {Ended, Ended, OneFile, {}, 1, 0, true}, {StateStep::EndProgram}},
    {"random before next",
     {Ended, Ended, OneFile, {.cbPlayNext = true, .cbPlayRandom = true}, 1, 0},
     {StateStep::PlayRandom}},
    {"next", {Ended, Ended, OneFile, {.cbPlayNext = true}, 1, 0, true}, {StateStep::PlayNext}},
    {"next in a list only follows",
     {Ended, Ended, ListFile, {.cbPlayNext = true}, 3, 1},
     {Follow, {false, true, false}}},
    {"a list moves on", {Ended, Ended, ListFile, {}, 3, 0}, {Follow, {false, true, false}}},
    {"from nothing selected", {Ended, Ended, ListFile, {}, 3, -1}, {Follow, {false, true, false}}},
    {"not from its last song", {Ended, Ended, ListFile, {}, 3, 2}, {Follow, {false, false, false}}},
    {"passing over duplicates",
     {Ended, Ended, ListFile, {.cbSkipDups = true}, 3, 0},
     {Follow, {false, true, true}}},
    {"a stop with duplicates skipped starts again",
     {Stopped, Stopped, ListFile, {.cbSkipDups = true}, 3, 2},
     {Follow, {true, false, false}}},
    {"the list of one song stays open", {Ended, Ended, ListFile, {}, 1, 0}, {Follow, {false}}},
};

TEST(TheStateRules, DecideByTheFirstThatApplies)
{
    for (const StateCase &one : StateCases)
        EXPECT_EQ(decideStateChange(one.change), one.decision) << one.what;
}

SongQueue queueOf(const QStringList &songs, int listIndex)
{
    SongQueue queue;
    for (const QString &song : songs)
        queue.add(song, u"/m/"_s + song + u".mp3"_s);
    queue.setListIndex(listIndex);
    return queue;
}

TEST(TheDuplicates, ArePassedOverButTheLast)
{
    const std::tuple<QStringList, int, DuplicateSkip> cases[] = {
        {{u"a"_s, u"b"_s, u"c"_s}, 1, {0, 1}},
        {{u"a"_s, u"A"_s, u"c"_s, u"d"_s}, 1, {1, 2}},
        {{u"a"_s, u"a"_s, u"a"_s, u"b"_s, u"c"_s}, 1, {2, 3}},
        {{u"a"_s, u"a"_s}, 1, {0, 1}},
        // Skipping on to the last row leads to the first.
        {{u"a"_s, u"b"_s, u"b"_s, u"c"_s}, 2, {2, 0}},
        {{u"a"_s, u"a"_s, u"a"_s}, 1, {2, 0}},
        {{u"a"_s, u"b"_s}, 0, {0, 0}},
        {{u"a"_s, u"b"_s}, -1, {0, -1}},
        {{}, -1, {0, -1}},
    };
    for (const auto &[songs, row, skip] : cases)
        EXPECT_EQ(skipDuplicates(queueOf(songs, row)), skip) << songs.join(u' ').toStdString() << row;
}

struct ItemCase
{
    const char *what;
    int playState;
    const char16_t *song;
    int ListIndex;
    bool cbLoop;
    bool cbShuffle;
    int row;
};

const ItemCase ItemCases[] = {
    {"the first song, ready", Ready, u"A", 3, false, false, 0},
    {"the first song, nothing selected", Transitioning, u"a", -1, false, false, 0},
    {"another one, nothing selected", Transitioning, u"b", -1, false, false, -1},
    {"the loop's wrap", Transitioning, u"a", 3, true, false, 0},
    {"'previous' on the last song is none", Transitioning, u"c", 3, true, false, 2},
    {"a loop in the middle", Transitioning, u"c", 1, true, false, 2},
    {"shuffled", Transitioning, u"D", 0, false, true, 3},
    {"shuffled to itself", Transitioning, u"b", 1, false, true, 1},
    {"shuffled out of the list", Transitioning, u"zz", 1, false, true, -1},
    {"previous from the first", Stopped, u"d", 0, false, false, 3},
    {"not while it plays", Stopped, u"b", 0, false, false, 0},
    {"here already", Playing, u"b", 1, false, false, 1},
    {"the row behind", Transitioning, u"c", 1, false, false, 2},
    {"the row before", Transitioning, u"a", 1, false, false, 0},
    {"over two that can't be played", Transitioning, u"d", 0, false, false, 3},
    {"none of the list's", Playing, u"zz", 2, false, false, 1},
    {"none of the list's, at its start", Playing, u"zz", 0, false, false, 0},
};

TEST(TheItemRules, KeepTheSelectionOnTheSong)
{
    for (const ItemCase &one : ItemCases) {
        const SongQueue queue = queueOf({u"a"_s, u"b"_s, u"c"_s, u"d"_s}, one.ListIndex);
        const ItemChange change{one.playState, u"/M/"_s + QString::fromUtf16(one.song) + u".mp3"_s, u"item"_s,
                                one.cbLoop, one.cbShuffle};
        EXPECT_EQ(decideItemChange(change, queue), one.row) << one.what;
    }
    const SongQueue queue = queueOf({u"a"_s, u"b"_s}, 0);
    const ItemChange unread{Transitioning, u"/m/b.mp3"_s, u"QVPlayList"_s};
    EXPECT_EQ(decideItemChange(unread, queue), 0) << "the list was not read yet";
}

TEST(TheSongsNames, AreThoseOfTheRowThatPlays)
{
    SongQueue queue;
    queue.add(u"Sun <> Tide"_s, u"/m/1.mp3"_s);
    queue.add(u"Sun & \"Moon\""_s, u"/m/2.mp3"_s);
    queue.add(u"Other <> Tide <> Sea"_s, u"/m/2.mp3"_s);
    queue.add(u"/m/3.mp3"_s, u"/m/3.mp3"_s);
    const auto told = [&](const QString &url) {
        const SongNames names = queue.namesOf(url);
        return names.SongName + u'|' + names.Artist;
    };
    EXPECT_EQ(told(u"/m/1.mp3"_s), u"Sun|Tide"_s);
    EXPECT_EQ(told(u"/m/2.mp3"_s), u"Sun & \"Moon\"|"_s);
    queue.setListIndex(2);
    EXPECT_EQ(told(u"/m/2.mp3"_s), u"Other|Tide <> Sea"_s) << "the selected one of two rows";
    EXPECT_EQ(told(u"/m/3.mp3"_s), u"|"_s) << "a path says less than the file's tags";
    EXPECT_EQ(told(u"/m/4.mp3"_s), u"|"_s);
}

TEST(TheRandomRow, HitsTheEndsHalfAsOften)
{
    const std::tuple<double, qint64, qint64> cases[] = {{0, 5, 0},        {0.124, 5, 0}, {0.126, 5, 1},
                                                        {0.125, 5, 0},    {0.375, 5, 2}, {0.874, 5, 3},
                                                        {0.999999, 5, 4}, {0, 1, 0},     {0.999, 1, 0}};
    for (const auto &[random, rows, row] : cases)
        EXPECT_EQ(randomRow(random, rows), row) << random;
}

} // namespace
