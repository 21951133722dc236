// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/PlayFormFixture.h"

#include "player/Player.h"
#include "player/TemporaryList.h"
#include "samples/SampleMaker.h"
#include "support/UserActs.h"

#include <QAbstractItemModelTester>
#include <QListView>
#include <QSlider>
#include <QToolButton>

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

TEST_F(ThePlayer, ClosesBehindItsOneSong)
{
    makeSongs(u"ab"_s);
    playOne();
    EXPECT_EQ(m_events, (QStringList{u"10"_s, u"a.mp3"_s, u"9"_s, u"3"_s}));
    EXPECT_EQ(ListIndex(), 0);
    EXPECT_EQ(shown(u"lblCurrentSong"_s), u"a <> Artist"_s);
    finishSong();
    EXPECT_TRUE(closes());
    EXPECT_EQ(m_ends, 0);
    EXPECT_FALSE(m_state.PlayerOpen);
    EXPECT_EQ(m_state.CurrentPlayUrl, QString());
    EXPECT_EQ(m_state.CurrentPlayTitle, QString());
    EXPECT_FALSE(m_state.RestartingPlayer);

    m_lastScreen = true;
    playOne();
    m_state.RestartingPlayer = false;
    check(u"cbLoop"_s);
    goOnTo(u"a"_s, 0);
    check(u"cbLoop"_s);
    finishSong();
    EXPECT_TRUE(closes());
    EXPECT_GT(m_ends, 0) << "the last screen takes the program along";
}

TEST_F(ThePlayer, GoesOnInTheDisplayedSet)
{
    makeSongs(u"aAbc"_s);
    display(u"Select * from  tblContacts Where FileName like \"*\" Order By RecordID"_s);
    playOne();
    check(u"cbPlayNext"_s);
    // What is displayed later does not matter.
    display(u"Select * from  tblContacts Where SongName = \"a\""_s);
    goOnTo(u"A"_s, 0);
    EXPECT_EQ(m_events, (QStringList{u"8"_s, u"9"_s, u"A.mp3"_s, u"3"_s})) << "without a gap, as in a list";
    EXPECT_EQ(caption(), u"A.mp3"_s);
    EXPECT_EQ(m_state.CurrentPlayTitle, u"A.mp3"_s);
    EXPECT_EQ(rows(), QStringList(u"A <> Artist"_s));
    EXPECT_EQ(urls(), QStringList(music(u"A.mp3"_s)));
    goOnTo(u"b"_s, 0);
    check(u"cbPlayRandom"_s);
    EXPECT_FALSE(isChecked(u"cbPlayNext"_s));
    m_random = 0.99;
    goOnTo(u"a"_s, 0);
    key(form(), Qt::Key_MediaNext);
    waitFor(u"c.mp3"_s);
    key(form(), Qt::Key_MediaPrevious);
    waitFor(u"a.mp3"_s);
    EXPECT_EQ(caption(), u"a.mp3"_s);
    EXPECT_EQ(rows(), QStringList(u"a <> Artist"_s)) << "what was played before";
    goOnTo(u"c"_s, 0);
    check(u"cbPlayNext"_s);
    EXPECT_FALSE(isChecked(u"cbPlayRandom"_s));
    finishSong();
    EXPECT_TRUE(QTest::qWaitFor([this] { return player().playState() == media::Stopped; }));
    EXPECT_TRUE(form()) << "behind the last song it sits idle";
    EXPECT_EQ(caption(), u"c.mp3"_s);
}

TEST_F(ThePlayer, TellsOfTheNextSongThatIsGone)
{
    makeSongs(u"ab"_s);
    playOne();
    check(u"cbPlayNext"_s);
    QFile::remove(music(u"b.mp3"_s));
    m_desktop.willSee(u"\""_s + music(u"b.mp3"_s) + u"\"\r\nnot found."_s);
    finishSong();
    EXPECT_TRUE(closes());

    display(u"Select * from  tblContacts Where SongName like \"a\""_s);
    write(u"b.mp3"_s);
    playOne();
    check(u"cbPlayNext"_s);
    m_store.db().Execute(u"Delete from tblContacts"_s);
    finishSong();
    EXPECT_TRUE(QTest::qWaitFor([this] { return player().playState() == media::Stopped; }));
}

