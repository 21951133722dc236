// SPDX-License-Identifier: GPL-3.0-or-later
#include "CategoriesFixture.h"

#include <QCheckBox>

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

class TheCategoryScreen : public Categories
{
protected:
    void openForm() { open(&CategoryCommands::Category_Click); }
};

TEST_F(TheCategoryScreen, ShowsTheSongsOfTheSelectedCategory)
{
    store.addCategory(u"Ballads"_s, {sos});
    openForm();
    EXPECT_EQ(current(), u"Ballads"_s);
    key(&grid(), Qt::Key_J);
    EXPECT_EQ(current(), u"Jazz"_s);
    key(&grid(), Qt::Key_Q);
    EXPECT_EQ(current(), u"Jazz"_s);
    key(&grid(), Qt::Key_Return);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(screen.gridFocuses, 1);
    EXPECT_EQ(names(), (QStringList{u"Dancing Queen"_s, u"Imagine"_s}));
    const S clause = u" CategoryNumber = %1 "_s.arg(jazz);
    EXPECT_EQ(set.texts().ListWhere, u" Where "_s + clause);
    EXPECT_EQ(store.settings().category()->Setting1, clause);

    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    openForm();
    EXPECT_EQ(current(), u"Jazz"_s) << "the category that is shown";
    press(u"cmdShowAll"_s);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(rows(), 7);
    EXPECT_FALSE(store.settings().category());
}

TEST_F(TheCategoryScreen, AddsWhatTheStoreTakes)
{
    struct Case
    {
        S typed;
        S box;
        bool added;
    };
    const Case cases[] = {
        {{}, {}, false},
        {u"   "_s, {}, false},
        {u" Blues "_s, {}, true},
        {u"bLUES"_s, u"Category with this name already exists."_s, false},
        {u"12\" Mix"_s, u"can't hold double quotes."_s, false},
        {u"\" Or \"\" = \""_s, u"can't hold double quotes."_s, false},
        {u"Rock 'n' Roll"_s, {}, true},
        {S(300, u'x'), u"too small to accept"_s, false},
        {S(255, u'z'), {}, true},
    };
    openForm();
    QStringList kept = categoryNames();
    for (const Case &c : cases) {
        desktop.willType(c.typed);
        if (!c.box.isEmpty())
            desktop.willSee(c.box);
        press(u"cmdAdd"_s);
        if (c.added) {
            kept.append(c.typed.trimmed());
            EXPECT_EQ(current(), grid().categories().last().CategoryDesc) << "of the list, not the new one";
        }
        EXPECT_EQ(categoryNames(), kept) << c.typed.toStdString();
    }
}

TEST_F(TheCategoryScreen, ChangesANameAsItWasTyped)
{
    const qint64 blues = store.addCategory(u"Blues"_s);
    openForm();
    choose(u"Jazz"_s);
    desktop.willType({}).willType(u" Blues\" "_s).willType(u"Blues"_s);
    for (int i = 0; i < 3; ++i)
        press(u"cmdChange"_s);
    EXPECT_EQ(categoryNames(), (QStringList{u"Blues"_s, u"Blues"_s}));
    EXPECT_EQ(desktop.lastCall().offered, u" Blues\" "_s);
    EXPECT_EQ(grid().current()->CategoryNumber, jazz);
    deleteElsewhere(jazz);
    desktop.willType(u"Gone"_s).willSee(u"Record is deleted."_s);
    press(u"cmdChange"_s);
    EXPECT_EQ(grid().categories(), (QList<Category>{{blues, u"Blues"_s}}));
}

TEST_F(TheCategoryScreen, DeletesACategoryAndItsAssignments)
{
    const qint64 empty = store.addCategory(u"Empty"_s);
    const qint64 keep = store.addCategory(u"Keep"_s, {sos});
    store.addRow(u"tblCategoryID"_s, {{u"ID"_s, 4711}, {u"CategoryNumber"_s, jazz}});
    set.categoryChosen(jazz, u"Jazz"_s);
    const int showAlls = screen.showAlls;
    openForm();
    ASSERT_EQ(current(), u"Jazz"_s);
    desktop.willAnswer(Answer::No, u"You have 2 Song(s) still assigned to this Category.  Those"_s);
    press(u"cmdDelete"_s);
    EXPECT_EQ(songsOf(jazz).size(), 3)
        << "the assignment of a song that is gone is not told, and goes with the rest";
    desktop.willAnswer(Answer::Yes);
    press(u"cmdDelete"_s);
    EXPECT_EQ(desktop.lastCall().defaultAnswer, Answer::Yes);
    EXPECT_EQ(current(), u"Keep"_s);
    EXPECT_EQ(songsOf(jazz), QStringList());
    EXPECT_EQ(screen.showAlls, showAlls + 1);
    EXPECT_EQ(rows(), 7);
    choose(u"Empty"_s);
    deleteElsewhere(empty);
    desktop.willAnswer(Answer::Yes).willSee(u"Record is deleted."_s);
    press(u"cmdDelete"_s);
    EXPECT_EQ(desktop.calls().at(desktop.calls().size() - 2).text,
              u"Are you sure you want to delete this Category?"_s);
    EXPECT_EQ(songsOf(keep).size(), 1);

    choose(u"Keep"_s);
    desktop.willAnswer(Answer::Yes);
    press(u"cmdDelete"_s);
    key(&grid(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(categoryNames(), QStringList()) << "and copying from the empty list does no harm";
}

TEST_F(TheCategoryScreen, LeavesTheRowOfARenamedCategory)
{
    set.categoryChosen(jazz, u"Jazz"_s);
    openForm();
    desktop.willType(u"Swing"_s).willAnswer(Answer::Yes);
    press(u"cmdChange"_s);
    EXPECT_EQ(screen.lblCategory(), u"Jazz"_s);
    press(u"cmdDelete"_s);
    EXPECT_EQ(store.settings().category()->Name, u"Jazz"_s);
    desktop.willSee(u"There are no Categories.  You must create one and select it"_s)
        .willSee(u"one before you can change it's description."_s)
        .willSee(u"There are no Categories, so there is nothing to delete."_s);
    for (const S &button : {u"cmdSelected"_s, u"cmdChange"_s, u"cmdDelete"_s})
        press(button);
    EXPECT_TRUE(isOpen());
    store.db().Execute(u"Insert Into tblSettings (Type, Name) Values ('CATEGORYSTARTUP', '-1')"_s);
    set.openAtLoad();
    EXPECT_GT(rows(), 0) << "a category that is gone gives way to all songs";
}

TEST_F(TheCategoryScreen, RemembersItsBoxAtOnce)
{
    openForm();
    for (const int value : {1, 0}) {
        press(u"cbDefaultCatg"_s);
        EXPECT_EQ(store.settings().categoryStartupBox(), value);
        EXPECT_EQ(store.settings().categoryAtStartup(), value == 1);
    }
    press(u"cbDefaultCatg"_s);
    press(u"cmdExit"_s);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    openForm();
    EXPECT_TRUE(child<QCheckBox>(*dialog, u"cbDefaultCatg"_s)->isChecked());
}

} // namespace
