// SPDX-License-Identifier: GPL-3.0-or-later
// The commands of the main screen that stand in its menus and on its buttons.
#include "main/ProgramFixture.h"

#include "catalogue/CatalogueSchema.h"
#include "catalogue/KindsTaken.h"
#include "support/Files.h"
#include "support/Limits.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QListWidget>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

using MainCommandsTest = ProgramTest;

TEST_F(MainCommandsTest, FindReplacesTheList)
{
    addSongs(6);
    addSong({{u"SongName"_s, u"50% [live] 'x'"_s}, {u"Notes"_s, u"Abba night"_s}});
    start();
    const auto find = [this](const QString &text) {
        m_desktop.willType(text);
        click(screen(), u"cmdFind"_s);
    };
    find(u"abba"_s);
    EXPECT_TRUE(m_desktop.lastCall().text.startsWith(u"Enter the text to search for, then press OK."_s));
    EXPECT_EQ(grid().model()->rowCount(), 4);
    EXPECT_EQ(shownText(u"lblCategory"_s), u"Records containing abba"_s);
    find(u"Abba n*t"_s);
    EXPECT_EQ(column(1), QStringList{u"50% [live] 'x'"_s});
    click(screen(), u"cmdShowAll"_s);
    m_desktop.willType(u"nowhere to be found"_s).willSee(u"No records found."_s);
    click(screen(), u"cmdFind"_s);
    EXPECT_EQ(grid().model()->rowCount(), 0);
    EXPECT_EQ(description(), QString());
    click(screen(), u"cmdEmptyState"_s);
    EXPECT_EQ(grid().model()->rowCount(), 7) << "the empty list leads back to all songs";
}

TEST_F(MainCommandsTest, ADeletedSongComesBackByKeyAndIsTheCurrentOne)
{
    addSongs(3);
    start();
    clickCell(1, 1);
    m_desktop.willAnswer(Answer::Yes, u"Are you sure"_s);
    click(screen(), u"cmdDelete"_s);
    EXPECT_EQ(column(1), (QStringList{u"Song 00"_s, u"Song 02"_s}));
    // The focus stands in Locate then.
    key(QApplication::focusWidget(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(column(1), (QStringList{u"Song 00"_s, u"Song 01"_s, u"Song 02"_s}));
    EXPECT_EQ(currentSong(), u"Song 01"_s);
    key(QApplication::focusWidget(), Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(column(1).size(), 2);
}

TEST_F(MainCommandsTest, DeletingAsksAndStaysInTheList)
{
    addSongs(3);
    start();
    clickCell(2, 1);
    m_desktop.willAnswer(Answer::No, u"Are you sure you want to delete this record?\rSong 02"_s);
    click(screen(), u"cmdDelete"_s);
    EXPECT_EQ(grid().model()->rowCount(), 3);
    EXPECT_TRUE(child<QWidget>(screen(), u"txtLocate"_s)->hasFocus());
    for (const char16_t *left : {u"Song 01", u"Song 00"}) {
        m_desktop.willAnswer(Answer::Yes);
        click(screen(), u"cmdDelete"_s);
        EXPECT_EQ(description(), u"Record Deleted!"_s);
        EXPECT_EQ(cell(grid().currentIndex().row(), 1), QString::fromUtf16(left));
    }
    m_desktop.willAnswer(Answer::Yes);
    click(screen(), u"cmdDelete"_s);
    EXPECT_EQ(grid().model()->rowCount(), 0);
    m_desktop.willSee(u"There are no records displayed, so there is nothing to delete."_s);
    click(screen(), u"cmdDelete"_s);
    close();
    EXPECT_EQ(valueOf(u"Select Count(*) As n From tblContacts"_s).toInt(), 0);
}

TEST_F(MainCommandsTest, AnotherCatalogueOpensAndABadOneDoesNot)
{
    addSongs(3);
    const QString other = m_dir.filePath(u"other.mdb"_s);
    dao::DBEngine(catalogueSchema()).CreateEmpty(other);
    const QString noCatalogue = m_dir.filePath(u"text.mdb"_s);
    writeFile(noCatalogue, "no catalogue at all");
    start();

    m_desktop.willOpen(noCatalogue).willSee();
    chooseMenu(screen(), u"OpenDatabase"_s);
    ASSERT_TRUE(QTest::qWaitFor([this] { return m_program->mainScreen() != nullptr && grid().hasFocus(); }));
    EXPECT_EQ(screen().windowTitle(), u"Quaverly Database  "_s + path());
    EXPECT_EQ(grid().model()->rowCount(), 3);
    clickCell(1, 0);
    EXPECT_EQ(cell(1, 0), u"x"_s) << "usable as before";

    m_desktop.willOpen(other).willSee(u"Add songs automatically"_s);
    chooseMenu(screen(), u"OpenDatabase"_s);
    ASSERT_TRUE(QTest::qWaitFor([this] { return m_desktop.answersLeft() == 0 && grid().hasFocus(); }));
    EXPECT_EQ(screen().windowTitle(), u"Quaverly Database  "_s + other);
    EXPECT_EQ(grid().model()->rowCount(), 0);
    EXPECT_EQ(m_quits, 0);
    close();
    EXPECT_EQ(m_quits, 1);
    start();
    EXPECT_EQ(grid().model()->rowCount(), 3) << "the other one was for that run only";
}

TEST_F(MainCommandsTest, CompactingGoesOnWithTheSameCatalogue)
{
    addSongs(3);
    start();
    m_desktop.willAnswer(Answer::Yes, u"This will reclaim ununsed space"_s).willSee(u"Database compacted."_s);
    chooseMenu(screen(), u"mnuCompactDatabase"_s);
    ASSERT_TRUE(QTest::qWaitFor([this] { return m_program->mainScreen() != nullptr && grid().hasFocus(); }));
    EXPECT_EQ(column(1).size(), 3);
    EXPECT_FALSE(QFile::exists(path() + u".temp"_s));
    EXPECT_EQ(m_quits, 0);
    m_desktop.willAnswer(Answer::Yes, u"This will DELETE ALL the records"_s)
        .willAnswer(Answer::Yes, u"Have to ask one more time:"_s);
    chooseMenu(screen(), u"mnuDeleteAll"_s);
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_quits == 1; })) << "the process ends with it";
    m_program.reset();
    m_instance.reset();
    start(true);
}

