// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlists/PlayListFixture.h"

#include "samples/SampleMaker.h"
#include "support/Files.h"
#include "support/Limits.h"

#include <QAbstractItemModelTester>
#include <QMenu>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

class PlayLists : public PlayListTest
{
protected:
    /** The selected row's text. */
    QString selected() { return rows().value(lbDetail().ListIndex()); }
    void addHeader(const QString &name)
    {
        press(u"cmdAddHeader");
        inScreen([&](QWidget &header) {
            retype(child<QLineEdit>(header, u"txtPlayListName"_s), name);
            click(header, u"cmdOK"_s);
        });
    }
    /** A list of tracks of these names, songs of the sample maker where they are WAV files. */
    qint64 addSounds(const QStringList &names)
    {
        const qint64 list = m_lists.addList(u"Sounds"_s, {});
        for (const QString &name : names) {
            const QString path = name.isEmpty() ? QString() : m_store.path(name);
            if (name.endsWith(".wav"_L1))
                samples::makeSong(path, {});
            m_lists.addTrack(list, {.SongTitle = name, .ArtistName = u"Artist"_s, .FileName = path});
        }
        return list;
    }
    /** Plays from that row of lbDetail; what was heard until the window is gone. */
    QStringList heardFrom(int row)
    {
        m_heard.clear();
        clickRow(row);
        press(u"cmdPlay1");
        EXPECT_TRUE(QTest::qWaitFor([this] { return playWindow() == nullptr; }, 20'000));
        return m_heard;
    }
    QString note()
    {
        const auto &label = *child<QLabel>(*playWindow(), u"lblMediaNote"_s);
        return label.isVisible() ? label.text() : QString();
    }
    void closeChild()
    {
        inScreen([](QWidget &over) { over.close(); });
    }
};

TEST_F(PlayLists, AreChosenAndShown)
{
    open();
    EXPECT_EQ(shown(u"lblMsg"), u"Select a play list."_s);
    EXPECT_EQ(control<QComboBox>(u"cmbHeader").currentIndex(), -1);
    EXPECT_TRUE(control<QComboBox>(u"cmbHeader").hasFocus());
    key(&lbDetail(), Qt::Key_C, Qt::ControlModifier); // copying from an empty list does no harm
    pick(u"Party"_s);
    EXPECT_EQ(
        rows(),
        (QStringList{
            u"A <> Artist"_s, u"B <> Artist"_s, u"C <> Artist"_s, u"D <> Artist"_s, u"E <> Artist"_s, {}}));
    EXPECT_EQ(shown(u"lblNumSongs"), u"Number of songs: 5"_s);
    EXPECT_EQ(m_state.CurrentPlayListName, u"Party"_s);
    EXPECT_FALSE(control<QWidget>(u"cmdOK").isVisible());
    clickRow(5);
    EXPECT_EQ(selected(), u"E <> Artist"_s);
    choose(u"mnuReportsDetail");
    EXPECT_EQ(m_reports, QStringList{u"Detail Party"_s});
    press(u"cmdClose");
    EXPECT_FALSE(isOpen());
    open(u"party"_s);
    EXPECT_EQ(rows().size(), 6);
    EXPECT_EQ(shown(u"lblMsg"), QString());
    m_screens.cmdPlayList_Click();
    EXPECT_EQ(QApplication::activeModalWidget(), &screen());
}

TEST_F(PlayLists, TakeTheGridsSong)
{
    m_state.AddingFromGrid = true;
    open();
    EXPECT_EQ(screen().windowTitle(), u"Add song: \"Say \"Hi\"\" to play list."_s);
    pick(u"Party"_s);
    EXPECT_EQ(shown(u"lblSongTitle"), u"Say \"Hi\""_s);
    press(u"cmdOK");
    EXPECT_EQ(stored(m_party), u"A B C D E Say 'Hi'"_s);
    EXPECT_EQ(selected(), u"Say 'Hi' <> Artist"_s);
    EXPECT_EQ(shown(u"lblMsg"), u"Song was added to Play List."_s);
    EXPECT_FALSE(control<QWidget>(u"cmdOK").isVisible());
    screen().close();
    EXPECT_FALSE(m_state.AddingFromGrid);

    m_state.AddingFromGrid = true;
    open();
    pick(u"Empty"_s);
    m_lists.deleteList(m_empty);
    m_desktop.willSee(u"\"Empty\" Play list name not found."_s);
    press(u"cmdOK");
    EXPECT_EQ(numbers(m_empty), QString());
}

TEST_F(PlayLists, AreMadeRenamedAndDeleted)
{
    open(u"Party"_s);
    m_desktop.willSee(u"You must enter a name for this new Play List."_s);
    addHeader(u"   "_s);
    closeChild();
    m_desktop.willSee(u"A Play List already exists with this name.  Please chose another name."_s);
    addHeader(u"pARTY "_s);
    closeChild();
    m_desktop.willSee(u"too small"_s);
    addHeader(QString(300, u'x'));
    closeChild();
    for (const QString &name : {u"The \"best\""_s, u"A <> B & C"_s, u"PlayList "_s}) {
        QString kept = name;
        kept = kept.replace(u'"', u'\'').trimmed();
        m_desktop.willSee(u"New play list added.\r\n("_s + kept + u')');
        addHeader(name);
        EXPECT_EQ(m_state.CurrentPlayListName, kept);
        EXPECT_EQ(control<QComboBox>(u"cmbHeader").currentText(), kept);
        EXPECT_TRUE(m_lists.ListID(kept).has_value());
    }
    const qint64 list = *m_lists.ListID(u"PlayList"_s);
    m_state.PlayerPlayList = u"playlist"_s;
    m_state.CurrentPlayTitle = u"PlayList PlayList"_s;
    choose(u"mnuEditPlayList");
    inScreen([](QWidget &header) {
        EXPECT_EQ(child<QLineEdit>(header, u"txtPlayListName"_s)->text(), u"PlayList"_s);
        retype(child<QLineEdit>(header, u"txtPlayListName"_s), u"Later"_s);
        type(child<QPlainTextEdit>(header, u"txtNotes"_s), u"notes"_s);
        click(header, u"cmdOK"_s);
    });
    EXPECT_EQ(m_lists.ListID(u"Later"_s), list);
    EXPECT_EQ(control<QComboBox>(u"cmbHeader").currentText(), u"Later"_s);
    for (const QString &remembered : {m_state.CurrentPlayListName, m_state.PlayerPlayList})
        EXPECT_EQ(remembered, u"Later"_s);
    EXPECT_EQ(m_state.CurrentPlayTitle, u"PlayList Later"_s);
    EXPECT_EQ(m_player.listsShown, 4);
    choose(u"mnuEditPlayList");
    m_desktop.willAnswer(Answer::Yes, u"Are you sure you want to delete this play list?"_s);
    inScreen([](QWidget &header) { click(header, u"cmdDelete"_s); });
    EXPECT_FALSE(m_lists.exists(list));
    // With no list chosen, the lists open by themselves.
    EXPECT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() != nullptr; }));
    if (auto *popup = QApplication::activePopupWidget())
        popup->close();
    pick(u"Party"_s);
    m_desktop.willAnswer(Answer::No, u"Are you sure you want to delete this entire play list?"_s);
    choose(u"mnuEditDelete");
    EXPECT_EQ(m_desktop.lastCall().defaultAnswer, Answer::No);
    EXPECT_EQ(stored(m_party), u"A B C D E"_s);
    m_desktop.willAnswer(Answer::Yes);
    choose(u"mnuEditDelete");
    EXPECT_FALSE(m_lists.exists(m_party));
    EXPECT_EQ(stored(m_party), QString());
    EXPECT_EQ(m_state.CurrentPlayListName, QString());
    EXPECT_EQ(rows(), QStringList());
    EXPECT_FALSE(control<QWidget>(u"cmdPlay").isEnabled());
}