TEST_F(ThePlayer, FollowsItsList)
{
    playAll(u"abc"_s);
    EXPECT_EQ(ListIndex(), 0);
    goOnTo(u"b"_s, 1);
    EXPECT_EQ(m_events, (QStringList{u"8"_s, u"9"_s, u"b.mp3"_s, u"3"_s}));
    EXPECT_EQ(shown(u"lblCurrentSong"_s), u"b <> Artist"_s);
    click(*form(), u"cmdLyrics"_s);
    EXPECT_TRUE(m_desktop.urls().first().toString().endsWith(u"&q=song+lyrics+for+b+Artist"_s));
    click(*form(), u"cmdNext"_s);
    waitFor(u"c.mp3"_s);
    EXPECT_EQ(ListIndex(), 2);
    click(*form(), u"cmdNext"_s);
    waitFor(u"a.mp3"_s);
    EXPECT_EQ(ListIndex(), 0);
    click(*form(), u"cmdPrevious"_s);
    waitFor(u"c.mp3"_s);
    EXPECT_EQ(ListIndex(), 2);
    finishSong();
    EXPECT_TRUE(QTest::qWaitFor([this] { return player().playState() == media::Stopped; }));
    EXPECT_TRUE(form()) << "a list stays open at its end";
    click(*form(), u"cmdPlayPause"_s);
    waitFor(u"a.mp3"_s);
    EXPECT_EQ(ListIndex(), 0);
}

TEST_F(ThePlayer, LoopsAndShufflesItsList)
{
    playAll(u"abcdef"_s);
    check(u"cbLoop"_s);
    EXPECT_TRUE(player().settings().getMode(u"loop"_s));
    clickRow(5);
    waitFor(u"f.mp3"_s);
    EXPECT_EQ(ListIndex(), 5);
    EXPECT_FALSE(isChecked(u"cbLoop"_s)) << "a click ends the loop";
    EXPECT_FALSE(player().settings().getMode(u"loop"_s));
    check(u"cbLoop"_s);
    goOnTo(u"a"_s, 0);
    check(u"cbShuffle"_s);
    EXPECT_TRUE(isChecked(u"cbLoop"_s));
    QSet<QString> played;
    for (int i = 0; i < 12; ++i) {
        finishSong();
        EXPECT_TRUE(QTest::qWaitFor([this] { return m_events.endsWith(u"3"_s); }));
        EXPECT_EQ(urls().at(ListIndex()), player().currentMedia().sourceURL);
        played += playing();
    }
    EXPECT_EQ(played.size(), 6);
    check(u"cbShuffle"_s);
    EXPECT_FALSE(player().settings().getMode(u"shuffle"_s));
}

TEST_F(ThePlayer, PlaysTheRowThatIsChosen)
{
    playAll(u"abcd"_s);
    check(u"cbShuffle"_s);
    check(u"cbShuffle"_s);
    clickRow(2);
    waitFor(u"c.mp3"_s);
    EXPECT_EQ(ListIndex(), 2);
    auto &list = control<QListView>(u"lbSongs"_s);
    EXPECT_TRUE(list.hasFocus() || !form()->isActiveWindow()) << "a song's start takes nobody's focus";
    key(&list, Qt::Key_Down);
    waitFor(u"d.mp3"_s);
    EXPECT_EQ(ListIndex(), 3);
    key(&list, Qt::Key_Home);
    waitFor(u"a.mp3"_s);
    m_events.clear();
    clickRow(0);
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_events.endsWith(u"3"_s); })) << "the same row starts again";
    click(*form(), u"cmdPlayPause"_s);
    EXPECT_TRUE(QTest::qWaitFor([this] { return player().playState() == media::Paused; }));
    key(&control<QToolButton>(u"cmdPlayPause"_s), Qt::Key_Space);
    waitFor(u"a.mp3"_s);
    key(&list, Qt::Key_Space);
    EXPECT_TRUE(QTest::qWaitFor([this] { return player().playState() == media::Paused; }));
    key(form(), Qt::Key_MediaPlay);
    waitFor(u"a.mp3"_s);
    key(form(), Qt::Key_MediaNext);
    waitFor(u"b.mp3"_s);

    auto &box = control<QCheckBox>(u"cbSkipDups"_s);
    box.setFocus();
    key(&box, Qt::Key_Down);
    waitFor(u"c.mp3"_s);
    EXPECT_FALSE(form()->focusWidget() != &box) << "arrows never walk over the buttons";
    key(&box, Qt::Key_Right);
    EXPECT_TRUE(QTest::qWaitFor([this] { return player().controls().currentPosition() == 5; }));
    key(&box, Qt::Key_Right, Qt::ControlModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return player().controls().currentPosition() == 65; }));
    key(&box, Qt::Key_Space);
    EXPECT_TRUE(QTest::qWaitFor([this] { return player().playState() == media::Paused; }));
    EXPECT_FALSE(box.isChecked());
    const int volume = player().settings().volume();
    key(&box, Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(player().settings().volume(), volume - 5);
}

