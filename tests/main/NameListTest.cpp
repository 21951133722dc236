// SPDX-License-Identifier: GPL-3.0-or-later
// The program as a user meets it: started on a catalogue, a folder of music added, closed, started again.
#include "main/ProgramFixture.h"
#include "support/Files.h"
#include "support/Limits.h"

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

TEST_F(ProgramTest, AnEmptyCatalogueTellsWhatToDoFirst)
{
    start(true);
    EXPECT_EQ(screen().windowTitle(), u"Quaverly Database  "_s + path());
    EXPECT_EQ(grid().model()->rowCount(), 0);
    EXPECT_EQ(grid().model()->columnCount(), 31);
    EXPECT_TRUE(grid().isColumnHidden(28)) << "behind the first 28";
    EXPECT_TRUE(child<QPushButton>(screen(), u"cmdEmptyState"_s)->isVisible());
    EXPECT_FALSE(child<QPushButton>(screen(), u"cmdShowArtistSongs"_s)->isVisible());
    EXPECT_EQ(description(), QString());

    addFile(u"Abba/Arrival/01.mp3"_s, u"Tiger"_s, u"Abba"_s);
    m_desktop.willBrowse(music()).willSee();
    click(screen(), u"cmdEmptyState"_s);
    EXPECT_EQ(grid().model()->rowCount(), 1);
    EXPECT_FALSE(child<QPushButton>(screen(), u"cmdEmptyState"_s)->isVisible());
}

TEST_F(ProgramTest, AFolderGoesInAndIsThereAfterARestart)
{
    addFile(u"Abba/Arrival/02.mp3"_s, u"Dancing Queen"_s, u"Abba"_s);
    addFile(u"Abba/Arrival/01.flac"_s, u"Tiger"_s, u"Abba"_s);
    addFile(u"Björk/Jóga.ogg"_s, u"Jóga"_s, u"Björk"_s);
    addFile(u"Björk/x.m4a"_s, u"Bachelorette"_s, u"Björk & Friends"_s);
    start(true);
    addFolder();
    EXPECT_TRUE(m_desktop.lastCall().text.startsWith(u"Number of songs added to database: 4\r\n"_s));
    const QStringList sorted{u"Bachelorette"_s, u"Dancing Queen"_s, u"Jóga"_s, u"Tiger"_s};
    EXPECT_EQ(column(1), sorted);
    EXPECT_EQ(cell(2, 2), u"Björk"_s);
    EXPECT_EQ(cell(1, 4), u"Arrival"_s);
    EXPECT_EQ(cell(1, 9), music() + u"Abba/Arrival/"_s);
    EXPECT_EQ(description(), u"Bachelorette\nBjörk & Friends\nArrival\n"_s + music() + u"Björk/x.m4a"_s);
    EXPECT_EQ(shownText(u"cmdShowArtistSongs"_s), u"Show all songs by Björk && Friends"_s);

    addFolder();
    EXPECT_TRUE(m_desktop.lastCall().text.contains(u"already in database: 4\r\n"_s));
    EXPECT_EQ(column(1), sorted);

    close();
    EXPECT_EQ(m_quits, 1);
    EXPECT_FALSE(QFile::exists(path() + u"-wal"_s));
    start();
    EXPECT_EQ(column(1), sorted);
}

