// SPDX-License-Identifier: GPL-3.0-or-later
// Every command that writes, by the user's road: its sentence in the history, and that it is taken back and
// done again to the byte, in the catalogue and on the disk.
#include "main/ProgramFixture.h"

#include "categories/CategoryGrid.h"
#include "history/HistoryCommands.h"
#include "platform/store/Sqlite.h"
#include "playlists/TrackListView.h"
#include "support/Files.h"

#include <QDirIterator>
#include <QImage>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

const QStringList LoggedTables = {u"tblContacts"_s,       u"tblCategoryDesc"_s,   u"tblCategoryID"_s,
                                  u"tblPlayListHeader"_s, u"tblPlayListDetail"_s, u"tblSettings"_s};

class CommandHistory : public ProgramTest
{
protected:
    using Act = std::function<void()>;

    /** Every value of every logged row, and every music and picture file with its bytes. */
    QStringList state()
    {
        dao::Connection file(path(), dao::Connection::Mode::ReadOnly);
        QStringList lines;
        for (const QString &table : LoggedTables) {
            QByteArray columns = "rowid";
            for (dao::Statement names = file.prepare("SELECT name FROM pragma_table_info(" +
                                                     dao::quotedText(table) + ") WHERE name <> 'Selected'");
                 names.step();)
                columns += " || ' ' || quote(" + dao::quotedName(names.text(0)) + ")";
            QByteArray query = "SELECT " + columns + " FROM " + dao::quotedName(table);
            if (table == u"tblSettings"_s)
                query += " WHERE Type IN ('NOTE', 'FILTER')";
            for (dao::Statement rows = file.prepare(query + " ORDER BY rowid"); rows.step();)
                lines += table + u' ' + rows.text(0);
        }
        for (const QString &folder : {u"music"_s, u"Pictures"_s, u"Deleted Pictures"_s}) {
            QDirIterator files(m_dir.filePath(folder), QDir::Files | QDir::Hidden,
                               QDirIterator::Subdirectories);
            while (files.hasNext()) {
                QFile each(files.next());
                EXPECT_TRUE(each.open(QIODevice::ReadOnly));
                lines += each.fileName() + u' ' + QString::number(qHash(each.readAll()));
            }
        }
        lines.sort();
        return lines;
    }
    static void expectSame(const QStringList &found, const QStringList &wanted, const char *when)
    {
        for (const QString &line : found)
            EXPECT_TRUE(wanted.contains(line)) << when << " there is " << line.toStdString();
        for (const QString &line : wanted)
            EXPECT_TRUE(found.contains(line)) << when << " there is no " << line.toStdString();
    }
    /** What the history says of its changes, the newest first. */
    QStringList sentences()
    {
        dao::Connection file(path(), dao::Connection::Mode::ReadOnly);
        QStringList all;
        for (dao::Statement rows = file.prepare("SELECT Told FROM sysChange ORDER BY First DESC");
             rows.step();)
            all += rows.text(0);
        return all;
    }
    void undoKey(Qt::Key which)
    {
        screen().activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&screen()));
        key(&grid(), which, Qt::ControlModifier);
        settle();
    }
    /** Goes the road, back, and on again. */
    void road(const QString &sentence, const Act &go)
    {
        SCOPED_TRACE(sentence.toStdString());
        const QStringList before = state();
        const qsizetype changes = sentences().size();
        go();
        for (QWidget *open = QApplication::activeModalWidget(); open != nullptr;
             open = QApplication::activeModalWidget()) {
            open->close();
            settle();
        }
        const QStringList after = state();
        EXPECT_NE(before, after);
        EXPECT_EQ(sentences().value(0), sentence);
        EXPECT_EQ(sentences().size(), changes + 1);
        undoKey(Qt::Key_Z);
        expectSame(state(), before, "Taken back,");
        undoKey(Qt::Key_Y);
        expectSame(state(), after, "Done again,");
        EXPECT_EQ(sentences().value(0), sentence);
    }

    /** The screen of that name, once it is up. */
    QWidget &up(const QString &name)
    {
        QWidget *found = nullptr;
        EXPECT_TRUE(QTest::qWaitFor([&] {
            for (QWidget *each : screen().findChildren<QWidget *>(name)) {
                if (each->isVisible())
                    found = each;
            }
            return found != nullptr && found->isActiveWindow();
        })) << name.toStdString();
        if (found == nullptr)
            throw std::runtime_error("no screen " + name.toStdString());
        return *found;
    }
    QWidget &opened(const QString &entry, const QString &name)
    {
        chooseMenu(screen(), entry);
        return up(name);
    }
    void chooseSong(const QString &title)
    {
        click(screen(), u"cmdShowAll"_s);
        settle();
        clickCell(static_cast<int>(column(1).indexOf(title)), 1);
        ASSERT_EQ(currentSong(), title);
    }
    /** Changes a field of a song in the editor. */
    void edit(const QString &title, const QString &control, const QString &text)
    {
        chooseSong(title);
        QWidget &editor = opened(u"EditViewMenu"_s, u"NameEdit"_s);
        retype(child<QWidget>(editor, control), text);
        click(editor, u"cmdSave"_s);
        settle();
    }
    void songRoads();
    void categoryRoads();
    void bulkRoads();
    void playListRoads();
    void filterAndNoteRoads();
    void pictureRoads();
    void deleteRoads();
};