TEST_F(ThePlayer, ShowsTheSongInAWindowOfItsOwn)
{
    song(u"Rock & Roll"_s, u"A"_s, u"a.mp3"_s);
    song(u"b"_s, {}, u"b.mp3"_s);
    display();
    m_commands.cmdPlayAll_Click();
    waitFor(u"a.mp3"_s);
    const auto window = [this] { return form()->findChild<QWidget *>(u"frmNowPlaying"_s); };
    check(u"cbNowPlaying"_s);
    ASSERT_TRUE(window());
    EXPECT_EQ(child<QLabel>(*window(), u"lblNowPlaying"_s)->text(), u"Rock && Roll <> A"_s);
    goOnTo(u"b"_s, 1);
    EXPECT_EQ(child<QLabel>(*window(), u"lblNowPlaying"_s)->text(), u"b"_s);
    window()->close();
    EXPECT_FALSE(isChecked(u"cbNowPlaying"_s));
    EXPECT_TRUE(QTest::qWaitFor([&] { return window() == nullptr; }));
}

TEST_F(ThePlayer, AddsToAPlayList)
{
    m_store.addPlayList(u"Party"_s);
    const qint64 other = m_store.addPlayList(u"Other"_s);
    playAll(u"ab"_s);
    auto &box = control<QComboBox>(u"cmbHeader"_s);
    EXPECT_EQ(box.itemText(0), u"Other"_s);
    EXPECT_EQ(box.itemData(0).toLongLong(), other);
    EXPECT_EQ(box.currentIndex(), -1);
    m_desktop.willSee(u"You must select a Play List from the drop down list first."_s);
    click(*form(), u"cmdAddToPlaylist"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return box.view()->isVisible(); })) << "the list drops down";
    key(box.view(), Qt::Key_Down);
    key(box.view(), Qt::Key_Return);
    EXPECT_EQ(shown(u"lblSelectedPlaylist"_s), box.currentText());
    EXPECT_EQ(m_state.PlayerPlayList, box.currentText());
    EXPECT_EQ(m_state.CurrentPlayListName, box.currentText());
    goOnTo(u"b"_s, 1);
    EXPECT_FALSE(isShown(u"txtSongAddedToPlaylist"_s));
    click(*form(), u"cmdAddToPlaylist"_s);
    EXPECT_TRUE(isShown(u"txtSongAddedToPlaylist"_s));
    EXPECT_EQ(shown(u"txtSongAddedToPlaylist"_s), u"Song added to Play List"_s);
    EXPECT_EQ(m_store.column(u"select FileName from tblPlayListDetail"_s), QStringList(music(u"b.mp3"_s)));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !isShown(u"txtSongAddedToPlaylist"_s); }));

    // The next player knows the list that was chosen.
    m_commands.cmdPlay_Click();
    EXPECT_EQ(shown(u"lblSelectedPlaylist"_s), m_state.PlayerPlayList);
    click(*form(), u"cmdAddToPlaylist"_s);
    EXPECT_EQ(m_store.column(u"select SongTitle from tblPlayListDetail"_s), (QStringList{u"b"_s, u"a"_s}));
}