TEST_F(PlayLists, OfOneNameAreToldApart)
{
    const qint64 other = addList(u"Party"_s, 2);
    open();
    auto &combo = control<QComboBox>(u"cmbHeader");
    key(&combo, Qt::Key_End);
    EXPECT_EQ(combo.currentData().toLongLong(), other);
    EXPECT_EQ(rows().size(), 3);
    choose(u"mnuEditPlayList");
    m_desktop.willAnswer(Answer::Yes);
    inScreen([](QWidget &header) { click(header, u"cmdDelete"_s); });
    EXPECT_EQ(stored(m_party), u"A B C D E"_s);
    EXPECT_FALSE(m_lists.exists(other));
}

TEST_F(PlayLists, KeepTheOrderOnTheScreen)
{
    m_store.db().Execute(u"Update tblPlayListDetail Set ArtistName=\"\" Where SongTitle=\"D\""_s);
    m_store.db().Execute(u"Update tblPlayListDetail Set ListTrackID=9 Where SongTitle=\"E\""_s);
    open(u"Party"_s);
    const QAbstractItemModelTester tester(lbDetail().model());
    const auto expect = [this](const QString &order) {
        QApplication::processEvents();
        QString shown;
        for (const QString &row : rows())
            shown += row.left(1);
        EXPECT_EQ(shown, order);
        EXPECT_EQ(stored(m_party).remove(u' '), order);
        for (int i = 1; i <= order.size(); ++i)
            EXPECT_EQ(numbers(m_party).split(u' ').at(i - 1).toInt(), i);
    };
    dragRow(0, 2);
    expect(u"BACDE"_s);
    dragRow(4, 1);
    expect(u"BEACD"_s);
    EXPECT_EQ(selected(), u"E <> Artist"_s);
    dragRow(2, 0);
    expect(u"ABECD"_s);
    dragRow(1, 5);
    expect(u"AECDB"_s);
    dragRow(0, 3, true);
    dragRow(5, 0); // the blank row
    dragRow(0, -1);
    dragRow(1, 2);
    expect(u"AECDB"_s);
    clickRow(4);
    key(&lbDetail(), Qt::Key_Down, Qt::AltModifier);
    for (int i = 0; i < 5; ++i)
        key(&lbDetail(), Qt::Key_Up, Qt::AltModifier);
    expect(u"BAECD"_s);
    key(&lbDetail(), Qt::Key_Down, Qt::AltModifier);
    key(&lbDetail(), Qt::Key_Delete); // before the move was stored
    expect(u"AECD"_s);
    EXPECT_EQ(selected(), u"E <> Artist"_s);
    key(&lbDetail(), Qt::Key_Down, Qt::AltModifier);
    screen().close();
    EXPECT_EQ(stored(m_party), u"A C E D"_s);
}

