// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/QtDesktop.h"

#include "desktop/FileHelpers.h"
#include "desktop/MusicFolder.h"
#include "desktop/OnScreenKeyboard.h"
#include "desktop/Preview.h"
#include "desktop/PreviewQuestion.h"
#include "platform/options/OptionsStore.h"
#include "platform/store/DaoError.h"
#include "support/Files.h"
#include "support/UserActs.h"

#include <QAbstractItemView>
#include <QAction>
#include <QColorDialog>
#include <QCompleter>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QMessageBox>
#include <QTemporaryDir>

#include <csignal>
#include <variant>

using namespace Qt::StringLiterals;
using namespace quaverly;
using test::child;

namespace {

class TheDesktop : public ::testing::Test
{
protected:
    [[nodiscard]] QString path(const QString &name) const { return m_folder.filePath(name); }
    QTemporaryDir m_folder;
    OptionsStore m_options{m_folder.filePath(u"Quaverly.ini"_s)};
    QtDesktop desktop{m_options};
};

void press(QWidget &dialog, QMessageBox::StandardButton button)
{
    test::click(dynamic_cast<QMessageBox &>(dialog).button(button));
}

TEST_F(TheDesktop, MessageBoxesGiveTheButtonPressedByMouseOrKey)
{
    struct Case
    {
        Buttons buttons;
        std::optional<Answer> byDefault;
        std::variant<QMessageBox::StandardButton, Qt::Key> act;
        Answer answer;
    };
    for (const Case &one : {Case{Buttons::Ok, {}, QMessageBox::Ok, Answer::Ok},
                            {Buttons::OkCancel, {}, QMessageBox::Cancel, Answer::Cancel},
                            {Buttons::YesNo, {}, QMessageBox::Yes, Answer::Yes},
                            {Buttons::YesNo, {}, QMessageBox::No, Answer::No},
                            {Buttons::YesNo, Answer::No, Qt::Key_Return, Answer::No},
                            {Buttons::YesNo, {}, Qt::Key_Return, Answer::Yes},
                            {Buttons::YesNo, Answer::Yes, Qt::Key_Escape, Answer::No},
                            {Buttons::OkCancel, {}, Qt::Key_Escape, Answer::Cancel},
                            {Buttons::Ok, {}, Qt::Key_Escape, Answer::Ok}}) {
        test::inDialog([&one](QWidget &box) {
            if (const auto *button = std::get_if<QMessageBox::StandardButton>(&one.act))
                press(box, *button);
            else
                QTest::keyClick(&box, std::get<Qt::Key>(one.act));
        });
        EXPECT_EQ(desktop.MessageBox(u"Text"_s, u"T"_s, Icon::None, one.buttons, one.byDefault), one.answer);
    }
    // Texts are shown as they stand.
    test::inDialog([](QWidget &dialog) {
        auto &box = dynamic_cast<QMessageBox &>(dialog);
        EXPECT_EQ(box.text(), u"<b>R&B</b>\n   next  line"_s);
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        press(dialog, QMessageBox::Ok);
    });
    desktop.MessageBox(u"<b>R&B</b>\r\n   next  line"_s, u"File not added"_s, Icon::Exclamation);
    // A word that is longer than the screen is wide is broken.
    test::inDialog([](QWidget &dialog) {
        EXPECT_LE(child<QWidget>(dialog, u"qt_msgbox_label"_s)->sizeHint().width(), dialog.width());
        press(dialog, QMessageBox::Ok);
    });
    desktop.MessageBox(u"Is it "_s + QString(300, u'M') + u'?', u"T"_s, Icon::None);
}

/** The second of its rows can't be read. */
class TwoRows final : public Preview
{
public:
    TwoRows() { setRows(u"Two rows"_s, 2); }
    [[nodiscard]] ChangedRowTexts row(int row) const override
    {
        if (row == 1)
            throw dao::DaoError(dao::CannotOpenFile, u"Damaged"_s);
        return {u"Song"_s, u"Genre"_s, u"Rok"_s, u"Rock"_s};
    }
};

TEST_F(TheDesktop, AQuestionLeadsToThePreviewThatGoesOnOrGivesUp)
{
    TwoRows rows;
    for (const bool goesOn : {true, false}) {
        const auto preview = [goesOn](QWidget &screen) {
            EXPECT_EQ(test::rowsOf(screen),
                      (QStringList{u"x Song | Genre | Rok | Rock"_s, u"x Damaged |  |  | "_s}));
            if (goesOn)
                test::click(screen, u"cmdGoOn"_s);
            else
                test::key(&screen, Qt::Key_Escape);
        };
        test::inDialog([&](QWidget &box) {
            test::inDialog(preview);
            for (auto *button : box.findChildren<QPushButton *>()) {
                if (button->text() == QString::fromUtf16(ShowChangesCaption))
                    test::click(button);
            }
        });
        EXPECT_EQ(isConfirmed(desktop, {u"Text"_s, u"T"_s}, [&]() -> Preview & { return rows; }), goesOn);
    }
    test::inDialog([](QWidget &box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_EQ(desktop.MessageWithMore(u"Text"_s, u"T"_s, Icon::None, Buttons::OkCancel, {}, u"More"_s),
              Answer::Cancel);
}

TEST_F(TheDesktop, PromptsMaskPasswords)
{
    test::inDialog([](QWidget &form) {
        auto *field = child<QLineEdit>(form, u"txtInput"_s);
        test::type(field, u"se"_s);
        EXPECT_EQ(field->displayText(), u"**"_s);
        test::key(field, Qt::Key_Return);
    });
    EXPECT_EQ(desktop.InputPrompt(u"Type your password."_s, u"Password?"_s, {}, true), u"se"_s);
}

TEST_F(TheDesktop, AWarningGoesOnEvenIfItsCheckBoxCannotBeKept)
{
    OptionsStore nowhere(u"/proc/quaverly/Quaverly.ini"_s);
    QtDesktop other(nowhere);
    test::inDialog([](QWidget &form) {
        test::inDialog([](QWidget &box) { press(box, QMessageBox::Ok); });
        test::click(form, u"cmdOK"_s);
    });
    EXPECT_TRUE(other.ShowWarning(u"Careful!"_s, u"Key"_s));
    test::inDialog([](QWidget &form) { test::click(form, u"cmdCancel"_s); });
    EXPECT_FALSE(desktop.ShowWarning(u"Careful!"_s, u"Key"_s));
}

TEST_F(TheDesktop, TheColorDialogStartsWithAColorAndGivesTheChosenOne)
{
    constexpr quint32 Teal = 8421440;
    constexpr quint32 Orange = 0x0080FF;
    test::inDialog([](QWidget &dialog) {
        auto &colors = dynamic_cast<QColorDialog &>(dialog);
        EXPECT_EQ(colors.currentColor().name(), u"#408080"_s);
        colors.setCurrentColor(QColor(u"#ff8000"_s));
        test::key(&dialog, Qt::Key_Return);
    });
    EXPECT_EQ(desktop.ShowColor(Teal), Orange);
    test::inDialog([](QWidget &dialog) { test::key(&dialog, Qt::Key_Escape); });
    EXPECT_EQ(desktop.ShowColor(Teal), std::nullopt);
}

TEST_F(TheDesktop, TheOpenDialogOffersTheFiltersAndGivesTheFullPath)
{
    test::writeFile(path(u"Song & Co.MP3"_s));
    test::inDialog([](QWidget &dialog) {
        auto &files = dynamic_cast<QFileDialog &>(dialog);
        EXPECT_EQ(files.nameFilters(),
                  (QStringList{u"Music files (*.mp3;*.m4a) (*.mp3 *.m4a)"_s, u"All Files (*.*) (*)"_s}));
        auto *field = child<QLineEdit>(dialog, u"fileNameEdit"_s);
        test::retype(field, u"Song & Co.MP3"_s);
        test::key(field, Qt::Key_Return);
    });
    const FileQuestion question = {u"Select a music file"_s,
                                   u"Music files (*.mp3;*.m4a)|*.mp3;*.m4a|All Files (*.*)|*.*"_s,
                                   m_folder.path() + u"/"_s, QString()};
    EXPECT_EQ(desktop.ShowOpenDialog(question), path(u"Song & Co.MP3"_s));
}

TEST_F(TheDesktop, TheSaveDialogCompletesTheNameAndNeverTakesAPattern)
{
    const FileQuestion question = {u"Save"_s, u"rtf Files & (*.rtf)|*.rtf|All Files (*.*)|*.*"_s,
                                   path(u"gone/for/good/"_s), u"*.rtf"_s};
    test::inDialog([this](QWidget &dialog) {
        auto *field = child<QLineEdit>(dialog, u"fileNameEdit"_s);
        EXPECT_EQ(field->text(), QString());
        EXPECT_EQ(field->placeholderText(), u"*.rtf"_s);
        EXPECT_EQ(dynamic_cast<QFileDialog &>(dialog).directory().path(), m_folder.path());
        test::type(field, u"report"_s);
        test::key(field, Qt::Key_Return);
    });
    EXPECT_EQ(desktop.ShowSaveDialog(question), path(u"report.rtf"_s));
    test::inDialog([](QWidget &dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_EQ(desktop.ShowSaveDialog(question), std::nullopt);
}

TEST_F(TheDesktop, TheFolderDialogShowsItsPromptAndEndsInASeparator)
{
    ASSERT_TRUE(QDir().mkdir(path(u"Abba"_s)));
    test::inDialog([](QWidget &dialog) {
        EXPECT_EQ(child<QLabel>(dialog, u"lblPrompt"_s)->text(), u"Add a Folder"_s);
        test::type(child<QLineEdit>(dialog, u"fileNameEdit"_s), u"Abba"_s);
        test::key(child<QLineEdit>(dialog, u"fileNameEdit"_s), Qt::Key_Return);
    });
    EXPECT_EQ(desktop.BrowseForFolder(u"Add a Folder"_s, u"Select a Folder"_s, m_folder.path()),
              path(u"Abba/"_s));
    test::inDialog([](QWidget &dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_EQ(desktop.BrowseForFolder(u"P"_s, u"T"_s, m_folder.path()), QString());
}

// "/x/music2" begins like "/x/music", the folder on show.
TEST_F(TheDesktop, TheFolderDialogTakesTheFolderInItsLineAndDeletesNone)
{
    for (const auto &folder : {u"music"_s, u"music2"_s})
        ASSERT_TRUE(QDir().mkdir(path(folder)));
    test::inDialog([this](QWidget &dialog) {
        for (const auto &act : {u"qt_delete_action"_s, u"qt_rename_action"_s})
            EXPECT_FALSE(child<QAction>(dialog, act)->isVisible());
        auto *line = child<QLineEdit>(dialog, u"fileNameEdit"_s);
        test::type(line, path(u"mus"_s));
        QAbstractItemView *list = line->completer()->popup();
        EXPECT_TRUE(QTest::qWaitFor([&] { return list->isVisible() && list->model()->rowCount() == 2; }));
        QTest::keyClick(list, Qt::Key_Down);
        QTest::keyClick(list, Qt::Key_Down);
        EXPECT_EQ(line->text(), path(u"music2"_s));
        test::click(child<QDialogButtonBox>(dialog, u"buttonBox"_s)->buttons().first());
    });
    EXPECT_EQ(desktop.BrowseForFolder(u"P"_s, u"T"_s, path(u"music"_s)), path(u"music2/"_s));
    EXPECT_TRUE(FolderExists(musicFolder()));
    test::inDialog([this](QWidget &dialog) {
        EXPECT_EQ(dynamic_cast<QFileDialog &>(dialog).directory(), QDir(musicFolder()));
        test::inDialog([](QWidget &prompt) {
            test::type(child<QLineEdit>(prompt, u"txtInput"_s), u"New"_s);
            test::click(prompt, u"cmdOK"_s);
        });
        dynamic_cast<QFileDialog &>(dialog).setDirectory(m_folder.path());
        test::click(dialog, u"cmdNewFolder"_s);
        test::click(child<QDialogButtonBox>(dialog, u"buttonBox"_s)->buttons().first());
    });
    EXPECT_EQ(desktop.BrowseForFolder(u"P"_s, u"T"_s, {}), path(u"New/"_s));
}

bool isBusy()
{
    const QCursor *cursor = QGuiApplication::overrideCursor();
    return cursor && cursor->shape() == Qt::WaitCursor;
}

TEST_F(TheDesktop, TheBusyPointerNestsAndRestsInDialogs)
{
    {
        const Hourglass outer(desktop);
        {
            const Hourglass inner(desktop);
        }
        EXPECT_TRUE(isBusy());
        test::inDialog([](QWidget &box) {
            EXPECT_FALSE(isBusy());
            press(box, QMessageBox::Ok);
        });
        desktop.MessageBox(u"Text"_s, u"T"_s);
        EXPECT_TRUE(isBusy());
        desktop.resetPointer();
        EXPECT_FALSE(isBusy());
    }
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    const Hourglass again(desktop);
    EXPECT_TRUE(isBusy());
}

TEST_F(TheDesktop, TheWaitingWindowGoesWithItsHandleOrAtAClickOrAKeyThatTypes)
{
    const auto form = [] {
        for (QWidget *window : QApplication::topLevelWidgets()) {
            if (window->objectName() == u"WorkingForm"_s && window->isVisible())
                return window;
        }
        return static_cast<QWidget *>(nullptr);
    };
    auto handle = desktop.ShowWorkingForm(u"Report is running..."_s, u"Please wait..."_s, true);
    desktop.letEventsRun();
    ASSERT_TRUE(form());
    EXPECT_TRUE(child<QWidget>(*form(), u"Label1"_s)->isVisible());
    handle.reset();
    EXPECT_FALSE(form());

    handle = desktop.ShowWorkingForm(u"Report is running..."_s, u"Please wait..."_s, false);
    test::click(form());
    desktop.letEventsRun();
    EXPECT_FALSE(form());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    handle->setMsg(u"still working"_s);

    handle = desktop.ShowWorkingForm(u"Report is running..."_s, u"Please wait..."_s, true);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Shift})
        test::key(form(), key);
    EXPECT_FALSE(handle->isClosed());
    test::key(form(), Qt::Key_A);
    EXPECT_TRUE(handle->isClosed());

    handle = desktop.ShowWorkingForm(u"Report is running..."_s, u"Please wait..."_s, true);
    EXPECT_FALSE(child<QPushButton>(*form(), u"cmdCancel"_s)->isVisible());
    handle->offerCancel();
    test::click(*form(), u"cmdCancel"_s);
    EXPECT_TRUE(handle->isClosed());
}

TEST_F(TheDesktop, OneKeyboardIsStartedAtATime)
{
    const QString program = path(u"keyboard"_s);
    test::writeFile(program, "#!/bin/sh\necho $$ >> \"$0.pids\"\nexec sleep 600\n");
    QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    OnScreenKeyboard keyboard({path(u"missing"_s), program});
    EXPECT_TRUE(keyboard.show());
    EXPECT_TRUE(keyboard.show());

    QByteArray started;
    EXPECT_TRUE(QTest::qWaitFor([&] {
        started = test::bytesOf(program + u".pids"_s);
        return started.endsWith('\n');
    }));
    EXPECT_EQ(started.count('\n'), 1);
    ::kill(started.trimmed().toInt(), SIGKILL);
    EXPECT_FALSE(OnScreenKeyboard({path(u"missing"_s)}).show());
}

} // namespace
