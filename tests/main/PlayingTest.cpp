// SPDX-License-Identifier: GPL-3.0-or-later
// Music played from the main screen, and the player alone.
#include "main/ProgramFixture.h"

#include "player/PlayForm.h"

#include <QAbstractItemView>

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

class PlayingTest : public ProgramTest
{
protected:
    PlayingTest()
    {
        addFile(u"Abba/Arrival/01.flac"_s, u"Tiger"_s, u"Abba"_s);
        addFile(u"Björk/Jóga.ogg"_s, u"Jóga"_s, u"Björk"_s);
    }

    [[nodiscard]] PlayForm *player() { return m_program->playForms().form(); }
    [[nodiscard]] int songsInPlayer()
    {
        return child<QAbstractItemView>(*player(), u"lbSongs"_s)->model()->rowCount();
    }
};

TEST_F(PlayingTest, WhatTheListShowsIsPlayedBesideTheMainScreen)
{
    start(true);
    addFolder();
    const QString list = m_dir.filePath(u"QVPlayList.m3u"_s);
    click(screen(), u"cmdPlayAll"_s);
    ASSERT_NE(player(), nullptr);
    EXPECT_EQ(player()->windowTitle(), u"All Songs"_s);
    EXPECT_EQ(songsInPlayer(), 2);
    EXPECT_TRUE(QFile::exists(list));

    m_desktop.willSee(u"Cannot Add records while playing songs. End the Player first."_s);
    chooseMenu(screen(), u"AddMusicFolder"_s);
    m_desktop.willAnswer(Answer::Yes).willSee(u"Make sure the Music Player is closed"_s);
    chooseMenu(screen(), u"mnuCompactDatabase"_s);

    clickCell(0, 1);
    click(screen(), u"cmdPlay"_s);
    ASSERT_NE(player(), nullptr);
    EXPECT_EQ(songsInPlayer(), 1);
    player()->close();
    EXPECT_TRUE(QTest::qWaitFor([this] { return player() == nullptr; }));
    EXPECT_FALSE(QFile::exists(list));
    EXPECT_EQ(m_quits, 0);
}

TEST_F(PlayingTest, MusicFilesOpenThePlayerAlone)
{
    const QString song = music() + u"Björk/Jóga.ogg"_s;
    const QString other = music() + u"Abba/with blank.mp3"_s;
    addFile(u"Björk/Jóga.ogg"_s, u"Jóga"_s, u"Björk"_s);
    addFile(u"Abba/with blank.mp3"_s, u"Tiger"_s, u"Abba"_s);
    for (const QStringList &arguments : {QStringList{song}, other.split(u' '), {song, other, song}}) {
        SCOPED_TRACE(arguments.join(u'|').toStdString());
        m_arguments = arguments;
        m_instance = std::make_unique<SingleInstance>(m_dir.path());
        m_program = std::make_unique<Program>(
            m_desktop, m_store, *m_instance, m_arguments, [this] { ++m_quits; },
            media::MediaOptions{u"null"_s, {}, true, {}});
        ASSERT_TRUE(m_program->start());
        EXPECT_EQ(m_program->mainScreen(), nullptr);
        ASSERT_NE(player(), nullptr);
        EXPECT_EQ(player()->windowTitle(), u"Quaverly Player"_s);
        EXPECT_EQ(songsInPlayer(), arguments.size() == 3 ? 3 : 1);
        player()->close();
        EXPECT_TRUE(QTest::qWaitFor([this] { return m_quits == 1; }));
        m_quits = 0;
        close();
    }
}

} // namespace

} // namespace quaverly::test