TEST_F(PlayLists, KeepTheOldOrderWhereTheNewOneCannotBeStored)
{
    open(u"Party"_s);
    m_store.db().Execute(
        u"Delete From tblPlayListDetail Where SongTitle=\"B\""_s); // by the player, which is usable beside
                                                                   // the screen
    m_lists.addTrack(m_party, {.SongTitle = u"F"_s});
    dragRow(4, 0);
    m_desktop.willSee(u"Match not found on Track Title: B <> Artist"_s);
    QApplication::processEvents();
    EXPECT_EQ(stored(m_party), u"E A C D F"_s);
    EXPECT_EQ(rows().mid(3), (QStringList{u"D <> Artist"_s, u"F"_s, {}}));
    {
        const FullDisk full(1);
        dragRow(4, 0);
        m_desktop.willSee(u"Error number:61.  "_s);
        QApplication::processEvents();
    }
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(stored(m_party), u"E A C D F"_s);
    open(u"Party"_s);
    dragRow(4, 0);
    screen().close();
    EXPECT_EQ(stored(m_party), u"F E A C D"_s);
}

TEST_F(PlayLists, LoseASongAndItsNumber)
{
    open(u"Party"_s);
    lbDetail().clearSelection();
    m_desktop.willSee(u"You must select a song to remove from the list."_s);
    choose(u"mnuEditDeleteSong");
    m_desktop.willSee(u"You must select a song to edit from the list."_s);
    choose(u"mnuEditEditSong");
    clickRow(1);
    QMenu &menu = control<QMenu>(u"mnuEdit");
    Q_EMIT lbDetail().customContextMenuRequested(
        lbDetail().visualRect(lbDetail().model()->index(2, 0)).center());
    EXPECT_EQ(selected(), u"C <> Artist"_s);
    EXPECT_TRUE(menu.isVisible());
    EXPECT_FALSE(control<QAction>(u"mnuEditDelete").isVisible());
    control<QAction>(u"mnuEditDeleteSong").trigger();
    menu.close();
    EXPECT_TRUE(control<QAction>(u"mnuEditDelete").isVisible());
    EXPECT_EQ(stored(m_party), u"A B D E"_s);
    EXPECT_EQ(numbers(m_party), u"1 2 3 4"_s);
    EXPECT_EQ(shown(u"lblNumSongs"), u"Number of songs: 4"_s);
    for (int song = 0; song < 4; ++song) {
        clickRow(0);
        key(&lbDetail(), Qt::Key_Delete);
    }
    EXPECT_EQ(stored(m_party), QString());
    EXPECT_EQ(rows(), QStringList{QString()});
    EXPECT_FALSE(control<QAction>(u"mnuFilePopulate").isEnabled());
    key(&lbDetail(), Qt::Key_Delete);
    // Filled again, all commands work at once.
    m_desktop.willAnswer(Answer::Yes);
    choose(u"mnuAddAllSongs");
    EXPECT_TRUE(control<QAction>(u"mnuFilePopulate").isEnabled());
    key(screen().focusWidget(), Qt::Key_Delete);
    EXPECT_EQ(shown(u"lblNumSongs"), u"Number of songs: 3"_s);
}

