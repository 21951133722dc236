// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlists/PlayListFiles.h"

#include "platform/media/ListFile.h"
#include "playlists/FilePrefix.h"
#include "songlist/DisplayedSet.h"
#include "support/Limits.h"
#include "support/QtPrinters.h"
#include "support/ScriptedDesktop.h"
#include "support/store/FakeMainScreen.h"
#include "support/store/StoreFixture.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

TEST(TheFilePrefix, KeepsTheStyleOfTheOtherMachine)
{
    struct Case
    {
        QString answer, line;
    };
    const Case cases[] = {
        {u"this machine"_s, u"/music/Größe.mp3"_s},
        {u" this machine "_s, u"/music/Größe.mp3"_s},
        {u"none"_s, u"Größe.mp3"_s},
        {u"None"_s, u"None/Größe.mp3"_s},
        {uR"(C:\Music)"_s, uR"(C:\Music\Größe.mp3)"_s},
        {uR"(C:\Music\)"_s, uR"(C:\Music\Größe.mp3)"_s},
        {u"D:"_s, uR"(D:\Größe.mp3)"_s},
        {uR"(\\server\share)"_s, uR"(\\server\share\Größe.mp3)"_s},
        {u"/home/anna/Music"_s, u"/home/anna/Music/Größe.mp3"_s},
        {u"/home/anna/Music/"_s, u"/home/anna/Music/Größe.mp3"_s},
        {u"Music"_s, u"Music/Größe.mp3"_s},
    };
    for (const Case &each : cases)
        EXPECT_EQ(FilePrefix(each.answer).line(u"/music/Größe.mp3"_s), each.line)
            << each.answer.toStdString();
}