void CommandHistory::songRoads()
{
    road(u"Add a folder: 5 songs"_s, [this] { addFolder(); });
    writeFile(music() + u"Fernando.mp3"_s, "one more");
    road(u"Add a music file: 1 song"_s, [this] {
        m_desktop.willOpen(music() + u"Fernando.mp3"_s).willSee(u"Number of songs added"_s);
        chooseMenu(screen(), u"AddOneMusicFile"_s);
    });
    road(u"Edit: SOS, by Abba"_s, [this] { edit(u"SOS"_s, u"txtYear"_s, u"1975"_s); });
    m_desktop.willPassWarning(true);
    road(u"Edit: SOS, by Abba (file renamed)"_s,
         [this] { edit(u"SOS"_s, u"txtFileName"_s, u"Save Our Souls.wav"_s); });
    m_desktop.willPassWarning(true);
    road(u"Edit: SOS, by Abba (file renamed)"_s,
         [this] { edit(u"SOS"_s, u"txtPathName"_s, music() + u"Abba/"_s); });
    road(u"Add: Mamma Mia, by Abba"_s, [this] {
        QWidget &editor = opened(u"AddMenu"_s, u"NameEdit"_s);
        retype(child<QWidget>(editor, u"txtSongName"_s), u"Mamma Mia"_s);
        retype(child<QWidget>(editor, u"txtArtist"_s), u"Abba"_s);
        click(editor, u"cmdSave"_s);
    });
    road(u"Edit: Hyperballad, by Björk"_s, [this] {
        chooseMenu(screen(), u"GridEditMenu"_s);
        chooseSong(u"Hyper"_s);
        for (const QChar letter : u"Hyperballad"_s) {
            QTest::keyClicks(QApplication::focusWidget(), letter);
            settle();
        }
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        settle();
        chooseMenu(screen(), u"GridEditMenu"_s);
    });
    const qsizetype changes = sentences().size();
    clickCell(1, 0);
    EXPECT_EQ(cell(1, 0), u"x"_s);
    EXPECT_EQ(sentences().size(), changes) << "a mark is no change";
    clickCell(1, 0);
}

void CommandHistory::categoryRoads()
{
    road(u"Add category Jazz"_s, [this] {
        m_desktop.willType(u"Jazz"_s);
        click(opened(u"Category"_s, u"CategoryForm"_s), u"cmdAdd"_s);
    });
    road(u"Rename category Jazz to Swing"_s, [this] {
        m_desktop.willType(u"Swing"_s);
        click(opened(u"Category"_s, u"CategoryForm"_s), u"cmdChange"_s);
    });
    road(u"Assign to category Swing: SOS, by Abba"_s, [this] {
        chooseSong(u"SOS"_s);
        click(opened(u"AssignCatgMenu"_s, u"CategoryAssign"_s), u"cmdRtArrow"_s);
    });
    road(u"Remove from category Swing: SOS, by Abba"_s, [this] {
        chooseSong(u"SOS"_s);
        click(opened(u"AssignCatgMenu"_s, u"CategoryAssign"_s), u"cmdLfArrow"_s);
    });
    const auto assignAll = [this] {
        QWidget &shown = opened(u"AssignAllToCatg"_s, u"CatgAssignAll"_s);
        m_desktop.willAnswer(Answer::Ok).willSee(u"Number of Songs assigned"_s);
        click(shown, u"cmdAssign"_s);
    };
    road(u"Assign to category Swing: 7 songs"_s, assignAll);
    road(u"Remove from category Swing: 7 songs"_s, [this] {
        QWidget &shown = opened(u"RemoveAllFromCatg"_s, u"CatgAssignAll"_s);
        m_desktop.willAnswer(Answer::Ok).willSee(u"Number of Songs removed"_s);
        click(shown, u"cmdDelete"_s);
    });
    road(u"Assign to category Swing: 7 songs"_s, assignAll);
    road(u"Delete category Swing"_s, [this] {
        m_desktop.willAnswer(Answer::Yes);
        click(opened(u"Category"_s, u"CategoryForm"_s), u"cmdDelete"_s);
    });
}