TEST_F(MainCommandsTest, OptionsStayForTheNextRun)
{
    start(true);
    chooseMenu(screen(), u"TabletMode"_s);
    EXPECT_FALSE(child<QAction>(screen(), u"TabletMode"_s)->isEnabled());
    m_desktop.willPickColor(std::nullopt).willPickColor(0x112233);
    for (const quint32 color : {8421440U, 0x112233U}) {
        chooseMenu(screen(), u"SelectColor"_s);
        EXPECT_EQ(screen().BackColor(), color);
    }
    EXPECT_EQ(child<QWidget>(screen(), u"background"_s)->palette().color(QPalette::Window),
              QColor(0x33, 0x22, 0x11));
    m_desktop.willAnswer(Answer::No, u"This prevents Quaverly from renaming a music file"_s);
    chooseMenu(screen(), u"mnuOptionFileRename"_s);
    EXPECT_EQ(screen().mnuOptionFileRename(), u"Do not allow files to be renamed or moved ..."_s);
    m_desktop.willAnswer(Answer::Yes);
    chooseMenu(screen(), u"mnuOptionFileRename"_s);
    chooseMenu(screen(), u"mnuOptionWindowSize"_s);
    chooseMenu(screen(), u"mnuOptionMusicKinds"_s);
    child<QListWidget>(screen(), u"lstKinds"_s)->item(2)->setCheckState(Qt::Unchecked);
    click(*child<QDialog>(screen(), u"frmMusicKinds"_s), u"cmdOK"_s);
    close();
    start(true);
    EXPECT_TRUE(child<QAction>(screen(), u"DesktopMode"_s)->isEnabled());
    EXPECT_EQ(screen().BackColor(), 0x112233U);
    EXPECT_EQ(screen().mnuOptionFileRename(), u"Allow files to be renamed or moved"_s);
    EXPECT_EQ(screen().mnuOptionWindowSize(), u"Do not remember window size between sessions"_s);
    EXPECT_EQ(kindsLeftOut(m_store), QStringList(u"wma"_s));
    m_desktop.willSee(u"All warning messages will now appear."_s);
    for (const auto *back : {u"DesktopMode", u"RestoreColor", u"mnuOptionFileRename", u"mnuOptionWindowSize",
                             u"mnuOptionsWarningMessagesReset"})
        chooseMenu(screen(), QString::fromUtf16(back));
    close();
    start(true);
    EXPECT_TRUE(child<QAction>(screen(), u"TabletMode"_s)->isEnabled());
    EXPECT_EQ(screen().BackColor(), 8421440U);
    EXPECT_EQ(screen().mnuOptionFileRename(), u"Do not allow files to be renamed or moved ..."_s);
    EXPECT_EQ(screen().mnuOptionWindowSize(), u"Remember window size between sessions"_s);
}

TEST_F(MainCommandsTest, OptionsThatCannotBeKeptSayWhyAndStayAsTheyAre)
{
    const LockedFolder locked(path(), m_dir.path(), QFile::ReadOwner);
    start(true);
    m_store = OptionsStore(u"/proc/quaverly/options.ini"_s);
    const std::pair<QString, QString> refused[] = {{u"mnuOptionWindowSize"_s, u"can't be saved"_s},
                                                   {u"mnuOptionsWarningMessagesReset"_s, u"can't be saved"_s},
                                                   {u"mnuOptionFileRename"_s, u"can't be saved"_s},
                                                   {u"RestoreColor"_s, u"read-only"_s},
                                                   {u"TabletMode"_s, u"read-only"_s}};
    for (const auto &[entry, said] : refused) {
        if (entry == u"mnuOptionFileRename"_s)
            m_desktop.willAnswer(Answer::Yes);
        m_desktop.willSee(said);
        chooseMenu(screen(), entry);
    }
    EXPECT_EQ(screen().mnuOptionWindowSize(), u"Remember window size between sessions"_s);
    EXPECT_EQ(screen().mnuOptionFileRename(), u"Do not allow files to be renamed or moved ..."_s);
    EXPECT_TRUE(child<QAction>(screen(), u"TabletMode"_s)->isEnabled());
}

TEST_F(MainCommandsTest, WhatFailsAtTheEndIsToldOverTheListAsItWas)
{
    addSongs(3);
    start();
    dao::DBEngine elsewhere(catalogueSchema());
    const auto locking = elsewhere.OpenDatabase(path());
    const dao::Transaction held(locking->workspace());
    m_desktop.willSee(u"currently locked"_s).meanwhile([this] {
        EXPECT_EQ(grid().model()->rowCount(), 3);
        EXPECT_FALSE(child<QWidget>(screen(), u"cmdEmptyState"_s)->isVisible());
    });
    close();
}

} // namespace

} // namespace quaverly::test
