// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/PlayFormFixture.h"

#include "player/Player.h"

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

TEST_F(ThePlayer, PlaysOnWhileItsListIsChanged)
{
    playAll(u"abcd"_s);
    auto &list = control<QListView>(u"lbSongs"_s);
    m_events.clear();
    key(&list, Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(rows().first(2), (QStringList{u"b <> Artist"_s, u"a <> Artist"_s}));
    list.model()->moveRow({}, 3, {}, 0);
    EXPECT_TRUE(QTest::qWaitFor([this] { return rows().first() == u"d <> Artist"_s; }))
        << "a row was dragged";
    EXPECT_EQ(ListIndex(), 2);
    EXPECT_EQ(m_events, QStringList()) << "the running song goes on";
    EXPECT_EQ(urls().at(2), music(u"a.mp3"_s));

    m_data.Recordset().setAbsolutePosition(3);
    m_commands.mnuPopupPlayNext_Click();
    EXPECT_EQ(rows().at(3), u"d <> Artist"_s);
    goOnTo(u"d"_s, 3);
    key(&list, Qt::Key_Delete);
    waitFor(u"c.mp3"_s);
    EXPECT_EQ(ListIndex(), 3);
    key(&list, Qt::Key_Delete);
    waitFor(u"a.mp3"_s);
    EXPECT_EQ(ListIndex(), 2) << "behind the last there is only the one before";
    EXPECT_EQ(shown(u"lblNumSongs"_s), u"Number of songs: 3"_s);

    m_store.addPlayList(u"Party"_s);
    m_desktop.willType(u"party"_s).willSee(u"already exists"_s);
    control<QAction>(u"mnuQueueSave"_s).trigger();
    m_desktop.willType(u"New \"one\""_s);
    control<QAction>(u"mnuQueueSave"_s).trigger();
    EXPECT_EQ(m_store.column(u"select SongTitle from tblPlayListDetail order by ListTrackID"_s),
              (QStringList{u"d"_s, u"b"_s, u"a"_s}));
    EXPECT_EQ(control<QComboBox>(u"cmbHeader"_s).findText(u"New 'one'"_s), 0);
}

TEST_F(ThePlayer, TakesMoreSongsThanItsOne)
{
    makeSongs(u"abc"_s);
    m_data.Recordset().setAbsolutePosition(1);
    m_commands.mnuPopupAddToQueue_Click();
    waitFor(u"b.mp3"_s);
    playOne();
    check(u"cbPlayNext"_s);
    m_data.Recordset().setAbsolutePosition(2);
    m_commands.mnuPopupAddToQueue_Click();
    EXPECT_FALSE(isShown(u"cbPlayNext"_s));
    EXPECT_EQ(rows(), (QStringList{u"a <> Artist"_s, u"c <> Artist"_s}));
    m_events.clear();
    goOnTo(u"c"_s, 1);
    EXPECT_EQ(m_events, (QStringList{u"8"_s, u"9"_s, u"c.mp3"_s, u"3"_s}));
    QFile::remove(music(u"a.mp3"_s));
    m_data.Recordset().setAbsolutePosition(0);
    m_desktop.willSee(u"not found."_s);
    m_commands.mnuPopupPlayNext_Click();
    EXPECT_EQ(rows().size(), 2);
}

} // namespace
