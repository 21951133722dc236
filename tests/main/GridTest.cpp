// SPDX-License-Identifier: GPL-3.0-or-later
// The grid of the main screen: marks, keys, columns, typing, and Locate beside it.
#include "main/ProgramFixture.h"

#include "songlist/LetterBar.h"
#include "support/Files.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QMenu>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

class GridTest : public ProgramTest
{
protected:
    [[nodiscard]] QLineEdit &locate() { return *child<QLineEdit>(screen(), u"txtLocate"_s); }
    [[nodiscard]] QComboBox &sortBox() { return *child<QComboBox>(screen(), u"cmbSort"_s); }

    void typeKeys(const QString &text)
    {
        QTest::keyClicks(QApplication::focusWidget(), text);
        settle();
    }
    void chooseSort(const QString &label)
    {
        const int index = sortBox().findText(label);
        ASSERT_GE(index, 0) << label.toStdString();
        sortBox().setCurrentIndex(index);
        Q_EMIT sortBox().activated(index);
    }
    void clickHeading(int index)
    {
        QHeaderView *header = grid().horizontalHeader();
        grid().horizontalScrollBar()->setValue(
            std::max(0, header->sectionPosition(index) - header->width() / 2));
        const QPoint place(header->sectionViewportPosition(index) + header->sectionSize(index) / 2, 5);
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, place);
    }
    [[nodiscard]] QStringList headings()
    {
        QStringList texts;
        for (int i = 0; i < grid().songs().columnCount(); ++i)
            texts.append(grid().songs().column(i).dataField);
        return texts;
    }
    [[nodiscard]] QString columnFile() const { return m_dir.filePath(u"nbcolumn.dat"_s); }
};

TEST_F(GridTest, AClickOnTheMarkColumnMarksAndUnmarks)
{
    addSongs(6);
    start();
    auto *showSelected = child<QPushButton>(screen(), u"cmdShowSelected"_s);
    clickCell(2, 0);
    EXPECT_EQ(cell(2, 0), u"x"_s) << "the very first click";
    EXPECT_TRUE(showSelected->isVisible());
    clickCell(2, 0);
    EXPECT_EQ(cell(2, 0), u" "_s);
    EXPECT_FALSE(showSelected->isVisible());

    clickCell(1, 0);
    clickCell(4, 0);
    clickCell(5, 1);
    const QRect place = grid().visualRect(grid().model()->index(3, 0));
    QTest::mouseClick(grid().viewport(), Qt::RightButton, {}, place.center());
    auto *popup = child<QMenu>(screen(), u"mnuPopup"_s);
    ASSERT_TRUE(popup->isVisible());
    EXPECT_EQ(currentSong(), u"Song 03"_s);
    popup->close();
    EXPECT_EQ(column(0), (QStringList{u" "_s, u"x"_s, u" "_s, u" "_s, u"x"_s, u" "_s}));

    QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(&grid(), &menuKey);
    ASSERT_TRUE(popup->isVisible());
    popup->close();
    clickCell(5, 0);
    EXPECT_EQ(cell(5, 0), u"x"_s) << "the click after the menu key's pop-up";
    m_desktop.willAnswer(Answer::Yes);
    click(screen(), u"cmdDelete"_s);

    click(screen(), u"cmdShowSelected"_s);
    EXPECT_EQ(column(1), (QStringList{u"Song 01"_s, u"Song 04"_s}));
    click(screen(), u"cmdShowAll"_s);
    EXPECT_TRUE(showSelected->isVisible()) << "Show All keeps the marks";
    chooseMenu(screen(), u"HideSelectedMenu"_s);
    EXPECT_EQ(grid().model()->rowCount(), 3);
    chooseMenu(screen(), u"RemoveSelectionsMenu"_s);
    EXPECT_EQ(column(0), QStringList(5, u" "_s));
    clickCell(0, 0);
    m_desktop.willAnswer(Answer::Yes);
    click(screen(), u"cmdDelete"_s);
    EXPECT_FALSE(showSelected->isVisible()) << "the last marked song is gone";
    clickCell(0, 0);
    close();
    EXPECT_EQ(valueOf(u"Select Count(*) As n From tblContacts Where Selected = 'x'"_s).toInt(), 0);
}

