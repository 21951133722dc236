// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/About.h"
#include "desktop/Desktop.h"
#include "desktop/InputForm.h"
#include "desktop/WorkingForm.h"
#include "desktop/frmHelp.h"
#include "desktop/frmMessage.h"
#include "platform/options/OptionsStore.h"
#include "support/QtPrinters.h"
#include "support/UserActs.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace quaverly;
using test::child;

namespace {

const auto WarningKey = u"Checkbox FileName Change Warning"_s;
const auto Section = QString::fromUtf16(OptionsSection);

TEST(TheInputForm, EnterAndOKTakeTheText)
{
    for (const bool byKey : {true, false}) {
        InputForm form;
        form.setPrompt(u"First\rsecond & last"_s, u"T"_s);
        form.setDefaultText(u"old"_s);
        form.show();
        EXPECT_EQ(child<QLabel>(form, u"lblMessage"_s)->text(), u"First\nsecond & last"_s);
        EXPECT_EQ(form.text(), u"old"_s);
        auto *field = child<QLineEdit>(form, u"txtInput"_s);
        test::type(field, u"new"_s); // the default is selected
        byKey ? test::key(field, Qt::Key_Return) : test::click(form, u"cmdOK"_s);
        EXPECT_FALSE(form.isVisible());
        EXPECT_EQ(form.text(), u"new"_s);
    }
}

TEST(TheInputForm, EveryWayOutIsAnEmptyAnswer)
{
    const std::vector<std::function<void(InputForm &)>> waysOut = {
        [](InputForm &form) { test::click(form, u"cmdCancel"_s); },
        [](InputForm &form) { test::key(&form, Qt::Key_Escape); },
        [](InputForm &form) { form.close(); },
    };
    for (const auto &leave : waysOut) {
        InputForm form;
        form.setPrompt(u"P"_s, u"T"_s);
        form.setDefaultText(u"old"_s);
        form.show();
        leave(form);
        EXPECT_FALSE(form.isVisible());
        EXPECT_EQ(form.text(), QString());
    }
}

TEST(TheInputForm, AClickInTheFieldCallsTheKeyboardOnTabletsOnly)
{
    int calls = 0;
    InputForm form;
    form.setPrompt(u"P"_s, u"T"_s);
    form.show();
    test::click(form, u"txtInput"_s);
    form.setTablet([&calls] { ++calls; });
    test::click(form, u"txtInput"_s);
    EXPECT_EQ(calls, 1);
}

class TheWarning : public ::testing::Test
{
protected:
    /** Shows the warning, does @p act, and returns the outcome. */
    qint16 display(const std::function<void(QWidget &)> &act)
    {
        frmMessage form(m_options);
        form.Message(u"Careful!"_s);
        test::inDialog(act);
        return form.Display(WarningKey);
    }
    [[nodiscard]] QString kept() const { return m_options.GetSetting(Section, WarningKey, u"none"_s); }

    QTemporaryDir m_folder;
    OptionsStore m_options{m_folder.filePath(u"Quaverly.ini"_s)};
};

TEST_F(TheWarning, OKGoesOnAndKeepsTheCheckBox)
{
    EXPECT_EQ(display([](QWidget &form) { test::click(form, u"cmdOK"_s); }), 0);
    EXPECT_EQ(kept(), u"0"_s);
    EXPECT_EQ(display([](QWidget &form) {
                  test::click(form, u"chkShowAgain"_s);
                  test::key(&form, Qt::Key_Return);
              }),
              0);
    EXPECT_EQ(kept(), u"1"_s);

    frmMessage form(m_options);
    EXPECT_EQ(form.Display(WarningKey), 0); // at once, nobody answers
}

TEST_F(TheWarning, CancelBacksOutAndKeepsNothing)
{
    for (const bool byKey : {true, false}) {
        EXPECT_EQ(display([byKey](QWidget &form) {
                      child<QCheckBox>(form, u"chkShowAgain"_s)->setChecked(true);
                      byKey ? test::key(&form, Qt::Key_Escape) : test::click(form, u"cmdCancel"_s);
                  }),
                  -1);
        EXPECT_EQ(kept(), u"none"_s);
    }
}

TEST(TheWorkingForm, AClickOrAKeyUnloadsIt)
{
    for (const bool byKey : {true, false}) {
        const QPointer<WorkingForm> form = new WorkingForm;
        form->setMsg(u"Please wait..."_s);
        form->show();
        byKey ? test::key(form, Qt::Key_A) : test::click(*form, u"Msg"_s);
        EXPECT_TRUE(QTest::qWaitFor([&form] { return form.isNull(); }));
    }
}

TEST(TheAboutScreen, OpensTheWebSite)
{
    int opened = 0;
    About form([&opened] { ++opened; });
    form.show();
    auto *link = child<QLabel>(form, u"Label2"_s);
    QTest::mouseClick(link, Qt::LeftButton, {}, QPoint(10, link->height() / 2));
    EXPECT_EQ(opened, 1);
    test::click(form, u"Command1"_s);
    EXPECT_FALSE(form.isVisible());
}

/** Every text of a screen must be seen whole, however large the font. */
void expectNothingCut(QWidget &screen)
{
    screen.show();
    QApplication::processEvents();
    for (QLabel *label : screen.findChildren<QLabel *>()) {
        if (!label->isVisible() || label->text().isEmpty())
            continue;
        const std::string name = label->objectName().toStdString();
        EXPECT_GE(label->width(), label->minimumSizeHint().width()) << name;
        EXPECT_GE(label->height(), label->heightForWidth(label->width())) << name;
    }
    for (QAbstractButton *button : screen.findChildren<QAbstractButton *>())
        EXPECT_TRUE(!button->isVisible() || button->width() >= button->minimumSizeHint().width())
            << button->objectName().toStdString();
}

TEST(AllDialogs, LongTextsInLargeFontsAreNotCut)
{
    const QFont before = QApplication::font();
    QTemporaryDir folder;
    OptionsStore options(folder.filePath(u"o.ini"_s));
    const QString text = u"The path "_s + QString(150, u'x') + u"\nis long. "_s + u"Word "_s.repeated(60);
    for (const int points : {8, 14, 20}) {
        QFont font = before;
        font.setPointSize(points);
        QApplication::setFont(font);
        InputForm input;
        input.setPrompt(text, u"T"_s);
        expectNothingCut(input);
        frmMessage message(options);
        message.Message(text);
        expectNothingCut(message);
        WorkingForm working;
        working.setAttribute(Qt::WA_DeleteOnClose, false);
        working.setMsg(text);
        expectNothingCut(working);
        frmHelp help(u"Using Play Lists"_s, text);
        expectNothingCut(help);
        EXPECT_LE(help.height(), help.screen()->availableSize().height());
        About about({});
        expectNothingCut(about);
    }
    QApplication::setFont(before);
}

} // namespace
