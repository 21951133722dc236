// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/ScriptedDesktop.h"
#include "support/QtPrinters.h"
#include "support/UserActs.h"

#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace quaverly;
using test::ScriptedDesktop;

namespace {

TEST(AScriptedDesktop, AnswersInOrderAndRecordsWhatWasShown)
{
    ScriptedDesktop desktop;
    desktop.willAnswer(Answer::Yes, u"sure"_s)
        .willType(u"Jazz"_s)
        .willOpen(std::nullopt)
        .willBrowse(u"/m/"_s);
    desktop.willPassWarning(false);

    EXPECT_EQ(desktop.MessageBox(u"Are you sure?"_s, u"T"_s, Icon::Question, Buttons::YesNo, Answer::No),
              Answer::Yes);
    EXPECT_EQ(desktop.lastCall().defaultAnswer, Answer::No);
    EXPECT_EQ(desktop.InputPrompt(u"Name?"_s, u"T"_s, u"Pop"_s, false), u"Jazz"_s);
    EXPECT_EQ(desktop.lastCall().offered, u"Pop"_s);
    EXPECT_EQ(desktop.ShowOpenDialog({u"Open"_s, u"F|*.f"_s, u"/start/"_s, u"n"_s}), std::nullopt);
    EXPECT_EQ(desktop.lastCall().startFolder, u"/start/"_s);
    EXPECT_EQ(desktop.BrowseForFolder(u"P"_s, u"T"_s, {}), u"/m/"_s);
    EXPECT_FALSE(desktop.ShowWarning(u"W"_s, u"Key"_s));
    EXPECT_EQ(desktop.lastCall().key, u"Key"_s);
    EXPECT_EQ(desktop.messages(), QStringList{u"Are you sure?"_s});
}

void showUnexpectedBox()
{
    ScriptedDesktop desktop;
    desktop.MessageBox(u"Surprise"_s, u"T"_s, Icon::None, Buttons::YesNo, std::nullopt);
}

void showAnotherKindOfDialog()
{
    ScriptedDesktop desktop;
    desktop.willType(u"x"_s);
    desktop.BrowseForFolder(u"Surprise"_s, u"T"_s, {});
    desktop.InputPrompt({}, {}, {}, false);
}

void pressAMissingButton()
{
    ScriptedDesktop desktop;
    desktop.willAnswer(Answer::Yes);
    desktop.MessageBox(u"Surprise"_s, u"T"_s, Icon::None, Buttons::OkCancel, std::nullopt);
}

void leaveAnAnswerOver()
{
    ScriptedDesktop desktop;
    desktop.willAnswer(Answer::Ok, u"Surprise"_s);
}

void leaveThePointerBusy()
{
    ScriptedDesktop desktop;
    desktop.setHourglass(true);
}

TEST(AScriptedDesktop, FailsTheTestForWhatTheScriptDoesNotHold)
{
    EXPECT_NONFATAL_FAILURE(showUnexpectedBox(), "Surprise");
    EXPECT_NONFATAL_FAILURE(showAnotherKindOfDialog(), "Surprise");
    EXPECT_NONFATAL_FAILURE(pressAMissingButton(), "no button");
    EXPECT_NONFATAL_FAILURE(leaveAnAnswerOver(), "Surprise");
    EXPECT_NONFATAL_FAILURE(leaveThePointerBusy(), "busy pointer");
}

TEST(AScriptedDesktop, LetsATestActInTheMiddleOfACommand)
{
    ScriptedDesktop desktop;
    int at = 0;
    desktop.atEvents(3, [&] { at = desktop.eventsRun(); });
    {
        const auto window = desktop.ShowWorkingForm(u"C"_s, u"M"_s, true);
        for (int i = 1; i <= 5; ++i) {
            desktop.letEventsRun();
            window->setBar(i);
        }
        EXPECT_TRUE(desktop.workingForms().front()->isOpen);
    }
    EXPECT_EQ(at, 3);
    EXPECT_EQ(desktop.workingForms().front()->bars, (QList<int>{1, 2, 3, 4, 5}));
    EXPECT_FALSE(desktop.workingForms().front()->isOpen);
}

/** A screen with a button, a field and a menu, as the user acts need them. */
class Screen final
{
public:
    Screen()
    {
        button.setObjectName(u"cmdGo"_s);
        field.setObjectName(u"txtName"_s);
        field.move(0, 50);
        QMenu *menu = window.menuBar()->addMenu(u"&File"_s);
        entry = menu->addAction(u"&New"_s);
        entry->setObjectName(u"mnuNew"_s);
        QObject::connect(menu, &QMenu::aboutToShow, &window, [this] { entry->setEnabled(entryOpens); });
        QObject::connect(entry, &QAction::triggered, &window, [this] { ++chosen; });
        QObject::connect(&button, &QPushButton::clicked, &window, [this] { ++clicks; });
        window.show();
    }

    QMainWindow window;
    QWidget area{&window};
    QPushButton button{&area};
    QLineEdit field{&area};
    QAction *entry = nullptr;
    bool entryOpens = true;
    int clicks = 0;
    int chosen = 0;
};

TEST(UserActs, ReachWhatTheUserReaches)
{
    Screen screen;
    screen.window.setCentralWidget(&screen.area);
    test::click(screen.window, u"cmdGo"_s);
    test::type(test::child<QLineEdit>(screen.window, u"txtName"_s), u"Ünï &\u4E2D"_s);
    test::chooseMenu(screen.window, u"mnuNew"_s);
    EXPECT_EQ(screen.clicks, 1);
    EXPECT_EQ(screen.field.text(), u"Ünï &\u4E2D"_s);
    EXPECT_EQ(screen.chosen, 1);
    test::retype(&screen.field, u"b"_s);
    EXPECT_EQ(screen.field.text(), u"b"_s);
    screen.window.takeCentralWidget();
}

TEST(UserActs, FailOnWhatTheUserCannotReach)
{
    Screen screen;
    screen.window.setCentralWidget(&screen.area);
    const auto clickIt = [&] { test::click(&screen.button); };
    screen.button.setEnabled(false);
    EXPECT_NONFATAL_FAILURE(clickIt(), "cmdGo is disabled");
    screen.button.setEnabled(true);
    screen.button.hide();
    EXPECT_NONFATAL_FAILURE(clickIt(), "cmdGo is hidden");
    EXPECT_THROW(test::click(screen.window, u"cmdGone"_s), std::runtime_error);
    screen.entryOpens = false;
    EXPECT_NONFATAL_FAILURE(test::chooseMenu(screen.window, u"mnuNew"_s), "mnuNew is disabled");
    EXPECT_EQ(screen.clicks + screen.chosen, 0);
    screen.window.takeCentralWidget();
}

} // namespace