void CommandHistory::bulkRoads()
{
    road(u"Replace \"Abba\" by \"ABBA\" in Artist/Performer: 5 songs"_s, [this] {
        QWidget &replace = opened(u"mnuReplace"_s, u"frmReplace"_s);
        click(replace, u"optArtistName"_s);
        retype(child<QWidget>(replace, u"txtOrig"_s), u"Abba"_s);
        retype(child<QWidget>(replace, u"txtNew"_s), u"ABBA"_s);
        m_desktop.willAnswer(Answer::Yes).willSee(u"Update completed."_s);
        click(replace, u"cmdOK"_s);
    });
    road(u"Change Music File Locations: 3 songs"_s, [this] {
        QWidget &places = opened(u"mnuChangePaths"_s, u"frmChangeFilePath"_s);
        retype(child<QWidget>(places, u"txtOrigPath"_s), music() + u"Abba/"_s);
        retype(child<QWidget>(places, u"txtNewPath"_s), music());
        m_desktop.willAnswer(Answer::Yes).willSee(u"Update completed."_s);
        click(places, u"OKButton"_s);
    });
}

void CommandHistory::playListRoads()
{
    const auto lists = [this]() -> QWidget & {
        click(screen(), u"cmdPlayList"_s);
        QWidget &shown = up(u"frmPlayList"_s);
        QApplication::processEvents();
        if (auto *popup = QApplication::activePopupWidget())
            popup->close();
        return shown;
    };
    const auto named = [this](const QString &name) {
        QWidget &header = up(u"frmPlayListHeader"_s);
        retype(child<QWidget>(header, u"txtPlayListName"_s), name);
        click(header, u"cmdOK"_s);
    };
    const auto chooseRow = [](QWidget &shown, int row) {
        auto &songs = *child<TrackListView>(shown, u"lbDetail"_s);
        songs.setFocus();
        QTest::mouseClick(songs.viewport(), Qt::LeftButton, {},
                          songs.visualRect(songs.model()->index(row, 0)).center());
    };
    road(u"Add play list Summer"_s, [&] {
        click(lists(), u"cmdAddHeader"_s);
        m_desktop.willSee(u"New play list added."_s);
        named(u"Summer"_s);
    });
    road(u"Rename play list Summer to Winter"_s, [&] {
        chooseMenu(lists(), u"mnuEditPlayList"_s);
        named(u"Winter"_s);
    });
    road(u"Add to play list Winter: SOS"_s, [&] {
        chooseSong(u"SOS"_s);
        chooseMenu(screen(), u"mnuPopupAddToPlaylist"_s);
    });
    road(u"Add to play list Winter: 7 songs"_s, [&] {
        click(screen(), u"cmdShowAll"_s);
        m_desktop.willAnswer(Answer::Yes, u"This will add every song"_s);
        chooseMenu(lists(), u"mnuAddAllSongs"_s);
    });
    road(u"Add to play list Winter: By hand"_s, [&] {
        chooseMenu(lists(), u"mnuEditAddSong"_s);
        QWidget &detail = up(u"frmPlayListDetail"_s);
        retype(child<QWidget>(detail, u"txtSongName"_s), u"By hand"_s);
        retype(child<QWidget>(detail, u"txtFileName"_s), music() + u"Fernando.mp3"_s);
        click(detail, u"cmdOK"_s);
    });
    road(u"Edit play list Winter: Other"_s, [&] {
        QWidget &shown = lists();
        chooseRow(shown, 1);
        chooseMenu(shown, u"mnuEditEditSong"_s);
        QWidget &detail = up(u"frmPlayListDetail"_s);
        retype(child<QWidget>(detail, u"txtSongName"_s), u"Other"_s);
        click(detail, u"cmdOK"_s);
    });
    road(u"Add to play list Winter: Hyperballad"_s, [&] {
        chooseSong(u"Hyperballad"_s);
        click(opened(u"EditViewMenu"_s, u"NameEdit"_s), u"cmdAddToPlaylist"_s);
    });
    road(u"Reorder play list Winter"_s, [&] {
        QWidget &shown = lists();
        chooseRow(shown, 2);
        key(child<QWidget>(shown, u"lbDetail"_s), Qt::Key_Down, Qt::AltModifier);
        shown.close();
    });
    road(u"Remove from play list Winter: SOS"_s, [&] {
        QWidget &shown = lists();
        chooseRow(shown, 0);
        chooseMenu(shown, u"mnuEditDeleteSong"_s);
    });
    road(u"Change Music File Locations: 2 songs"_s, [&] {
        chooseMenu(lists(), u"mnuEditChangeFileNamePath"_s);
        QWidget &change = up(u"frmChangeFileNamePath"_s);
        const auto boxes = change.findChildren<QLineEdit *>();
        retype(boxes.value(0), u"Fernando"_s);
        retype(boxes.value(1), u"Fernando!"_s);
        m_desktop.willAnswer(Answer::Yes).willSee(u"Update completed."_s);
        click(change, u"cmdOK"_s);
    });
    writeFile(m_dir.filePath(u"chart.txt"_s), "1. Fernando, nobody\nHyperballad, Björk\n");
    road(u"Add to play list Winter: Hyperballad"_s, [&] {
        QWidget &shown = lists();
        m_desktop.willAnswer(Answer::Yes).willOpen(m_dir.filePath(u"chart.txt"_s));
        chooseMenu(shown, u"mnuFilePopulate"_s);
    });
    road(u"Delete play list Winter"_s, [&] {
        QWidget &shown = lists();
        m_desktop.willAnswer(Answer::Yes);
        chooseMenu(shown, u"mnuEditDelete"_s);
    });
}

