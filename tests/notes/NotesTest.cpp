// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/Options.h"
#include "notes/MemoForm.h"
#include "notes/NoteText.h"
#include "notes/NotesForm.h"
#include "platform/options/OptionsStore.h"
#include "support/Files.h"
#include "support/Limits.h"
#include "support/QtPrinters.h"
#include "support/ScriptedDesktop.h"
#include "support/UserActs.h"
#include "support/store/StoreFixture.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

class TheNotes : public ::testing::Test
{
protected:
    void SetUp() override
    {
        keep(u"Anna's list"_s, u"{\\rtf1 buy {\\b records}}"_s);
        keep(u"Bands"_s, u"{\\rtf1 Abba, abba and ABBA}"_s);
        open();
    }
    void keep(const QString &title, const QString &rtf)
    {
        store.addRow(u"tblSettings"_s, {{u"Type"_s, u"NOTE"_s}, {u"Name"_s, title}, {u"Setting8"_s, rtf}});
    }
    void open()
    {
        form = std::make_unique<MemoForm>(
            NoteBook(store.catalogue(), store.settings()),
            NoteDrafts({drafts.path() + u'/', store.folder() + u'/'}, store.catalogue().DatabaseFile),
            desktop, options);
        form->show();
        form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    }
    QComboBox &titles() { return *child<QComboBox>(*form, u"cmbTitle"_s); }
    NoteText &text() { return *child<NoteText>(*form, u"txtNotes"_s); }
    QString kept(const QString &title) { return NoteBook(store.catalogue(), store.settings()).text(title); }
    QStringList keptTitles() { return NoteBook(store.catalogue(), store.settings()).titles(); }
    void choose(const QString &title)
    {
        titles().setFocus();
        titles().setCurrentIndex(titles().findText(title));
        Q_EMIT titles().activated(titles().currentIndex());
    }

    bool isUnsaved() { return child<QLabel>(*form, u"lblUnsaved"_s)->isVisible(); }
    qsizetype draftCount() { return QDir(drafts.path()).entryList(QDir::Files).size(); }

    QTemporaryDir drafts;
    StoreFixture store;
    ScriptedDesktop desktop;
    Options options;
    std::unique_ptr<MemoForm> form;
};

TEST_F(TheNotes, OpenWithTitlesRepairedAndAtTheNoteOfTheLastTime)
{
    EXPECT_EQ(keptTitles(), QStringList({u"Anna`s list"_s, u"Bands"_s}));
    EXPECT_EQ(text().toPlainText(), u"buy records"_s);
    EXPECT_TRUE(text().textCursor().atStart());
    choose(u"Bands"_s);
    click(*form, u"cmdExit"_s);
    open();
    EXPECT_EQ(titles().currentText(), u"Bands"_s);
}

