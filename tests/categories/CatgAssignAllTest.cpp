// SPDX-License-Identifier: GPL-3.0-or-later
#include "CategoriesFixture.h"

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

class TheBulkScreen : public Categories
{
protected:
    void openAll() { open(&CategoryCommands::AssignAllToCatg_Click); }
    void confirm(const S &button, const S &statistics)
    {
        desktop.willAnswer(Answer::Ok, u"Click on the OK button to "_s).willSee(statistics);
        press(button);
        EXPECT_EQ(desktop.lastCall().text, statistics);
    }
};

TEST_F(TheBulkScreen, AssignsAndRemovesWhatIsDisplayed)
{
    openAll();
    confirm(u"cmdAssign"_s, u"Number of Songs assigned to Category \"Jazz\" (5).\n"
                            "Number of Songs already assigned to this Category (2)."_s);
    confirm(u"cmdAssign"_s, u"Number of Songs assigned to Category \"Jazz\" (0).\n"
                            "Number of Songs already assigned to this Category (7)."_s);
    EXPECT_EQ(songsOf(jazz).size(), 7);
    ASSERT_TRUE(set.playListView(list, u"Party"_s));
    confirm(u"cmdDelete"_s, u"Number of Songs removed from Category \"Jazz\" (2)."_s);
    confirm(u"cmdDelete"_s, u"Number of Songs removed from Category \"Jazz\" (0).\n"
                            "Number of Songs not found assigned to this Category (2)."_s);
    EXPECT_EQ(songsOf(jazz).size(), 5);
    EXPECT_EQ(backups, 2) << "where nothing changes there is no copy";
    EXPECT_TRUE(isOpen());
}

TEST_F(TheBulkScreen, ActsOnTheSongsThatAreTickedInThePreview)
{
    openAll();
    const auto look = [&](const S &button, qsizetype rows, const S &statistics) {
        desktop.willAnswer(Answer::More)
            .willPreview([=](QWidget &preview) {
                EXPECT_EQ(rowsOf(preview).size(), rows);
                tickRow(preview, 0);
                click(preview, u"cmdGoOn"_s);
            })
            .willSee(statistics);
        press(button);
        EXPECT_EQ(desktop.lastCall().text, statistics);
    };
    look(u"cmdAssign"_s, 5, u"Number of Songs assigned to Category \"Jazz\" (4)."_s);
    EXPECT_EQ(songsOf(jazz).size(), 6);
    look(u"cmdDelete"_s, 6, u"Number of Songs removed from Category \"Jazz\" (5)."_s);
    EXPECT_EQ(songsOf(jazz).size(), 1);
}

TEST_F(TheBulkScreen, ActsOnTheRowsShownWhateverTheStatementWouldFindNow)
{
    // Two songs displayed, one of them twice, that no longer are what the statement asks for.
    for (const qint64 song : {sos, sos, queen})
        store.addRow(u"tblOrphanFileNames"_s, {{u"RecordIdOrphan"_s, song}});
    set.invalidFileView();
    ASSERT_EQ(rows(), 3);
    store.db().Execute(u"Delete From tblOrphanFileNames"_s);
    const qint64 other = store.addCategory(u"Other"_s);
    openAll();
    choose(u"Other"_s);
    confirm(u"cmdAssign"_s, u"Number of Songs assigned to Category \"Other\" (2).\n"
                            "Number of Songs already assigned to this Category (1)."_s);
    EXPECT_EQ(songsOf(other), (QStringList{S::number(queen), S::number(sos)}));
}

TEST_F(TheBulkScreen, WarnsThatTheSelectionIsNotWhatCounts)
{
    mark(queen);
    openAll();
    desktop.willAnswer(Answer::Cancel);
    press(u"cmdAssign"_s);
    EXPECT_EQ(
        desktop.lastCall().text,
        u"All displayed Songs will be assigned to this Category, not just the 1 you have selected.  To "
        "assign just the selected records, press Cancel, exit this screen, and click the \"Show Selected "
        "Records Only\" button on the previous screen or choose that option from the Edit menu.\r\n\r\n"
        "Click on the OK button to assign ALL displayed Songs to this Category, or Cancel if this is not "
        "what you want."_s);
    EXPECT_EQ(desktop.lastCall().defaultAnswer, Answer::Cancel);
    set.ShowSelectedOnlyMenu_Click();
    desktop.willAnswer(Answer::Cancel);
    press(u"cmdDelete"_s);
    EXPECT_TRUE(desktop.lastCall().text.startsWith(u"Click on the OK button to remove ALL"_s));
    EXPECT_EQ(songsOf(jazz).size(), 2);
    EXPECT_EQ(backups, 0);
}

TEST_F(TheBulkScreen, StopsWithoutACopyAndTellsWhatFails)
{
    openAll();
    backupWorks = false;
    desktop.willAnswer(Answer::Ok);
    press(u"cmdAssign"_s);
    EXPECT_EQ(songsOf(jazz).size(), 2);
    backupWorks = true;
    deleteElsewhere(jazz);
    desktop.willAnswer(Answer::Ok).willSee(u"Record is deleted."_s);
    press(u"cmdAssign"_s);
    EXPECT_EQ(desktop.lastCall().icon, Icon::None);
    EXPECT_EQ(songsOf(jazz).size(), 2);
    desktop.willAnswer(Answer::Ok);
    press(u"cmdDelete"_s);
    EXPECT_EQ(songsOf(jazz).size(), 2) << "no categories: nothing happens, and nothing is said";
}

} // namespace
