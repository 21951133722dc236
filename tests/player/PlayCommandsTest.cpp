// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/PlayerFixture.h"

#include "player/Player.h"
#include "player/TemporaryList.h"
#include "support/TagBytes.h"

#include <QDir>
#include <QLabel>

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

class ThePlayCommands : public PlayerTest
{
protected:
    /** What the user is told before nothing plays. */
    void expectRefusal(const QString &text, void (PlayCommands::*command)())
    {
        m_desktop.willSee();
        (m_commands.*command)();
        EXPECT_EQ(m_desktop.lastCall().text, text);
        EXPECT_FALSE(form());
        EXPECT_FALSE(m_state.PlayerOpen);
    }
    /** One song so many times. */
    void displayTimes(int count)
    {
        display(u"Select tblContacts.* from tblContacts, tblCategoryDesc Where CategoryNumber <= %1"_s.arg(
            count));
    }
};

TEST_F(ThePlayCommands, PlayTheCurrentSong)
{
    m_commands.cmdPlay_Click();
    EXPECT_FALSE(form()) << "nothing is displayed";
    song(u"Dancing Queen"_s, u"Abba"_s, u"queen #1 100%.mp3"_s);
    song(u"Alone"_s, {}, u"alone.mp3"_s);
    display();
    m_commands.cmdPlay_Click();
    ASSERT_TRUE(form());
    EXPECT_EQ(rows(), QStringList(u"Dancing Queen <> Abba"_s));
    EXPECT_EQ(urls(), QStringList(music(u"queen #1 100%.mp3"_s)));
    EXPECT_EQ(caption(), u"queen #1 100%.mp3"_s);
    EXPECT_EQ(m_state.CurrentPlayUrl, music(u"queen #1 100%.mp3"_s));
    EXPECT_TRUE(m_state.PlayerOpen);
    for (const char16_t *name : {u"cbPlayNext", u"cbPlayRandom", u"cbLoop"})
        EXPECT_TRUE(isShown(QString::fromUtf16(name))) << QString::fromUtf16(name).toStdString();
    for (const char16_t *name : {u"cbShuffle", u"cbSkipDups", u"cbNowPlaying", u"cmdDelete"})
        EXPECT_FALSE(isShown(QString::fromUtf16(name))) << QString::fromUtf16(name).toStdString();
    EXPECT_TRUE(listFile().isEmpty());

    // A new command replaces the player.
    const QPointer<PlayForm> first = form();
    m_options.WindowsVersionMajor = 5;
    m_data.Recordset().MoveNext();
    m_commands.cmdPlay_Click();
    EXPECT_NE(form(), first.data());
    EXPECT_EQ(rows(), QStringList(u"Alone"_s));
    EXPECT_FALSE(isShown(u"cbPlayNext"_s));
    EXPECT_EQ(m_ends, 0);
}

TEST_F(ThePlayCommands, TellOfASongWithoutItsFile)
{
    song(u"Here"_s, {}, u"here.mp3"_s);
    catalogued(u"Gone"_s, {}, u"gone.mp3"_s);
    m_store.addSong(Song(u"No file"_s).with(u"PathName"_s, music()));
    display();
    m_commands.cmdPlay_Click();
    ASSERT_TRUE(form());
    const QString rest = u"\"\r\nnot found.\r\nIt may have been deleted or moved to a new location.  You can "
                         "globally change music file locations by choosing:\r\n\"Change Music File "
                         "Locations\" from the Edit menu."_s;
    for (const QString &path : {music(u"gone.mp3"_s), music()}) {
        m_data.Recordset().MoveNext();
        expectRefusal(u"\""_s + path + rest, &PlayCommands::cmdPlay_Click);
    }
}