void CommandHistory::filterAndNoteRoads()
{
    const auto chosen = [this]() -> QWidget & {
        QWidget &filters = opened(u"SelectionCriteria"_s, u"CriteriaForm"_s);
        auto *list = child<QListWidget>(filters, u"listFilters"_s);
        if (list->count() > 0) {
            const QPoint place = list->visualItemRect(list->item(0)).center();
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
        }
        return filters;
    };
    road(u"Add filter Old"_s, [&] {
        QWidget &filters = chosen();
        type(filters.findChild<QPlainTextEdit *>(), u"Year < \"1990\""_s);
        m_desktop.willType(u"Old"_s);
        click(filters, u"cmdSaveFilter"_s);
    });
    road(u"Rename filter Old to Older"_s, [&] {
        QWidget &filters = chosen();
        m_desktop.willType(u"Older"_s);
        click(filters, u"cmdRenameFilter"_s);
    });
    road(u"Delete filter Older"_s, [&] {
        QWidget &filters = chosen();
        m_desktop.willAnswer(Answer::Yes);
        click(filters, u"cmdDeleteFilter"_s);
    });
    const auto notes = [this]() -> QWidget & {
        click(screen(), u"cmdNotes"_s);
        return up(u"MemoForm"_s);
    };
    road(u"Add note Gigs"_s, [&] {
        m_desktop.willType(u"Gigs"_s);
        click(notes(), u"cmdAdd"_s);
    });
    road(u"Edit note Gigs"_s, [&] {
        QWidget &memo = notes();
        for (const QString &text : {u"Monday "_s, u"Tuesday "_s}) {
            type(child<QWidget>(memo, u"txtNotes"_s), text);
            child<QWidget>(memo, u"cmbTitle"_s)->setFocus();
        }
        click(memo, u"cmdExit"_s);
    });
    road(u"Delete note Gigs"_s, [&] {
        QWidget &memo = notes();
        m_desktop.willAnswer(Answer::Yes);
        click(memo, u"cmdDelete"_s);
    });
}

void CommandHistory::pictureRoads()
{
    QDir(m_dir.path()).mkpath(u"Pictures"_s);
    for (const QString &name : {u"sos.jpg"_s, u"alone.jpg"_s})
        ASSERT_TRUE(QImage(40, 40, QImage::Format_RGB32).save(m_dir.filePath(u"Pictures/"_s + name)));
    road(u"Edit: SOS, by ABBA"_s, [this] { edit(u"SOS"_s, u"txtPic1File"_s, u"sos.jpg"_s); });
    road(u"Edit: SOS, by ABBA (picture deleted)"_s, [this] {
        chooseSong(u"SOS"_s);
        QWidget &editor = opened(u"EditViewMenu"_s, u"NameEdit"_s);
        click(editor, u"cmdPicture1"_s);
        m_desktop.willAnswer(Answer::Yes);
        click(up(u"PictureForm"_s), u"cmdDelete"_s);
        settle();
        click(editor, u"cmdSave"_s);
    });
    road(u"Move orphaned pictures: 1 picture"_s, [this] {
        m_desktop.willAnswer(Answer::No).willAnswer(Answer::Yes).willSee(u"moved to"_s);
        chooseMenu(screen(), u"OphanedPictures"_s);
    });
}