TEST_F(TheNotes, AreSavedAtEveryWayOutButOnlyWhenChanged)
{
    const QString untouched = kept(u"Bands"_s);
    type(&text(), u" today"_s);
    choose(u"Bands"_s);
    EXPECT_TRUE(kept(u"Anna`s list"_s).contains(u"today"_s));
    choose(u"Anna`s list"_s);
    EXPECT_TRUE(text().toPlainText().contains(u"buy records"_s));
    EXPECT_EQ(kept(u"Bands"_s), untouched);

    choose(u"Bands"_s);
    type(&text(), u" live"_s);
    key(&text(), Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
    EXPECT_TRUE(kept(u"Bands"_s).contains(u"live"_s));
}

TEST_F(TheNotes, KeepWhatIsTypedWhenTheBoxIsLeftAndGiveItBackOnCancel)
{
    const QString before = kept(u"Anna`s list"_s);
    type(&text(), u" tomorrow"_s);
    titles().setFocus();
    EXPECT_TRUE(kept(u"Anna`s list"_s).contains(u"tomorrow"_s));

    desktop.willAnswer(Answer::No).willAnswer(Answer::Yes);
    click(*form, u"cmdCancel"_s);
    EXPECT_TRUE(form->isVisible());
    click(*form, u"cmdCancel"_s);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(desktop.lastCall().text, u"Lose any changes?"_s);
    EXPECT_EQ(kept(u"Anna`s list"_s), before);
}

TEST_F(TheNotes, AreAddedUnderATitleOfTheirOwn)
{
    desktop.willType(QString(60, u'x') + u'\'');
    desktop.willSee();
    click(*form, u"cmdAdd"_s);
    EXPECT_EQ(desktop.lastCall().text, u"Cannot use quotes or apostrophes in Note Title"_s);

    // Cut to 50 characters before it is looked for.
    const QString longTitle(60, u'x');
    desktop.willType(longTitle);
    click(*form, u"cmdAdd"_s);
    EXPECT_EQ(titles().currentText(), longTitle.left(50));
    type(&text(), u"Ω and 日本"_s);
    desktop.willType(longTitle.toUpper());
    desktop.willSee();
    click(*form, u"cmdAdd"_s);
    EXPECT_EQ(desktop.lastCall().text,
              u"A note with that same name (%1) already exists.  Choose a different name."_s.arg(
                  longTitle.left(50).toUpper()));

    click(*form, u"cmdExit"_s);
    open();
    EXPECT_EQ(titles().currentText(), longTitle.left(50));
    EXPECT_EQ(text().toPlainText(), u"Ω and 日本"_s);
}

TEST_F(TheNotes, TakeATypedTitleUnlessItIsNone)
{
    QLineEdit &box = *titles().lineEdit();
    retype(&box, u"  "_s);
    desktop.willSee();
    key(&box, Qt::Key_Return);
    EXPECT_EQ(desktop.lastCall().text, u"Note Title cannot be blank"_s);
    EXPECT_EQ(box.text(), u"Anna`s list"_s);
    retype(&box, u"say \"hi\""_s);
    desktop.willSee();
    key(&box, Qt::Key_Return);
    EXPECT_EQ(box.text(), u"say \"hi\""_s);
    retype(&box, u"Zebra"_s);
    key(&box, Qt::Key_Return);
    EXPECT_EQ(keptTitles(), QStringList({u"Bands"_s, u"Zebra"_s}));
    EXPECT_TRUE(kept(u"Zebra"_s).contains(u"records"_s));
    EXPECT_EQ(titles().currentIndex(), 1);
}

TEST_F(TheNotes, AreDeletedDownToNone)
{
    desktop.willAnswer(Answer::No);
    click(*form, u"cmdDelete"_s);
    EXPECT_EQ(keptTitles().size(), 2);
    choose(u"Bands"_s);
    desktop.willAnswer(Answer::Yes);
    click(*form, u"cmdDelete"_s);
    EXPECT_EQ(titles().currentText(), u"Anna`s list"_s);
    desktop.willAnswer(Answer::Yes);
    click(*form, u"cmdDelete"_s);
    EXPECT_TRUE(keptTitles().isEmpty());
    EXPECT_TRUE(text().toPlainText().isEmpty());
    EXPECT_FALSE(text().isEnabled());
    EXPECT_FALSE(child<QPushButton>(*form, u"cmdDelete"_s)->isEnabled());
    click(*form, u"cmdExit"_s);
    EXPECT_TRUE(keptTitles().isEmpty());
}

TEST_F(TheNotes, FindATextAgainAndAgain)
{
    choose(u"Bands"_s);
    desktop.willType(u"abba"_s);
    click(*form, u"cmdFind"_s);
    EXPECT_EQ(text().textCursor().selectedText(), u"Abba"_s);
    click(*form, u"cmdFindNext"_s);
    EXPECT_EQ(text().textCursor().selectedText(), u"abba"_s);
    click(*form, u"cmdFindNext"_s);
    desktop.willSee();
    click(*form, u"cmdFindNext"_s);
    EXPECT_EQ(desktop.lastCall().text, u"[abba]\r\nReached end of notes."_s);
    desktop.willType(u"Queen"_s);
    desktop.willSee();
    click(*form, u"cmdFind"_s);
    EXPECT_EQ(desktop.lastCall().title, u"Text not found"_s);
}

TEST_F(TheNotes, KeepLettersColoursAndPictures)
{
    QTemporaryDir folder;
    const QString picture = folder.filePath(u"a.png"_s);
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::red);
    ASSERT_TRUE(image.save(picture));
    const QString noPicture = folder.filePath(u"b.jpg"_s);
    writeFile(noPicture, "text");

    text().selectAll();
    click(*form, u"chkItalic"_s);
    desktop.willPickFont(FontChoice{u"Serif"_s, 20, 0x0000FF});
    click(*form, u"cmdFontColor"_s);
    text().moveCursor(QTextCursor::End);
    desktop.willOpen(picture).willOpen(noPicture).willSee();
    click(*form, u"cmdPicture"_s);
    click(*form, u"cmdPicture"_s);
    EXPECT_TRUE(desktop.lastCall().text.contains(u"no picture"_s));
    click(*form, u"cmdExit"_s);

    const QString rtf = kept(u"Anna`s list"_s);
    EXPECT_TRUE(rtf.contains(u"\\pngblip"_s));
    open();
    QTextCursor cursor(text().document());
    cursor.setPosition(1);
    EXPECT_TRUE(cursor.charFormat().fontItalic());
    EXPECT_EQ(cursor.charFormat().foreground().color(), QColor(Qt::red));
    text().moveCursor(QTextCursor::End);
    EXPECT_TRUE(text().textCursor().charFormat().isImageFormat());
    EXPECT_EQ(text().textCursor().charFormat().fontPointSize(), 20);
}

