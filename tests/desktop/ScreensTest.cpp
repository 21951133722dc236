// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/About.h"
#include "desktop/Desktop.h"
#include "desktop/EmptyPaste.h"
#include "desktop/InputForm.h"
#include "desktop/WorkingForm.h"
#include "desktop/frmHelp.h"
#include "desktop/frmMessage.h"
#include "platform/options/OptionsStore.h"
#include "support/UserActs.h"

#include <QClipboard>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QScreen>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using namespace quaverly;
using test::child;

namespace {

const auto WarningKey = u"Checkbox FileName Change Warning"_s;
const auto Section = QString::fromUtf16(OptionsSection);

TEST(TheInputForm, EnterAndOKTakeTheTextAndEveryOtherWayOutIsAnEmptyAnswer)
{
    const std::pair<std::function<void(InputForm &)>, QString> waysOut[] = {
        {[](InputForm &form) { test::key(child<QLineEdit>(form, u"txtInput"_s), Qt::Key_Return); }, u"new"_s},
        {[](InputForm &form) { test::click(form, u"cmdOK"_s); }, u"new"_s},
        {[](InputForm &form) { test::click(form, u"cmdCancel"_s); }, {}},
        {[](InputForm &form) { test::key(&form, Qt::Key_Escape); }, {}},
        {[](InputForm &form) { form.close(); }, {}},
    };
    for (const auto &[leave, answer] : waysOut) {
        InputForm form;
        form.setPrompt(u"First\rsecond & last"_s, u"T"_s);
        form.setDefaultText(u"old"_s);
        form.show();
        EXPECT_EQ(child<QLabel>(form, u"lblMessage"_s)->text(), u"First\nsecond & last"_s);
        EXPECT_EQ(form.text(), u"old"_s);
        test::type(child<QLineEdit>(form, u"txtInput"_s), u"new"_s); // the default is selected
        leave(form);
        EXPECT_FALSE(form.isVisible());
        EXPECT_EQ(form.text(), answer);
    }
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

TEST_F(TheWarning, CancelBacksOutAndOKGoesOnAndKeepsTheCheckBox)
{
    EXPECT_EQ(display([](QWidget &form) {
                  child<QCheckBox>(form, u"chkShowAgain"_s)->setChecked(true);
                  test::key(&form, Qt::Key_Escape);
              }),
              -1);
    EXPECT_EQ(kept(), u"none"_s);
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

// Without the filter, some releases of Qt crash here.
TEST(AnEmptyClipboard, PastesNothing)
{
    const EmptyPaste emptyPaste;
    QPlainTextEdit note(u"kept"_s);
    note.show();
    QClipboard &clipboard = *QApplication::clipboard();
    clipboard.setMimeData(new QMimeData);
    test::key(&note, Qt::Key_V, Qt::ControlModifier);
    QTest::mouseClick(note.viewport(), Qt::MiddleButton);
    EXPECT_EQ(note.toPlainText(), u"kept"_s);
    clipboard.setText(u"text "_s);
    test::key(&note, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(note.toPlainText(), u"text kept"_s);
}

} // namespace