TEST_F(ThePlayCommands, PlayAllThatIsThere)
{
    const QStringList names{u"été.mp3"_s, u"夜.ogg"_s, u"it's \"it\".mp3"_s, u" # ;%41 .mp3"_s};
    for (const QString &name : names)
        song(name.first(1), u"A"_s, name);
    catalogued(u"Gone"_s, {}, u"gone.mp3"_s);
    song(u"Two lines"_s, {}, u"two\nlines.mp3"_s);
    m_store.addSong(Song(u"No file"_s).with(u"PathName"_s, music(names.first())));
    const QString sources[] = {
        u"Select * from  tblContacts Order By RecordID"_s,
        u"Select distinctrow * from  qryContacts Where  (SongName like \"*\")  Order By RecordID"_s,
        u"SELECT DISTINCTROW tblContacts.* FROM tblContacts INNER JOIN tblPlayListDetail ON "
        "tblContacts.RecordID = tblPlayListDetail.ContactRecordID  WHERE tblPlayListDetail.ListID=1  Order "
        "By "
        "tblContacts!RecordID "_s,
    };
    const auto all = m_store.column(u"Select RecordID from tblContacts"_s);
    QList<qint64> keys;
    for (const QString &key : all)
        keys += key.toLongLong();
    m_store.addPlayList(u"All"_s, keys + keys);
    QByteArray lines;
    for (const QString &name : names)
        lines += music(name).toUtf8() + "\r\n";
    for (const QString &source : sources) {
        display(source);
        m_commands.cmdPlayAll_Click();
        ASSERT_TRUE(form()) << source.toStdString();
        EXPECT_EQ(rows(), (QStringList{u"é <> A"_s, u"夜 <> A"_s, u"i <> A"_s, u"  <> A"_s}))
            << source.toStdString();
        EXPECT_EQ(listFile(), lines);
    }
    EXPECT_EQ(caption(), u"All Songs"_s);
    EXPECT_EQ(m_state.CurrentPlayTitle, u"All Songs"_s);
    EXPECT_EQ(m_state.CurrentPlayUrl, temporaryList(m_store.folder()));
    EXPECT_EQ(control<QLabel>(u"lblNumSongs"_s).text(), u"Number of songs: 4"_s);
    EXPECT_FALSE(isShown(u"cmdDelete"_s));
    EXPECT_FALSE(isShown(u"cbPlayNext"_s));
    EXPECT_TRUE(isShown(u"cbShuffle"_s));
    waitFor(names.first());
    EXPECT_EQ(player().currentPlaylist().count(), names.size());
    for (int i = 0; i < names.size(); ++i)
        EXPECT_EQ(player().currentPlaylist().Item(i).sourceURL, music(names.at(i)));
    form()->close();
    EXPECT_FALSE(QFile::exists(temporaryList(m_store.folder())));
}