TEST_F(ThePlayer, DeletesFromThePlayListThatPlays)
{
    playAll(u"abc"_s);
    m_forms.unload();
    const qint64 list = m_store.addPlayList(u"Party"_s);
    for (int i = 0; i < 2; ++i)
        m_store.addRow(u"tblPlayListDetail"_s, {{u"ListID"_s, list}, {u"FileName"_s, music(u"a.mp3"_s)}});
    m_store.addRow(u"tblPlayListDetail"_s, {{u"ListID"_s, list}, {u"FileName"_s, music(u"b.mp3"_s)}});
    PlayRequest request;
    request.songs.add(u"a"_s, music(u"a.mp3"_s));
    request.songs.add(u"b"_s, music(u"b.mp3"_s));
    writeTemporaryList(m_store.folder(), request.songs.urls());
    request.CurrentPlayUrl = temporaryList(m_store.folder());
    request.CurrentPlayTitle = u"PlayList Party"_s;
    request.caption = u"PlayList: Party"_s;
    m_forms.play(request);
    EXPECT_EQ(caption(), u"PlayList: Party"_s);
    waitFor(u"a.mp3"_s);
    // Another name is given to the list while its songs play.
    m_state.PlayerPlayList = u"Party"_s;
    PlayListStore(m_store.catalogue()).editList(list, u"Fête"_s, {});
    m_state.renamePlayList(u"Party"_s, u"Fête"_s);
    m_forms.showPlayLists();
    EXPECT_EQ(caption(), u"PlayList: Fête"_s);
    EXPECT_EQ(shown(u"lblSelectedPlaylist"_s), u"Fête"_s);
    EXPECT_EQ(control<QComboBox>(u"cmbHeader"_s).currentText(), u"Fête"_s);
    click(*form(), u"cmdDelete"_s);
    EXPECT_EQ(shown(u"txtSongAddedToPlaylist"_s), u"Deleted from Playlist"_s);
    EXPECT_EQ(m_store.column(u"select FileName from tblPlayListDetail"_s), QStringList(music(u"b.mp3"_s)));
    waitFor(u"b.mp3"_s);
    EXPECT_EQ(ListIndex(), 1);
    EXPECT_EQ(rows().size(), 2) << "this run's songs stay";
    EXPECT_TRUE(QTest::qWaitFor([this] { return !isShown(u"txtSongAddedToPlaylist"_s); }));
    EXPECT_EQ(shown(u"txtSongAddedToPlaylist"_s), u"Song added to Play List"_s);
}

TEST_F(ThePlayer, KeepsPlaceVolumeAndMute)
{
    makeSongs(u"a"_s);
    playOne();
    EXPECT_EQ(form()->pos(), QPoint(0, 0)) << "the first one stands in the corner";
    form()->move(40, 30);
    control<QSlider>(u"sldVolume"_s).setValue(35);
    click(*form(), u"cmdMute"_s);
    click(*form(), u"cmdExit"_s);
    EXPECT_EQ(m_state.PlayerLeft, 40 * 15);
    playOne();
    EXPECT_EQ(form()->pos(), QPoint(40, 30));
    EXPECT_EQ(player().settings().volume(), 35);
    EXPECT_TRUE(player().settings().mute());
    form()->move(-20, 0);
    m_forms.unload();
    playOne();
    form()->move(77, 77);
    m_forms.unload();
    EXPECT_EQ(m_state.PlayerLeft, -20 * 15) << "kept no longer";
}

TEST_F(ThePlayer, SeeksWhereTheUserPoints)
{
    makeSongs(u"a"_s);
    playOne();
    auto &slider = control<QSlider>(u"sldPosition"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return slider.isEnabled(); }));
    EXPECT_EQ(shown(u"lblDuration"_s), u"3:20"_s);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, {slider.width() / 2, slider.height() / 2});
    EXPECT_TRUE(QTest::qWaitFor([this] { return shown(u"lblPosition"_s).startsWith(u"1:"_s); }));
    EXPECT_NEAR(player().controls().currentPosition(), 100, 5);
}

TEST_F(ThePlayer, PlaysAloneInItsOwnMode)
{
    write(u"alone.mp3"_s);
    m_store.close();
    m_options.PlayerOnlyMode = true;
    m_lastScreen = true;
    m_forms.play(playerOnlyRequest(u"file://"_s + music(u"alone.mp3"_s)));
    EXPECT_EQ(rows(), QStringList(music(u"alone.mp3"_s)));
    for (const char16_t *name :
         {u"cmbHeader", u"cbPlayNext", u"cbShuffle", u"cmdAddToPlaylist", u"cmdDelete"})
        EXPECT_FALSE(isShown(QString::fromUtf16(name))) << QString::fromUtf16(name).toStdString();
    waitFor(u"alone.mp3"_s);
    form()->close();
    EXPECT_EQ(m_ends, 1);

    samples::SongTags tags;
    tags.title = u"Sun"_s;
    tags.artist = u"Tide"_s;
    samples::makeSong(music(u"tagged.mp3"_s), tags);
    m_forms.play(playerOnlyRequest(music(u"tagged.mp3"_s)));
    EXPECT_EQ(rows(), QStringList(u"Sun <> Tide"_s));
    m_forms.unload();
    m_store.open();
}

