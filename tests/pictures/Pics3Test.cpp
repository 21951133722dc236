// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/PicturesFixture.h"

#include <QMenuBar>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace quaverly::test {

class Pics3Test : public PicturesTest
{
protected:
    [[nodiscard]] Pics3 &screen() { return *m_commands.pics3(); }
    [[nodiscard]] QImage shown(int image)
    {
        return child<PictureBox>(screen(), u"Image%1"_s.arg(image))->picture();
    }
    bool showsWithin(int image, const QColor &color)
    {
        return QTest::qWaitFor([=, this] {
            const QImage picture = shown(image);
            return !picture.isNull() && std::abs(picture.pixelColor(4, 4).hue() - color.hue()) < 10;
        });
    }
    void moveTo(qint64 position)
    {
        m_set.Data1().Recordset().setAbsolutePosition(position);
        m_set.Data1().notifyRowChanged();
    }
};

TEST_F(Pics3Test, FollowsTheCurrentRow)
{
    m_desktop.willSee(u"There are no pictures to display"_s);
    m_commands.cmdPictures_Click();
    EXPECT_EQ(m_commands.pics3(), nullptr);

    writePicture(u"red.jpg"_s, Qt::red);
    writePicture(u"blue.jpg"_s, Qt::blue);
    writeFile(pictures(u"text.jpg"_s), "no picture");
    song(u"First"_s, {u"red.jpg"_s, u"gone.jpg"_s, u"blue.jpg"_s, u"red.jpg"_s});
    song(u"Second"_s, {u"text.jpg"_s, u"blue.jpg"_s, u"../red.jpg"_s});
    m_commands.cmdPictures_Click();
    EXPECT_EQ(m_focused, 1);
    EXPECT_EQ(screen().windowTitle(), u"First"_s);
    EXPECT_TRUE(showsWithin(1, Qt::red) && showsWithin(3, Qt::blue));
    EXPECT_TRUE(shown(2).isNull());
    moveTo(1);
    EXPECT_EQ(screen().windowTitle(), u"Second"_s);
    EXPECT_TRUE(showsWithin(2, Qt::blue));
    EXPECT_TRUE(shown(1).isNull() && shown(3).isNull());
    moveTo(0);
    EXPECT_FALSE(shown(1).isNull()) << "at once: it was read before";
    writePicture(u"red.jpg"_s, Qt::green);
    QFile(pictures(u"red.jpg"_s)).resize(QFile(pictures(u"red.jpg"_s)).size() + 1);
    m_commands.ShowSongPictures();
    EXPECT_TRUE(showsWithin(1, Qt::green)) << "the file was written anew";
    display(u"Select * from  tblContacts Where SongName = \"none\""_s);
    EXPECT_TRUE(shown(1).isNull() && shown(3).isNull());
    m_desktop.willSee(u"There are no pictures"_s);
    m_commands.cmdPictures_Click();
}

TEST_F(Pics3Test, LetsTheRowGoFirst)
{
    writeFile(pictures(u"huge.jpg"_s), fileOf(plain(6000, 4000, Qt::red), "JPG"));
    song(u"Small"_s, {});
    song(u"Huge"_s, {u"huge.jpg"_s, u"huge.jpg"_s, u"huge.jpg"_s});
    m_commands.cmdPictures_Click();
    display(u"Select * from  tblContacts Where SongName = \"Huge\""_s);
    EXPECT_TRUE(shown(1).isNull()) << "the row does not wait for it";
    EXPECT_TRUE(showsWithin(1, Qt::red) && showsWithin(3, Qt::red));
    EXPECT_LE(shown(1).width(), screen().width()) << "no larger than it is shown";
}

TEST_F(Pics3Test, EnlargesOneOnADoubleClick)
{
    writeFile(pictures(u"a.jpg"_s), fileOf(plain(2000, 1500, Qt::red), "JPG"));
    song(u"Song"_s, {u"a.jpg"_s, u"a.jpg"_s});
    m_commands.cmdPictures_Click();
    const QSize small = screen().size();
    const QRect room = screen().screen()->availableGeometry();
    const QPoint corner(room.right() - small.width(), room.bottom() - small.height());
    screen().move(corner);
    auto *second = child<PictureBox>(screen(), u"Image2"_s);
    QTest::mouseDClick(child<PictureBox>(screen(), u"Image3"_s), Qt::LeftButton);
    EXPECT_FALSE(screen().isEnlarged()) << "there is no picture";
    QTest::mouseDClick(second, Qt::LeftButton);
    EXPECT_TRUE(screen().isEnlarged());
    EXPECT_FALSE(child<PictureBox>(screen(), u"Image1"_s)->isVisible());
    EXPECT_TRUE(room.contains(screen().frameGeometry()));
    EXPECT_TRUE(QTest::qWaitFor([&] { return second->picture().width() > small.width(); })) << "read afresh";
    screen().close();
    EXPECT_TRUE(screen().isVisible());
    EXPECT_FALSE(screen().isEnlarged());
    EXPECT_EQ(screen().size(), small);
    EXPECT_EQ(screen().pos(), corner) << "where they were";
    key(&screen(), Qt::Key_Escape);
    EXPECT_FALSE(screen().isVisible());
    m_nameEdit.showMaximized();
    m_commands.cmdPictures_Click();
    EXPECT_TRUE(room.contains(screen().frameGeometry())) << "in the corner, with its frame";
    m_commands.unloadPics3();
    EXPECT_EQ(m_commands.pics3(), nullptr);
}

TEST_F(Pics3Test, StandsBesideTheMainScreenAndNeverOverItsMenu)
{
    QMenuBar menu(&m_nameEdit);
    menu.addMenu(u"File"_s);
    song(u"Song"_s, {});
    const QRect room = m_nameEdit.screen()->availableGeometry();
    const auto placed = [&](const QRect &mainScreen) {
        m_nameEdit.setGeometry(mainScreen);
        menu.setGeometry(0, 0, mainScreen.width(), 24);
        m_commands.cmdPictures_Click();
        const QRect place = screen().frameGeometry();
        m_commands.cmdPictures_Click();
        EXPECT_EQ(room.united(place), room);
        EXPECT_FALSE(place.intersects(QRect(menu.mapToGlobal(QPoint()), menu.size())));
        return place;
    };
    const int half = room.width() / 2;
    const QRect right = placed({room.left(), room.top(), half, 400});
    EXPECT_GT(right.left(), m_nameEdit.frameGeometry().right());
    const QRect left = placed({room.left() + half, room.top(), half, 400});
    EXPECT_LT(left.right(), m_nameEdit.frameGeometry().left());
    EXPECT_EQ(placed(room).right(), room.right()) << "over the main screen, but not over its menu";
    screen().move(room.left(), room.bottom() - screen().height() - 50);
    EXPECT_EQ(placed(room).left(), room.left()) << "where the user put it";
}

} // namespace quaverly::test