TEST_F(ThePlayCommands, AskBeforeManyAndRefuseTooMany)
{
    m_commands.cmdPlayAll_Click();
    EXPECT_FALSE(form());
    m_store.addSong(Song(u"x"_s));
    const auto categories = m_store.db().OpenRecordset(u"tblCategoryDesc"_s);
    dao::Transaction adding(m_store.db().workspace());
    for (int i = 0; i < 32'001; ++i) {
        categories->AddNew();
        categories->Update();
    }
    adding.commit();
    displayTimes(999);
    expectRefusal(
        u"No music files found for the displayed songs.  They may have changed folder locations or been "
        "deleted from this machine."_s,
        &PlayCommands::cmdPlayAll_Click);
    displayTimes(1000);
    m_desktop.willAnswer(
        Answer::No,
        u"There are 1000 songs in the current list.\r\n\r\nAre you sure you want to play all of them?"_s);
    m_commands.cmdPlayAll_Click();
    EXPECT_EQ(m_desktop.lastCall().defaultAnswer, Answer::No);
    displayTimes(32'001);
    expectRefusal(
        u"There are 32001 songs in the current list.  The maximum number of songs you can put in a Play "
        "List is 32000."_s,
        &PlayCommands::cmdPlayAll_Click);
}

TEST_F(ThePlayCommands, ShowTheErrorOfAListThatCannotBeWritten)
{
    song(u"a"_s, {}, u"a.mp3"_s);
    display();
    ASSERT_TRUE(QDir().mkdir(temporaryList(m_store.folder())));
    m_desktop.willSee(u"The list of songs could not be written"_s);
    m_commands.cmdPlayAll_Click();
    EXPECT_FALSE(form());
    EXPECT_FALSE(m_desktop.isHourglassOn());
}

TEST_F(ThePlayCommands, PlayAFolder)
{
    using namespace tagbytes;
    write(u"b2.mp3"_s, mp3File(latin1Frame("TIT2", "Title") + latin1Frame("TPE1", "Artist")));
    for (const char16_t *name : {u"b10.MP3", u"c.FLAC", u"d.aac", u"e.mp4", u"xflac", u".ogg", u"cover.jpg",
                                 u"readme", u"song.txt", u"sub/f.mp3"})
        write(QString::fromUtf16(name));
    QDir().mkpath(music(u"folder.mp3"_s));
    m_lastMusicFolder = u"/before"_s;
    m_desktop.willBrowse({});
    m_commands.mnuPlayFolder_Click();
    EXPECT_EQ(m_desktop.lastCall().startFolder, u"/before"_s);

    m_desktop.willBrowse(music());
    m_commands.mnuPlayFolder_Click();
    ASSERT_TRUE(form());
    EXPECT_EQ(m_lastMusicFolder, music());
    QStringList found = rows();
    found.sort();
    EXPECT_EQ(found, (QStringList{u".ogg <> Unknown"_s, u"Title <> Artist"_s, u"b10.MP3 <> Unknown"_s,
                                  u"c.FLAC <> Unknown"_s, u"xflac <> Unknown"_s}));
    EXPECT_LT(urls().indexOf(music(u"b2.mp3"_s)), urls().indexOf(music(u"b10.MP3"_s))) << "natural order";
    EXPECT_EQ(caption(), u"All Songs in Folder"_s);
    EXPECT_EQ(m_state.CurrentPlayTitle, music());
    EXPECT_EQ(control<QLabel>(u"lblNumSongs"_s).text(), u"Number of songs: 5"_s);
    EXPECT_EQ(listFile().count("\r\n"), 5);

    m_desktop.willBrowse(music());
    m_gathered = {music(u"sub/"_s)};
    m_lastMusicFolder = u"/before"_s;
    m_commands.mnuPlayFolderAndSubfolders_Click();
    ASSERT_TRUE(form());
    EXPECT_EQ(m_lastMusicFolder, u"/before"_s);
    QStringList names;
    for (const QString &url : urls())
        names += url.mid(music().size());
    EXPECT_EQ(names.last(), u"sub/f.mp3"_s);
    names.sort();
    EXPECT_EQ(names,
              (QStringList{u"b10.MP3"_s, u"b2.mp3"_s, u"c.FLAC"_s, u"d.aac"_s, u"sub/f.mp3"_s, u"xflac"_s}));
    EXPECT_EQ(caption(), music());
    EXPECT_EQ(ListIndex(), 0);
}

TEST_F(ThePlayCommands, TellOfAFolderWithoutMusic)
{
    write(u"sub/f.mp3"_s);
    m_desktop.willBrowse(music());
    expectRefusal(u"No music files found in this folder."_s, &PlayCommands::mnuPlayFolder_Click);
    m_desktop.willBrowse(u"/no/such/folder/"_s);
    expectRefusal(u"No music files found in this folder."_s, &PlayCommands::mnuPlayFolderAndSubfolders_Click);
}

TEST_F(ThePlayCommands, FindTheExtensionThatTheShellHides)
{
    m_shell = shell::makeShell({.hideFileExt = true});
    PlayCommands commands({.services = m_store.services(m_desktop),
                           .player = m_forms,
                           .state = m_state,
                           .displayed = m_data,
                           .shell = *m_shell,
                           .LastMusicFolder = m_lastMusicFolder,
                           .gatherFolders = {},
                           .showPlayLists = {},
                           .showSongAdded = {}});
    for (const char16_t *name : {u"a.mp3", u"b.flac", u"c.txt", u"d.ogg", u"e.wma"})
        write(QString::fromUtf16(name));
    m_desktop.willBrowse(music());
    commands.mnuPlayFolder_Click();
    ASSERT_TRUE(form());
    EXPECT_EQ(urls(),
              (QStringList{music(u"a.mp3"_s), music(u"b.flac"_s), music(u"d.ogg"_s), music(u"e.wma"_s)}));
}

TEST_F(ThePlayCommands, PlayFromTheEditor)
{
    song(u"Stored"_s, u"Artist"_s, u"stored.mp3"_s);
    write(u"typed.mp3"_s);
    display();
    QStringList acts;
    const EditorScreens screens{[&] { acts += u"hide editor"_s; }, [&] { acts += u"hide list"_s; },
                                [&] { acts += u"show editor"_s; }};
    const EditedSong refused[] = {
        {music(), u"typed.mp3"_s, false}, {music(), u" "_s, true}, {music(), u"no.mp3"_s, true}};
    for (const EditedSong &edited : refused) {
        m_desktop.willSee(u"\""_s + music(u"stored.mp3"_s) + u"\"\r\nnot found."_s);
        m_commands.playFromEditor(edited, screens);
        EXPECT_FALSE(form());
        EXPECT_FALSE(m_state.PlayedFromEditor);
    }
    m_commands.playFromEditor({music(), u"typed.mp3"_s, true}, screens);
    ASSERT_TRUE(form());
    EXPECT_EQ(acts, (QStringList{u"hide editor"_s, u"hide list"_s, u"show editor"_s}));
    EXPECT_EQ(rows(), QStringList(u"Stored <> Artist"_s));
    EXPECT_EQ(urls(), QStringList(music(u"typed.mp3"_s)));
    EXPECT_TRUE(m_state.PlayedFromEditor);
    EXPECT_FALSE(isShown(u"cbShuffle"_s));
    EXPECT_TRUE(isShown(u"cbNowPlaying"_s));
}

TEST_F(ThePlayCommands, AddFromTheGridsPopUp)
{
    song(u"a"_s, {}, u"a.mp3"_s);
    m_store.addPlayList(u"Party"_s);
    display();
    m_commands.mnuPopupAddToPlaylist_Click();
    EXPECT_EQ(m_playListScreens, 1);
    EXPECT_FALSE(m_state.AddingFromGrid);
    m_state.CurrentPlayListName = u"Party"_s;
    m_commands.mnuPopupAddToPlaylist_Click();
    EXPECT_EQ(m_songsAdded, 1);
    EXPECT_EQ(m_store.column(u"select FileName from tblPlayListDetail"_s), QStringList(music(u"a.mp3"_s)));
    m_state.CurrentPlayListName = u"Gone"_s;
    m_desktop.willSee(u"\"Gone\" Play list name not found."_s);
    m_commands.mnuPopupAddToPlaylist_Click();
    EXPECT_EQ(m_songsAdded, 1);
}

} // namespace