TEST_F(PlayLists, TakeAllDisplayedSongs)
{
    open(u"Party"_s);
    m_desktop.willAnswer(Answer::No,
                         u"Number of songs about to be added to Play List: 4.\r\n\r\nAre you sure?"_s);
    choose(u"mnuAddAllSongs");
    EXPECT_EQ(m_desktop.lastCall().defaultAnswer, Answer::No);
    EXPECT_EQ(rows().size(), 6);
    m_desktop.willAnswer(Answer::More).willPreview([](QWidget &preview) {
        tickRow(preview, 1);
        click(preview, u"cmdGoOn"_s);
    });
    choose(u"mnuAddAllSongs");
    EXPECT_EQ(shown(u"lblMsg"), u"3 songs were added to Play List."_s);
    EXPECT_EQ(stored(m_party), u"A B C D E Say 'Hi' SOS Untitled"_s);
    m_desktop.willAnswer(Answer::Yes);
    choose(u"mnuAddAllSongs");
    EXPECT_EQ(stored(m_party), u"A B C D E Say 'Hi' SOS Untitled Say 'Hi' Take <> Five SOS Untitled"_s);
    EXPECT_EQ(numbers(m_party), u"1 2 3 4 5 6 7 8 9 10 11 12"_s);
    EXPECT_EQ(selected(), u"Untitled <> Artist"_s);
    EXPECT_EQ(shown(u"lblMsg"), u"4 songs were added to Play List."_s);
    EXPECT_EQ(m_store.column(u"select FileName from tblPlayListDetail Where SongTitle=\"SOS\""_s),
              QStringList(2, u"/music/SOS.mp3"_s));
}

TEST_F(PlayLists, AreFullByEachOfTheirTests)
{
    QList<Track> tracks;
    for (int i = 0; i < MostRows + 1; ++i)
        tracks.append({.SongTitle = u"s"_s});
    m_lists.addTracks(m_empty, tracks.mid(0, MostTracks - 1));
    open(u"Empty"_s);
    EXPECT_EQ(rows().size(), MostTracks);
    choose(u"mnuEditAddSong");
    closeChild();
    scrollByDrag();
    m_lists.addTrack(m_empty, tracks.first());
    pick(u"Party"_s);
    pick(u"Empty"_s);
    m_desktop.willSee(u"Play List has reached maximum size of 32,000 songs.  No more can be added."_s);
    choose(u"mnuEditAddSong");
    // Adding all looks at the displayed songs alone; what is shown ends at 32,001.
    m_desktop.willAnswer(Answer::Yes, u"This will add every song"_s);
    choose(u"mnuAddAllSongs");
    EXPECT_EQ(m_lists.countTracks(m_empty), MostTracks + 4);
    EXPECT_EQ(shown(u"lblNumSongs"), u"Number of songs: 32001"_s);
    m_store.db().Execute(u"Update tblPlayListDetail Set ContactRecordID=1"_s);
    m_displayed.Data1().setRecordSource(
        u"SELECT DISTINCTROW tblContacts.* FROM tblContacts INNER JOIN tblPlayListDetail ON "
        "tblContacts.RecordID = tblPlayListDetail.ContactRecordID  WHERE tblPlayListDetail.ListID=%1  order "
        "by "
        "tblContacts!SongName"_s.arg(m_empty));
    m_desktop.willSee(u"You are trying to add 32004 songs."_s);
    choose(u"mnuAddAllSongs");
}