TEST_F(ProgramTest, AScanThatFillsTheDiskTellsTheTruthAndIsTakenUpWhenThereIsRoom)
{
    constexpr int Songs = 3000;
    for (int i = 0; i < Songs; ++i)
        writeFile(music() + u"%1/%2.mp3"_s.arg(i / 100).arg(i));
    start(true);
    qsizetype added = 0;
    {
        const FullDisk disk(500'000);
        m_desktop.willBrowse(music()).willSee(u"Number of songs added"_s);
        m_desktop.willAnswer(Answer::More, u"The disk with the database '%1' is full."_s.arg(path()));
        chooseMenu(screen(), u"AddMusicFolder"_s);
        added = grid().model()->rowCount();
        const QString done = m_desktop.calls()[m_desktop.calls().size() - 2].text;
        EXPECT_TRUE(done.startsWith(u"Number of songs added to database: %1\r"_s.arg(added)));
        EXPECT_TRUE(added > 0 && added < Songs) << added;

        const QByteArray report = bytesOf(m_desktop.urls().last().toLocalFile());
        const qsizetype lost = report.count(".mp3\tThe disk is full.\n");
        EXPECT_TRUE(m_desktop.lastCall().text.contains(
            u"The scan has stopped.  %1 songs that it had read did not reach the disk."_s.arg(lost)));
        EXPECT_TRUE(m_desktop.lastCall().text.contains(u"sorting and searching are slower"_s));
    }
    {
        // Smaller than the log that the catalogue couldn't take in: whatever is added to it fails.
        const FullDisk disk(64 * 1024);
        ASSERT_GT(QFileInfo(path() + u"-wal"_s).size(), 64 * 1024);
        m_desktop.willSee(u"The database is now in two files"_s);
        close();
        m_desktop.willSee(u"sorting and searching are slower"_s);
        start();
        EXPECT_EQ(grid().model()->rowCount(), added);
        m_desktop.willSee(u"The disk is full."_s); // the order can't be remembered
        click(screen(), u"cmdSortArtist"_s);
        type(child<QWidget>(screen(), u"txtLocate"_s), u"Unk"_s);
        EXPECT_EQ(m_desktop.answersLeft(), 0);
        EXPECT_EQ(cell(0, 1), u"Unknown"_s);
        m_desktop.willSee(u"The database is now in two files"_s);
        close();
    }
    start();
    addFolder();
    EXPECT_TRUE(m_desktop.lastCall().text.startsWith(
        u"Number of songs added to database: %1\r"_s.arg(Songs - added)));
    EXPECT_EQ(grid().model()->rowCount(), Songs);
    close();
    EXPECT_FALSE(QFile::exists(path() + u"-wal"_s));
}

TEST_F(ProgramTest, ASecondStartRaisesTheFirst)
{
    start(true);
    screen().showMinimized();
    SingleInstance second(m_dir.path());
    EXPECT_TRUE(second.PrevInstance());
    EXPECT_TRUE(second.raiseOther());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !screen().isMinimized(); }));
}

TEST_F(ProgramTest, TheWindowComesBackWhereItWasLeft)
{
    m_store.SaveSetting(u"Options"_s, u"Remember Window Size"_s, u"-1"_s);
    start(true);
    screen().setGeometry(40, 30, 700, 500);
    const QRect left = screen().geometry();
    close();
    start(true);
    EXPECT_EQ(screen().geometry(), left);
    close();
    m_store.SaveSetting(u"Options"_s, u"GridScreenLeft"_s, u"99999999"_s);
    start(true);
    EXPECT_TRUE(screen().screen()->availableGeometry().intersects(screen().geometry()));
}

TEST_F(ProgramTest, ClosingDuringAScanEndsBoth)
{
    for (int i = 0; i < 40; ++i)
        addFile(u"Abba/Arrival/%1.wav"_s.arg(i), u"Song %1"_s.arg(i), u"Abba"_s);
    start(true);
    m_desktop.willBrowse(music());
    const auto closeOnceSongsAreIn = [this] {
        const auto *read = screen().findChild<QLabel *>(u"lblRecsRead"_s);
        if (read != nullptr && read->text().toInt() >= 20)
            screen().close();
    };
    for (int n = 1; n < 200; ++n)
        m_desktop.atEvents(m_desktop.eventsRun() + n, closeOnceSongsAreIn);
    chooseMenu(screen(), u"AddMusicFolder"_s);
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_quits == 1; }));
    close();
    start();
    EXPECT_GE(grid().model()->rowCount(), 10);
    EXPECT_LT(grid().model()->rowCount(), 40);
}

} // namespace

} // namespace quaverly::test
