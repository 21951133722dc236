// SPDX-License-Identifier: GPL-3.0-or-later
#include "CategoriesFixture.h"

#include <QLabel>

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

class TheAssignmentScreen : public Categories
{
protected:
    void openFor(qint64 song)
    {
        ASSERT_TRUE(data().findRecord(song));
        open(&CategoryCommands::cmdAssignCatg_Click);
    }
    QStringList songs() { return songsOf(jazz); }
};

TEST_F(TheAssignmentScreen, PutsTheSongInAndTakesItOut)
{
    openFor(sos);
    EXPECT_EQ(child<QLabel>(*dialog, u"lblName"_s)->text(), u"SOS"_s);
    press(u"cmdLfArrow"_s);
    press(u"cmdRtArrow"_s);
    EXPECT_EQ(songs().size(), 3);
    EXPECT_EQ(current(u"CatgIdGrid"_s), u"Jazz"_s);
    desktop.willSee(u"Category is already assigned to this record."_s);
    key(&grid(), Qt::Key_Return);
    EXPECT_EQ(desktop.lastCall().title, u"Can't assign twice"_s);
    QTest::mouseDClick(grid(u"CatgIdGrid"_s).viewport(), Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(songs().size(), 2);
    deleteElsewhere(jazz);
    desktop.willSee(u"Record is deleted..  Error number:3167"_s);
    press(u"cmdRtArrow"_s);
    EXPECT_EQ(songs().size(), 2);
    desktop.willSee(u"one before you can change it's name."_s);
    press(u"cmdChange"_s);
    press(u"cmdRtArrow"_s);
}

TEST_F(TheAssignmentScreen, AddsNamesThatTheOtherScreenRefuses)
{
    openFor(sos);
    desktop.willType(u" jazz\" "_s).willType(u"Jazz"_s);
    press(u"cmdAdd"_s);
    EXPECT_EQ(current(), u" jazz\" "_s) << "the new one";
    press(u"cmdAdd"_s);
    EXPECT_NE(grid().current()->CategoryNumber, jazz);
    EXPECT_EQ(categoryNames(), (QStringList{u"Jazz"_s, u" jazz\" "_s, u"Jazz"_s}));
    EXPECT_EQ(desktop.lastCall().text, u"Enter the Name for this new Category, then press the OK button."_s);
}

TEST_F(TheAssignmentScreen, RemembersItsBoxAndOpensForNoSong)
{
    openFor(sos);
    for (const int value : {1, 0}) {
        key(child<QWidget>(*dialog, u"cbAssignCatgOnAdd"_s), Qt::Key_Space);
        EXPECT_EQ(options.AssignCategoryOnAdd, value);
        EXPECT_EQ(store.settings().assignCategoryOnAdd(), value);
    }
    press(u"cmdExit"_s);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    desktop.willSee(u"No records found."_s);
    set.find(u"no such song"_s);
    ASSERT_EQ(rows(), 0);
    for (const auto command :
         {&CategoryCommands::cmdAssignCatg_Click, &CategoryCommands::AssignAllToCatg_Click,
          &CategoryCommands::RemoveAllFromCatg_Click})
        (commands.*command)();
    EXPECT_EQ(window.findChild<QDialog *>(), nullptr);
}

} // namespace