TEST_F(PlayLists, TakeSongsByHand)
{
    const auto fill = [](QWidget &detail, const QString &title, const QString &file) {
        retype(child<QLineEdit>(detail, u"txtSongName"_s), title);
        retype(child<QLineEdit>(detail, u"txtFileName"_s), file);
        child<QLineEdit>(detail, u"txtArtistName"_s)->setFocus();
        QApplication::processEvents();
        click(detail, u"cmdOK"_s);
    };
    open(u"Party"_s);
    choose(u"mnuEditAddSong");
    inScreen([&](QWidget &detail) {
        EXPECT_EQ(detail.windowTitle(), u"Add a new song title that is not in database to this Play List"_s);
        m_desktop.willSee(u"You must enter both a Song Name and a File Name for this new song."_s);
        fill(detail, u"New"_s, u" "_s);
        m_desktop.willSee(u"Warning!  The file name \"/no.mp3\" does not exist!"_s);
        fill(detail, u"The \"New\" <> one  "_s, u"/no.mp3"_s);
    });
    EXPECT_EQ(stored(m_party), u"A B C D E The 'New' <> one"_s);
    EXPECT_EQ(m_store.column(u"select Notes from tblPlayListDetail Where ListTrackID=6"_s),
              QStringList{u"  *added manually, when song was not cataloged in database*"_s});
    EXPECT_EQ(selected(), u"The 'New' <> one"_s);
    EXPECT_EQ(shown(u"lblNumSongs"), u"Number of songs: 6"_s);

    const QString file = m_store.path(u"there.mp3"_s);
    writeFile(file);
    clickRow(1);
    QTest::mouseDClick(lbDetail().viewport(), Qt::LeftButton, {},
                       lbDetail().visualRect(lbDetail().model()->index(1, 0)).center());
    inScreen([&](QWidget &detail) {
        EXPECT_EQ(child<QLineEdit>(detail, u"txtSongName"_s)->text(), u"B"_s);
        m_desktop.willOpen(file);
        click(detail, u"cmdBrowse"_s);
        EXPECT_EQ(child<QLineEdit>(detail, u"txtFileName"_s)->text(), file);
        m_desktop.willSee(u"The song name cannot be blank."_s);
        fill(detail, u" "_s, file);
        fill(detail, u"Bee"_s, file);
    });
    EXPECT_EQ(stored(m_party), u"A Bee C D E The 'New' <> one"_s);
    EXPECT_EQ(rows().at(1), u"Bee <> Artist"_s);
    EXPECT_EQ(m_store.column(u"select FileName from tblPlayListDetail Where ListTrackID=2"_s),
              QStringList{file});
    // With a gap in the numbers, in a list that an older program left.
    m_store.db().Execute(u"Delete From tblPlayListDetail Where SongTitle=\"A\""_s);
    pick(u"Empty"_s);
    pick(u"Party"_s);
    clickRow(1);
    choose(u"mnuEditEditSong");
    inScreen([&](QWidget &detail) {
        EXPECT_EQ(child<QLineEdit>(detail, u"txtSongName"_s)->text(), u"C"_s);
        fill(detail, u"Three"_s, file);
    });
    EXPECT_EQ(stored(m_party), u"Bee Three D E The 'New' <> one"_s);
    choose(u"mnuEditEditSong");
    inScreen([&](QWidget &detail) {
        m_lists.deleteTrack(m_party, m_lists.shownTracks(m_party, 2).last().key);
        m_desktop.willSee(u"This song has been removed from the Play List, so nothing was changed."_s);
        fill(detail, u"Four"_s, file);
        detail.close();
    });
    EXPECT_EQ(numbers(m_party), u"1 2 3 4"_s);
}