TEST_F(GridTest, TypingOnTheListLocates)
{
    addSongs(30);
    for (const char16_t *name : {u"+ [x] * ~", u"Ökonomie", u"漢字"})
        addSong({{u"SongName"_s, QString::fromUtf16(name)}});
    start();
    typeKeys(u"s"_s);
    EXPECT_TRUE(locate().hasFocus());
    typeKeys(u"ong 2"_s);
    EXPECT_EQ(currentSong(), u"Song 20"_s);
    typeKeys(u"7"_s);
    EXPECT_EQ(currentSong(), u"Song 27"_s);
    typeKeys(u"z"_s);
    EXPECT_EQ(currentSong(), u"Song 27"_s) << "nothing found: the row stays";
    key(&locate(), Qt::Key_Backspace);
    key(&locate(), Qt::Key_Backspace);
    EXPECT_EQ(currentSong(), u"Song 20"_s) << "the search starts at the first row";
    typeKeys(u"\""_s);
    typeKeys(u"9"_s);
    EXPECT_EQ(currentSong(), u"Song 20"_s) << "a quote stops the search";
    typeKeys(u"["_s);
    EXPECT_EQ(locate().text(), QString());
    key(&locate(), Qt::Key_Down);
    EXPECT_TRUE(grid().hasFocus());
    typeKeys(u"+"_s);
    EXPECT_EQ(currentSong(), u"+ [x] * ~"_s);

    auto *letters = child<LetterBar>(screen(), u"FrameAlpha"_s);
    const auto press = [&](int index) {
        QTest::mouseClick(letters, Qt::LeftButton, {}, letters->labelRect(index).center());
        settle();
    };
    grid().setFocus();
    EXPECT_EQ(locate().text(), QString()) << "left, the box is empty again";
    for (const int index : {18, 14, 13, 6, 36, 27, 28})
        press(index);
    EXPECT_EQ(locate().text(), u"SONG 12"_s);
    EXPECT_EQ(currentSong(), u"Song 12"_s);
    press(37);
    EXPECT_EQ(locate().text(), u"SONG 1"_s);
    EXPECT_EQ(currentSong(), u"Song 10"_s);
}

TEST_F(GridTest, ADateSortWaitsForAWholeDate)
{
    for (int i = 1; i <= 9; ++i)
        addSong({{u"SongName"_s, u"Song %1"_s.arg(i)},
                 {u"DateUpdated"_s, QDateTime(QDate(2020, i, 3), QTime(), Qt::UTC)}});
    start();
    chooseSort(u"Date Updated"_s);
    EXPECT_EQ(cell(0, 1), u"Song 9"_s) << "the newest first";
    EXPECT_TRUE(locate().hasFocus());
    typeKeys(u"5/3"_s);
    EXPECT_EQ(currentSong(), u"Song 9"_s);
    close();
    start();
    EXPECT_EQ(sortBox().currentText(), u"Date Updated"_s);
    EXPECT_EQ(cell(0, 1), u"Song 9"_s);
}

