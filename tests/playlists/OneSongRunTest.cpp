// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlists/frmPlay.h"

#include "catalogue/Options.h"
#include "platform/media/Media.h"
#include "platform/options/OptionsStore.h"
#include "player/PlayListStore.h"
#include "samples/SampleMaker.h"
#include "support/QtPrinters.h"
#include "support/ScriptedDesktop.h"
#include "support/store/StoreFixture.h"

#include <QApplication>
#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

/** A list of songs that play for real, silently, and the box that shows it. */
class PlayCurrent : public ::testing::Test
{
protected:
    void addSong(qint64 number, const QString &fileName)
    {
        const QString path = fileName.isEmpty() ? QString() : store.path(fileName);
        if (fileName.endsWith(".wav"_L1))
            maker.makeSong(path, {});
        lists.addTrack(list, number, {.SongTitle = fileName, .ArtistName = u"Artist"_s, .FileName = path});
        ++songs;
    }
    /** As lbDetail_Click. */
    void select(int row)
    {
        selected = row;
        if (row < songs) {
            run.setStopOneSongRun(false);
        } else if (songs > 0) {
            select(songs - 1);
            run.setStopOneSongRun(true);
        }
    }
    void play(int row)
    {
        played.clear();
        selected = row;
        run.cmdPlay1_Click();
    }
    bool ends()
    {
        return QTest::qWaitFor([this] { return !run.isRunning() && !window.form(); }, 20'000);
    }
    QString note()
    {
        const auto *label = window.form()->findChild<QLabel *>(u"lblMediaNote"_s);
        return label->isVisible() ? label->text() : QString();
    }
    std::unique_ptr<media::MediaPlayer> makePlayer()
    {
        auto player = media::MediaFactory(
                          {.audioOutput = u"null"_s, .outputFile = {}, .untimed = true, .moduleFolder = {}})
                          .makeMediaPlayer();
        QObject::connect(player.get(), &media::MediaPlayer::PlayStateChange, player.get(), [this](int state) {
            if (state == media::Playing)
                played += window.form()->windowTitle();
        });
        return player;
    }

    StoreFixture store;
    ScriptedDesktop desktop;
    Options options;
    OptionsStore optionsStore{store.path(u"options.ini"_s)};
    samples::SampleMaker maker;
    PlayListStore lists{store.catalogue()};
    qint64 list = lists.addList(u"Party"_s, {});
    int songs = 0, selected = -1;
    QStringList played;
    QWidget owner;
    frmPlayWindow window{{desktop, options, optionsStore, [this] { return makePlayer(); }}, &owner};
    OneSongRun run{{desktop, store.catalogue(), window, [this] { return list; }, [this] { return songs + 1; },
                    [this] { return selected; }, [this](int row) { select(row); }, [] {}}};
};

TEST_F(PlayCurrent, GoesOnToTheEndOfTheList)
{
    addSong(1, u"a.wav"_s);
    addSong(2, u"b.wav"_s);
    addSong(3, u"c.wav"_s);
    play(-1);
    EXPECT_TRUE(ends());
    EXPECT_EQ(played, (QStringList{u"a.wav <> Artist"_s, u"b.wav <> Artist"_s, u"c.wav <> Artist"_s}));
    EXPECT_EQ(selected, 2);
    play(1);
    EXPECT_TRUE(ends());
    EXPECT_EQ(played.size(), 2);
    EXPECT_FALSE(run.StopOneSongRun());
    select(3);
    play(2);
    EXPECT_TRUE(ends());
    EXPECT_EQ(played, QStringList()) << "the blank row was chosen last";
}

TEST_F(PlayCurrent, EndsAtAGapAndWhenItsWindowIsClosed)
{
    play(0);
    EXPECT_TRUE(ends()) << "no songs";
    addSong(1, u"a.wav"_s);
    addSong(3, u"b.wav"_s);
    addSong(4, u"gone.mp3"_s);
    play(0);
    EXPECT_TRUE(ends());
    EXPECT_EQ(played, QStringList{u"a.wav <> Artist"_s});
    lists.RenumberTracks(list);
    play(2);
    EXPECT_TRUE(QTest::qWaitFor([this] { return note().contains(u"gone.mp3"_s); }));
    QTest::keyClick(window.form(), Qt::Key_Escape);
    EXPECT_TRUE(ends());
    EXPECT_EQ(selected, 2);
    EXPECT_FALSE(run.StopOneSongRun());
    addSong(4, {});
    play(3);
    EXPECT_EQ(note(), u"This song has no music file."_s);
    window.form()->close();
    EXPECT_TRUE(ends());
}

} // namespace