class ThePlayListFiles : public ::testing::Test
{
protected:
    ThePlayListFiles()
    {
        QDir().mkpath(store.path(u"music/live"_s));
        QDir().mkpath(store.path(u"stick"_s));
        list = {u"What? A/B"_s, lists.addList(u"What? A/B"_s, {})};
        song = store.addSong(Song(u"one"_s, u"Artist"_s));
        set.openAtLoad();
        set.openAtFirstActivation();
    }
    ~ThePlayListFiles() override { set.Data1().Close(); }
    void write(const QString &path, const QByteArray &bytes)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    static QByteArray read(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
    }
    /** A track of that file; and the file, unless there are no bytes for it. */
    void track(const QString &fileName, const QByteArray &bytes = "sound")
    {
        const QString path = fileName.isEmpty() ? QString() : store.path(u"music/"_s + fileName);
        if (!bytes.isEmpty() && !path.isEmpty())
            write(path, bytes);
        lists.addTrack(list.ListID, ++tracks,
                       {.ContactRecordID = song, .SongTitle = u"t"_s, .FileName = path});
    }
    [[nodiscard]] QString stick() const { return store.path(u"stick/"_s); }
    [[nodiscard]] QStringList onStick() const
    {
        return QDir(stick()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    StoreFixture store;
    ScriptedDesktop desktop;
    DisplayedSet set{store.catalogue(), store.settings(), desktop};
    FakeMainScreen screen{&set};
    PlayListStore lists{store.catalogue()};
    PlayListName list;
    qint64 song = 0;
    int tracks = 0, unloads = 0;
    QList<bool> enabled;
    QString lastMusicFolder, lastPlayListFolder;
    PlayListFiles commands{{desktop, store.catalogue(), lists, set, lastMusicFolder, lastPlayListFolder,
                            [this] { return list; }, [this] { return tracks + 1; }, [this] { ++unloads; },
                            [this](bool on) { enabled += on; }}};
};

TEST_F(ThePlayListFiles, AreWrittenForOtherPlayers)
{
    track(u"Größe.mp3"_s);
    track({});
    track(u"gone, 曲 #1.flac"_s, {});
    desktop.willSave(store.path(u"party"_s)).willType(u"this machine"_s).willSee();
    commands.mnuFileMakePlayListFile_Click();
    EXPECT_EQ(desktop.calls().first().offered, u"What_ A_B.m3u"_s);
    EXPECT_EQ(desktop.calls().first().startFolder, QDir::currentPath());
    const QString written = store.path(u"party.m3u"_s);
    EXPECT_EQ(desktop.lastCall().title, u"Finished - Record Count: 2"_s);
    EXPECT_EQ(desktop.lastCall().text, u"Number of song file names written to play list file\r\n   \""_s +
                                           written + u"\"\r\n      2"_s);
    EXPECT_EQ(read(written), (store.path(u"music/Größe.mp3"_s) + u"\r\n"_s +
                              store.path(u"music/gone, 曲 #1.flac"_s) + u"\r\n"_s)
                                 .toUtf8());
    EXPECT_EQ(media::readListFile(written),
              (QStringList{store.path(u"music/Größe.mp3"_s), store.path(u"music/gone, 曲 #1.flac"_s)}));

    desktop.willSave(store.path(u"loud.M3U"_s)).willType(uR"(C:\Music)"_s).willSee();
    commands.mnuFileMakePlayListFile_Click();
    EXPECT_EQ(read(store.path(u"loud.M3U"_s)),
              u"C:\\Music\\Größe.mp3\r\nC:\\Music\\gone, 曲 #1.flac\r\n"_s.toUtf8());
}

TEST_F(ThePlayListFiles, AreNotWrittenWithoutAnAnswerOrAFile)
{
    const QString path = store.path(u"party.m3u"_s);
    write(path, "old");
    desktop.willSave(path).willSee(u"No music files were associated"_s);
    commands.mnuFileMakePlayListFile_Click();
    track(u"a.mp3"_s);
    desktop.willSave(std::nullopt);
    commands.mnuFileMakePlayListFile_Click();
    desktop.willSave(path).willType({});
    commands.mnuFileMakePlayListFile_Click();
    EXPECT_EQ(read(path), "old");
    desktop.willSave(store.path(u"no such folder/x.m3u"_s)).willType(u"none"_s).willSee();
    commands.mnuFileMakePlayListFile_Click();
    EXPECT_EQ(desktop.lastCall().title, u"Make PlayList Error"_s);
    list = {};
    commands.mnuFileMakePlayListFile_Click();
}

TEST_F(ThePlayListFiles, AreCopiedOnceEach)
{
    desktop.willSee(u"No files to copy"_s);
    commands.mnuFileCopyMusic_Click();
    write(stick() + u"there.mp3"_s, "other");
    track(u"a.mp3"_s);
    track(u"live/a.mp3"_s, "live");
    track(u"there.mp3"_s);
    track(u"gone.mp3"_s, {});
    track(u"A.mp3"_s, "capital");
    QDir().mkpath(stick() + u"folder.mp3"_s);
    track(u"folder.mp3"_s);
    lastMusicFolder = store.path(u"music/"_s);
    desktop.willBrowse(stick()).willSee(u"could not be copied: 1"_s).willSee(stick() + u" = 2"_s);
    commands.mnuFileCopyMusic_Click();
    EXPECT_EQ(desktop.lastCall().title, u"Done"_s);
    EXPECT_EQ(onStick(), (QStringList{u"A.mp3"_s, u"a.mp3"_s, u"there.mp3"_s}));
    EXPECT_EQ(read(stick() + u"a.mp3"_s), "sound");
    EXPECT_EQ(read(stick() + u"there.mp3"_s), "other");
    EXPECT_EQ(enabled, (QList<bool>{false, true}));
    EXPECT_EQ(lastMusicFolder, stick());
    desktop.willBrowse({});
    commands.mnuFileCopyMusic_Click();
    desktop.willBrowse(store.path(u"music/"_s)).willSee(u" = 0"_s);
    commands.mnuFileCopyMusic_Click();
}

TEST_F(ThePlayListFiles, LeaveNoHalfCopy)
{
    track(u"a.mp3"_s);
    track(u"b.mp3"_s, QByteArray(9'000'000, 'b'));
    track(u"c.mp3"_s);
    desktop.willBrowse(stick()).willSee(u"Copying was stopped.\r\nNumber of files copied to folder\r\n"_s +
                                        stick() + u" = 1"_s);
    // Within the second file.
    desktop.atEvents(6, [this] { desktop.closeWorkingForm(); });
    commands.mnuFileCopyMusic_Click();
    EXPECT_EQ(onStick(), QStringList{u"a.mp3"_s});
}

TEST_F(ThePlayListFiles, ShowTheirSongsOnTheMainScreen)
{
    const QString before = set.Data1().RecordSource();
    desktop.willSee(u"No records found in database for this PlayList."_s);
    commands.mnuFileDisplayOnly_Click();
    EXPECT_EQ(set.Data1().RecordSource(), before);
    EXPECT_EQ(unloads, 0);
    track(u"a.mp3"_s);
    commands.mnuFileDisplayOnly_Click();
    EXPECT_EQ(screen.lblFilterMsg(), u"PlayList:What? A/B"_s);
    EXPECT_EQ(unloads, 1);
    list.ListName = u"gone meanwhile"_s;
    commands.mnuFileDisplayOnly_Click();
    EXPECT_EQ(unloads, 1);
}

} // namespace