TEST_F(GridTest, AllOrdersOfTheSortBoxSortAndAreKept)
{
    addSongs(5);
    start();
    ASSERT_EQ(sortBox().count(), 26);
    const QAbstractItemModelTester tester(grid().model(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    for (int i = 0; i < sortBox().count(); ++i) {
        chooseSort(sortBox().itemText(i));
        EXPECT_EQ(grid().model()->rowCount(), 5) << sortBox().itemText(i).toStdString();
    }
    click(screen(), u"cmdSortArtist"_s);
    EXPECT_EQ(headings().at(1), u"Artist"_s);
    EXPECT_EQ(column(1), (QStringList{u"Abba"_s, u"Abba"_s, u"Abba"_s, u"Blur"_s, u"Blur"_s}));
    close();
    start();
    EXPECT_EQ(sortBox().currentText(), u"Artist"_s);
    EXPECT_EQ(headings().at(1), u"Artist"_s) << "kept with the columns";
    click(screen(), u"cmdSortSong"_s);
    EXPECT_EQ(headings().at(1), u"SongName"_s);
}

TEST_F(GridTest, ALaterColumnShowsFromTheHeadingsMenuAndTheFirstOnesReadAsEver)
{
    addSong({{u"SongName"_s, u"SOS"_s}, {u"AlbumArtist"_s, u"Various"_s}});
    for (const bool shown : {false, true}) {
        start();
        EXPECT_EQ(grid().isColumnHidden(28), !shown);
        Q_EMIT grid().horizontalHeader()->customContextMenuRequested({5, 5});
        auto *action = grid().findChild<QAction *>(u"showAlbumArtist"_s);
        ASSERT_NE(action, nullptr);
        EXPECT_EQ(action->isChecked(), shown);
        action->setChecked(true);
        EXPECT_EQ(cell(0, 28), u"Various"_s);
        close();
    }
    const QList<ColumnLine> lines = readColumnFile(columnFile()).columns;
    EXPECT_EQ(lines.size(), 30);
    EXPECT_EQ(lines.at(26).dataField, u"Notes"_s);
    EXPECT_GT(lines.at(27).width, 0);
    start();
}

TEST_F(GridTest, AColumnMovesByTwoClicksAndStaysThere)
{
    addSongs(2);
    start();
    const QStringList before = headings();
    m_desktop.willAnswer(Answer::Ok, u"cause the Album Name column to move"_s);
    clickHeading(4);
    clickHeading(6);
    QStringList moved = before;
    moved.move(4, 6);
    EXPECT_EQ(headings(), moved);

    m_desktop.willAnswer(Answer::Cancel).willAnswer(Answer::Cancel);
    clickHeading(5);
    clickHeading(3);
    EXPECT_EQ(headings(), moved) << "cancelled: the second click started another move";
    grid().setColumnWidth(3, 123);
    close();
    EXPECT_TRUE(QFile::exists(columnFile()));
    start();
    EXPECT_EQ(headings(), moved);
    EXPECT_EQ(grid().columnWidth(3), 123);

    // The other mode's font: as much text is shown, after a restart too.
    chooseMenu(screen(), u"TabletMode"_s);
    const int wide = grid().columnWidth(3);
    EXPECT_GT(wide, 150);
    close();
    start();
    EXPECT_NEAR(grid().columnWidth(3), wide, 1);
    EXPECT_EQ(grid().horizontalHeader()->font().pointSizeF(), grid().font().pointSizeF());
}

TEST_F(GridTest, ADamagedColumnFileNeverBreaksTheStart)
{
    addSongs(1);
    start();
    const QStringList design = headings();
    close();
    const QStringList usual{u"SongName"_s, u"Artist"_s};
    const std::pair<QByteArray, QStringList> cases[] = {
        {"1,2,3,4\r\n", usual},
        {"\"Who\",\"Artist\",3000,0\r\n\"What\",\"SongName\",2000,1\r\n", {u"Artist"_s, u"SongName"_s}},
        {"\"Who\",\"Artist\",3000,0\r\n\"What\",\"NoField\",2000,1\r\n", {u"Artist"_s, u"Artist"_s}},
        {"\"A, b\",\"genre\",-5,0\r\n", usual},
        {"\"A\",\"Genre\",99999999999,0\r\n", usual},
        {"\"A\",\"Genre\",nan,0", usual},
        {"\"A\",\"Genre\"", usual},
        {QByteArray::fromHex("00ff00fe2c2c2c0a") + QByteArray(5000, '\xff'), usual},
        {QByteArray("\"A\",\"Genre\",10,0\n").repeated(40), {u"Genre"_s, u"Genre"_s}},
        {QByteArray(10 * 1024 * 1024, '"'), usual},
    };
    for (const auto &[content, fields] : cases) {
        writeFile(columnFile(), content);
        start();
        EXPECT_EQ(headings().mid(1, 2), fields) << content.left(60).toStdString();
        EXPECT_EQ(headings().size(), design.size());
        EXPECT_GE(grid().columnWidth(1), 12);
        close();
    }
}

TEST_F(GridTest, CellsCanBeTypedIntoOnceThatIsAllowed)
{
    addSongs(3);
    start();
    chooseMenu(screen(), u"GridEditMenu"_s);
    clickCell(1, 2);
    typeKeys(u"Q"_s);
    ASSERT_TRUE(grid().CellEditing()) << "typing goes into the cell, not to Locate";
    typeKeys(u"ueen \"2\""_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    settle();
    EXPECT_EQ(cell(1, 2), u"Queen \"2\""_s);
    EXPECT_TRUE(description().contains(u"Queen"_s));

    // No date, and longer than the field.
    const std::tuple<int, QString, QString> refused[] = {
        {17, u"x"_s, u"Purchase Date: \"x\" is not a date."_s}, {15, QString(11, u'9'), u"ID: "_s}};
    for (const auto &[column, text, said] : refused) {
        grid().setCurrentIndex(grid().model()->index(1, column));
        typeKeys(text.first(1));
        typeKeys(text.mid(1));
        m_desktop.willSee(said);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        settle();
        ASSERT_TRUE(grid().CellEditing()) << "the text stays";
        m_desktop.willSee(said);
        click(screen(), u"cmdShowAll"_s);
        EXPECT_EQ(dynamic_cast<QLineEdit &>(*grid().indexWidget(grid().currentIndex())).text(), text);
        key(QApplication::focusWidget(), Qt::Key_Escape);
        EXPECT_FALSE(grid().CellEditing());
        EXPECT_EQ(cell(1, column), QString());
    }

    chooseMenu(screen(), u"GridEditMenu"_s);
    grid().setFocus();
    typeKeys(u"S"_s);
    EXPECT_TRUE(locate().hasFocus());
    close();
    EXPECT_EQ(valueOf(u"Select Artist From tblContacts Where SongName = 'Song 01'"_s), u"Queen \"2\""_s);
    EXPECT_EQ(valueOf(u"Select DateUpdated From tblContacts Where SongName = 'Song 01'"_s).toDate(),
              QDate::currentDate());
}

TEST_F(GridTest, WhateverRebuildsTheListWritesTheOpenCellFirst)
{
    addSongs(6);
    start();
    chooseMenu(screen(), u"GridEditMenu"_s);
    int n = 0;
    const auto typeInto = [&](int column) {
        clickCell(1, column);
        typeKeys(u"T"_s);
        typeKeys(QString::number(++n));
        ASSERT_TRUE(grid().CellEditing());
    };
    // The column that is typed into moves with the artist's sort.
    for (const auto &button :
         {u"cmdShowAll"_s, u"cmdSortArtist"_s, u"cmdSortSong"_s, u"cmdShowArtistSongs"_s}) {
        typeInto(4);
        click(screen(), button);
        EXPECT_FALSE(grid().CellEditing());
        EXPECT_TRUE(column(4).contains(u"T%1"_s.arg(n))) << button.toStdString();
    }
    typeInto(1);
    click(screen(), u"cmdShowArtistSongs"_s);
    EXPECT_TRUE(column(2).contains(u"T5"_s)) << "the artist's own column has moved";
    typeInto(4);
    key(grid().indexWidget(grid().currentIndex()), Qt::Key_Down);
    EXPECT_EQ(cell(1, 4), u"T6"_s);
    typeInto(4);
    click(screen(), u"cmdExit"_s);
    EXPECT_EQ(m_quits, 1);
    close();
    EXPECT_EQ(valueOf(u"Select Count(*) As n From tblContacts Where AlbumName = 'T7'"_s).toInt(), 1);
}

TEST_F(GridTest, KeysThatTheListDoesNotObey)
{
    addSongs(40);
    start();
    key(&grid(), Qt::Key_PageDown);
    const QString there = currentSong();
    EXPECT_NE(there, u"Song 00"_s);
    for (const Qt::Key swallowed : {Qt::Key_Home, Qt::Key_End, Qt::Key_Left, Qt::Key_Delete, Qt::Key_Insert})
        key(&grid(), swallowed);
    EXPECT_EQ(currentSong(), there);
    EXPECT_EQ(grid().Col(), 1);
    key(&grid(), Qt::Key_Right);
    EXPECT_EQ(grid().Col(), 2);
    QWidget *txtName = child<QWidget>(screen(), u"txtName"_s);
    txtName->setFocus();
    typeKeys(u"s"_s);
    EXPECT_TRUE(locate().hasFocus()) << "keys at the description are keys for the list";

    for (const bool forward : {true, false}) {
        txtName->setFocus();
        QWidget *next = forward ? txtName->nextInFocusChain() : txtName->previousInFocusChain();
        while ((next->focusPolicy() & Qt::TabFocus) == 0 || !next->isVisibleTo(&screen()))
            next = forward ? next->nextInFocusChain() : next->previousInFocusChain();
        key(txtName, forward ? Qt::Key_Tab : Qt::Key_Backtab);
        EXPECT_EQ(QApplication::focusWidget(), next) << "one control further";
    }
}

} // namespace

} // namespace quaverly::test