void CommandHistory::deleteRoads()
{
    road(u"Delete: SOS, by ABBA"_s, [this] {
        chooseSong(u"SOS"_s);
        m_desktop.willAnswer(Answer::Yes);
        click(screen(), u"cmdDelete"_s);
    });
    road(u"Delete Duplicate Songs: 1 song"_s, [this] {
        m_desktop.willAnswer(Answer::Yes).willSee(u"Duplicates Deleted"_s);
        chooseMenu(screen(), u"mnuDeleteDuplicates"_s);
    });
    QFile::remove(music() + u"Björk/Hyper.wav"_s);
    road(u"Delete All Displayed Records: 3 songs"_s, [this] {
        chooseMenu(screen(), u"mnuFindInvalidFilenames"_s);
        m_desktop.willAnswer(Answer::Yes).willAnswer(Answer::Yes).willSee(u"choose Restore"_s);
        chooseMenu(screen(), u"mnuDeleteDisplayed"_s);
    });
    road(u"Rename Files: 2 songs"_s, [this] {
        click(screen(), u"cmdShowAll"_s);
        QWidget &names = opened(u"mnuRenameFiles"_s, u"frmRenameFiles"_s);
        retype(child<QWidget>(names, u"txtPattern"_s), u"%Artist%/%SongName%"_s);
        m_desktop.willPreview([](QWidget &preview) { click(preview, u"cmdGoOn"_s); })
            .willSee(u"Number of files renamed: 2"_s);
        click(names, u"cmdShowChanges"_s);
    });
    road(u"Delete All Displayed Records: 2 songs"_s, [this] {
        click(screen(), u"cmdShowAll"_s);
        m_desktop.willAnswer(Answer::Yes).willAnswer(Answer::Yes).willSee(u"choose Restore"_s);
        chooseMenu(screen(), u"mnuDeleteDisplayed"_s);
    });
}

TEST_F(CommandHistory, TakesEveryCommandBackAndDoesItAgain)
{
    for (const QString &title : {u"SOS"_s, u"Waterloo"_s, u"Twice"_s})
        addFile(u"Abba/Arrival/%1.wav"_s.arg(title), title, u"Abba"_s);
    addFile(u"Twice again.wav"_s, u"Twice"_s, u"Abba"_s);
    addFile(u"Björk/Hyper.wav"_s, u"Hyper"_s, u"Björk"_s);
    start(true);
    const QStringList atFirst = state();
    songRoads();
    categoryRoads();
    bulkRoads();
    playListRoads();
    filterAndNoteRoads();
    pictureRoads();
    deleteRoads();
    const QStringList atLast = state();
    const qsizetype changes = sentences().size();
    for (const Qt::Key way : {Qt::Key_Z, Qt::Key_Y}) {
        for (qsizetype i = 0; i < changes; ++i)
            undoKey(way);
    }
    expectSame(state(), atLast, "At the end,");
    for (qsizetype i = 0; i < changes; ++i)
        undoKey(Qt::Key_Z);
    QStringList left = state();
    left.removeIf([](const QString &line) { return !line.startsWith(u"tbl"_s); });
    EXPECT_EQ(left, QStringList());
}

TEST_F(CommandHistory, GoesBackToTheCopyThatStandsInForADeletionOfAll)
{
    addSongs(3);
    start();
    m_desktop.willAnswer(Answer::Yes, u"This will DELETE ALL"_s).willAnswer(Answer::Yes);
    chooseMenu(screen(), u"mnuDeleteAll"_s);
    ASSERT_TRUE(QTest::qWaitFor([this] { return m_quits == 1; }));
    m_program.reset();
    m_instance.reset();
    start(true);
    QWidget &history = opened(u"mnuHistory"_s, u"frmHistory"_s);
    m_desktop.willAnswer(Answer::Yes, u"with 3 songs"_s).willSee(u"Database restored."_s);
    click(history, u"cmdTakeBack"_s);
    ASSERT_TRUE(QTest::qWaitFor([this] {
        return m_desktop.answersLeft() == 0 && m_program->mainScreen() != nullptr && grid().hasFocus();
    }));
    EXPECT_EQ(grid().model()->rowCount(), 3);
    EXPECT_EQ(sentences().size(), 3) << "the copy has the history of its time, before the deletion";
}

} // namespace

} // namespace quaverly::test