TEST_F(PlayLists, ArePlayed)
{
    open(u"Party"_s);
    m_desktop.willSee(u"No music files were associated with any of the songs in this Play List"_s);
    press(u"cmdPlay");
    m_store.db().Execute(u"Update tblPlayListDetail Set FileName=\"/gone.mp3\" Where SongTitle=\"A\""_s);
    m_desktop.willSee(u"No music files found for the songs in this Play List."_s);
    press(u"cmdPlay");
    const QString file = m_store.path(u"there.mp3"_s);
    writeFile(file);
    m_store.db().Execute(u"Update tblPlayListDetail Set FileName=\"%1\" Where SongTitle > \"B\""_s.arg(file));
    press(u"cmdPlay");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(m_player.unloads, 3);
    ASSERT_EQ(m_player.played.size(), 1);
    const PlayRequest &request = m_player.played.first();
    EXPECT_EQ(request.caption, u"PlayList: Party"_s);
    EXPECT_EQ(request.CurrentPlayTitle, u"PlayList Party"_s); // the player deletes from that list
    EXPECT_EQ(request.songs.song(0), u"C <> Artist"_s);
    EXPECT_EQ(request.songs.urls(), (QStringList{file, file, file}));
    EXPECT_EQ(request.songs.ListIndex(), 0);
    EXPECT_TRUE(request.cmdDelete && request.showsCount);
    EXPECT_EQ(bytesOf(request.CurrentPlayUrl), (file + u"\r\n"_s).repeated(3).toUtf8());
}

TEST_F(PlayLists, PlayOneSongAfterTheOther)
{
    addSounds({u"a.wav"_s, u"b.wav"_s, u"c.wav"_s});
    open(u"Sounds"_s);
    EXPECT_EQ(heardFrom(0), (QStringList{u"a.wav <> Artist"_s, u"b.wav <> Artist"_s, u"c.wav <> Artist"_s}));
    EXPECT_EQ(selected(), u"c.wav <> Artist"_s);
    EXPECT_EQ(heardFrom(1).size(), 2);
    EXPECT_EQ(heardFrom(3), QStringList()) << "the blank row was chosen";
}

TEST_F(PlayLists, PlayPastALostSongOrUntilTheWindowIsClosed)
{
    const qint64 list = addSounds({u"a.wav"_s, u"lost.wav"_s, u"b.wav"_s, u"gone.mp3"_s, {}});
    open(u"Sounds"_s);
    m_lists.deleteFile(list, m_store.path(u"lost.wav"_s));
    clickRow(0);
    for (int run = 0; run < 2; ++run) {
        m_heard.clear();
        press(u"cmdPlay1");
        EXPECT_TRUE(
            QTest::qWaitFor([this] { return playWindow() && note().contains(u"gone.mp3"_s); }, 20'000))
            << run;
        EXPECT_EQ(m_heard,
                  run == 0 ? (QStringList{u"a.wav <> Artist"_s, u"b.wav <> Artist"_s}) : QStringList());
        key(playWindow(), Qt::Key_Escape);
        EXPECT_TRUE(QTest::qWaitFor([this] { return playWindow() == nullptr; }));
    }
    EXPECT_EQ(selected(), u"gone.mp3 <> Artist"_s);
    clickRow(4);
    press(u"cmdPlay1");
    EXPECT_EQ(note(), u"This song has no music file."_s);
    playWindow()->close();
    EXPECT_TRUE(QTest::qWaitFor([this] { return playWindow() == nullptr; }));
}

TEST_F(PlayLists, AreThereForTheOtherCommands)
{
    m_state.CurrentPlayListName = u"Renamed since"_s;
    open(u"Renamed since"_s);
    EXPECT_EQ(control<QComboBox>(u"cmbHeader").currentIndex(), -1);
    EXPECT_FALSE(control<QAction>(u"mnuEditChangeFileNamePath").isEnabled());
    pick(u"Party"_s);
    m_desktop.willSee(u"No records found in database for this PlayList."_s);
    choose(u"mnuFileDisplayOnly");
    m_desktop.willSave({});
    choose(u"mnuFileMakePlayListFile");
    m_desktop.willAnswer(Answer::No);
    choose(u"mnuFilePopulate");
    screen().close();
    m_lists.deleteList(m_party);
    m_lists.deleteList(m_empty);
    open(u"Party"_s);
    EXPECT_EQ(m_state.CurrentPlayListName, QString());
    EXPECT_EQ(shown(u"lblMsg"), u"There are no play lists.  Click the Add New Play List button."_s);
    EXPECT_TRUE(control<QWidget>(u"cmdAddHeader").hasFocus());
}

} // namespace