TEST_F(TheNotes, CanBeLeftOnAFullDiskAndAreOfferedAgain)
{
    type(&text(), u"quickly "_s);
    {
        const FullDisk full(2000);
        titles().setFocus();
        EXPECT_TRUE(desktop.calls().isEmpty()) << "no box for a focus that was lost";
        EXPECT_TRUE(isUnsaved());
        desktop.willSee(u"is kept in the file"_s).willSee(u"is not saved"_s);
        click(*form, u"cmdExit"_s);
        EXPECT_TRUE(form->isVisible());
        choose(u"Bands"_s);
        EXPECT_EQ(titles().currentText(), u"Anna`s list"_s);
        retype(titles().lineEdit(), u"Zebra"_s);
        desktop.willAnswer(Answer::Yes, u"Lose any changes?"_s);
        click(*form, u"cmdCancel"_s);
        EXPECT_FALSE(form->isVisible());
    }
    EXPECT_FALSE(kept(u"Anna`s list"_s).contains(u"quickly"_s));
    EXPECT_EQ(draftCount(), 1);

    desktop.willAnswer(Answer::Yes, u"quickly buy records"_s);
    open();
    EXPECT_TRUE(QTest::qWaitFor([this] { return text().toPlainText() == u"quickly buy records"_s; }));
    desktop.willAnswer(Answer::Yes);
    click(*form, u"cmdCancel"_s);
    EXPECT_EQ(draftCount(), 1) << "until it is saved or refused";
    desktop.willAnswer(Answer::Yes, u"quickly buy records"_s);
    open();
    EXPECT_TRUE(QTest::qWaitFor([this] { return text().document()->isModified(); }));
    click(*form, u"cmdExit"_s);
    EXPECT_TRUE(kept(u"Anna`s list"_s).contains(u"quickly"_s));
    EXPECT_EQ(draftCount(), 0);
}

TEST_F(TheNotes, ThatCantBePutBackAreOfferedAsTheyWere)
{
    type(&text(), u"never "_s);
    titles().setFocus();
    {
        const FullDisk full(2000);
        desktop.willAnswer(Answer::Yes, u"Lose any changes?"_s).willSee(u"Its text from before is kept"_s);
        click(*form, u"cmdCancel"_s);
        EXPECT_FALSE(form->isVisible());
    }
    EXPECT_TRUE(kept(u"Anna`s list"_s).contains(u"never"_s));
    desktop.willAnswer(Answer::No, u"could not be put back as it was"_s);
    open();
    EXPECT_TRUE(QTest::qWaitFor([this] { return draftCount() == 0; }));
    EXPECT_TRUE(text().toPlainText().contains(u"never"_s));
    choose(u"Bands"_s);
    const FullDisk full(2000);
    click(*form, u"cmdExit"_s);
    EXPECT_FALSE(form->isVisible()) << "the place of the next time is no reason to stay";
}

TEST_F(TheNotes, SurviveTheirRowBeingDeletedElsewhere)
{
    type(&text(), u" now"_s);
    store.db().Execute(u"Delete * from tblSettings Where Type='NOTE'"_s);
    click(*form, u"cmdExit"_s);
    EXPECT_TRUE(kept(u"Anna`s list"_s).contains(u"now"_s));
}

TEST(TheNotesOfASong, GoBackWithTheirChangeOnEveryWayOut)
{
    QTemporaryDir folder;
    OptionsStore kept(folder.filePath(u"options.ini"_s));
    ScriptedDesktop desktop;
    Options options;
    options.RememberWindowSize = true;
    QString back;
    bool changed = true;
    const auto closed = [&](const QString &text, bool isChanged) {
        back = text;
        changed = isChanged;
    };
    {
        NotesForm form(u"line one\nline two"_s, desktop, options, kept, closed);
        form.show();
        desktop.willType(u"TWO"_s);
        click(form, u"cmdFind"_s);
        EXPECT_EQ(child<QPlainTextEdit>(form, u"txtNotes"_s)->textCursor().selectedText(), u"two"_s);
        form.resize(640, 480);
        click(form, u"cmdExit"_s);
    }
    EXPECT_EQ(back, u"line one\nline two"_s);
    EXPECT_FALSE(changed);
    NotesForm form(back, desktop, options, kept, closed);
    EXPECT_EQ(form.size(), QSize(640, 480));
    form.show();
    auto *text = child<QPlainTextEdit>(form, u"txtNotes"_s);
    text->moveCursor(QTextCursor::End);
    type(text, u"!"_s);
    key(text, Qt::Key_Escape);
    EXPECT_EQ(back, u"line one\nline two!"_s);
    EXPECT_TRUE(changed);
}

} // namespace