TEST_F(ThePlayer, ShowsAHundredThousandSongs)
{
    PlayRequest request;
    write(u"a.mp3"_s);
    request.CurrentPlayUrl = music(u"a.mp3"_s);
    for (int i = 0; i < 100'000; ++i)
        request.songs.add(u"Song %1"_s.arg(i), music(u"a.mp3"_s));
    m_forms.play(request);
    auto &list = control<QListView>(u"lbSongs"_s);
    const QAbstractItemModelTester tester(list.model(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_EQ(list.model()->rowCount(), 100'000);
    waitFor(u"a.mp3"_s);
    clickRow(99'999);
    EXPECT_EQ(ListIndex(), 99'999);
}

class TheRealPlayer : public ThePlayer
{
protected:
    void SetUp() override
    {
        playForReal();
        const samples::SongTags tags{
            .title = u"t"_s, .artist = {}, .album = {}, .genre = {}, .composer = {}, .comment = {}};
        samples::SampleMaker maker;
        for (const QString &name : {u"a.mp3"_s, u"d.flac"_s, u"f.ogg"_s}) {
            catalogued(name.first(1), u"Artist"_s, name);
            maker.makeSong(music(name), tags);
        }
    }
};

TEST_F(TheRealPlayer, FollowsTheSelectionPastWhatCannotBePlayed)
{
    PlayRequest request;
    const QStringList names{u"a.mp3"_s,  u"missing.mp3"_s, u"damaged.mp3"_s,
                            u"d.flac"_s, u"empty.mp3"_s,   u"f.ogg"_s};
    write(u"damaged.mp3"_s, QByteArray(4000, 'x'));
    write(u"empty.mp3"_s, {});
    for (const QString &name : names)
        request.songs.add(name, music(name));
    writeTemporaryList(m_store.folder(), request.songs.urls());
    request.CurrentPlayUrl = temporaryList(m_store.folder());
    m_forms.play(request);
    QStringList selected;
    QObject::connect(&player(), &media::MediaPlayer::PlayStateChange, form(), [&](int state) {
        if (state == media::Playing)
            selected += rows().at(ListIndex());
    });
    QSet<QString> notes;
    QObject::connect(&player(), &media::MediaPlayer::itemSkipped, form(), [&] {
        EXPECT_TRUE(isShown(u"lblMediaNote"_s));
        notes += shown(u"lblMediaNote"_s);
    });
    EXPECT_TRUE(QTest::qWaitFor([this] { return player().playState() == media::Stopped; }, 20'000))
        << m_events.join(u' ').toStdString();
    EXPECT_EQ(selected, (QStringList{u"a.mp3"_s, u"d.flac"_s, u"f.ogg"_s}))
        << m_events.join(u' ').toStdString();
    EXPECT_EQ(ListIndex(), 5);
    EXPECT_EQ(notes.size(), 3);
    EXPECT_FALSE(isShown(u"lblMediaNote"_s)) << "the last song played to its end";
}

TEST_F(TheRealPlayer, StaysUsableWithNothingToPlayAndWithoutSoundOutput)
{
    PlayRequest request;
    request.songs.add(u"gone"_s, music(u"gone.mp3"_s));
    request.songs.add(u"gone too"_s, music(u"gone too.mp3"_s));
    writeTemporaryList(m_store.folder(), request.songs.urls());
    request.CurrentPlayUrl = temporaryList(m_store.folder());
    m_forms.play(request);
    check(u"cbSkipDups"_s);
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_events.contains(u"1"_s) && isShown(u"lblMediaNote"_s); }));
    EXPECT_FALSE(shown(u"lblMediaNote"_s).isEmpty());
    EXPECT_EQ(ListIndex(), 1);

    display();
    m_mediaOptions.audioOutput = u"nosuchoutput"_s;
    m_commands.cmdPlayAll_Click();
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_events.endsWith(u"1"_s); }));
    EXPECT_TRUE(shown(u"lblMediaNote"_s).contains(u"no sound output"_s))
        << shown(u"lblMediaNote"_s).toStdString();
    EXPECT_EQ(ListIndex(), 0) << "the songs behind it fare no better";
    click(*form(), u"cmdExit"_s);
    EXPECT_FALSE(form());
}

TEST_F(TheRealPlayer, ClosesAtAnyMoment)
{
    display();
    for (int moment = 0; moment < 12; ++moment) {
        m_commands.cmdPlayAll_Click();
        ASSERT_TRUE(form());
        const qsizetype wanted = moment;
        EXPECT_TRUE(QTest::qWaitFor([&] { return m_events.size() >= wanted; }));
        form()->close();
        EXPECT_FALSE(form());
        EXPECT_FALSE(QFile::exists(temporaryList(m_store.folder())));
    }
}

} // namespace
