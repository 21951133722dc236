// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlists/PlayListFiles.h"

#include "desktop/MusicFolder.h"
#include "platform/media/ListFile.h"
#include "playlists/FilePrefix.h"
#include "playlists/PlayListFixture.h"
#include "support/Files.h"

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

TEST(TheFilePrefix, KeepsTheStyleOfTheOtherMachine)
{
    const std::pair<QString, QString> cases[] = {
        {u"this machine"_s, u"/music/Größe.mp3"_s},
        {u"none"_s, u"Größe.mp3"_s},
        {u"None"_s, u"None/Größe.mp3"_s},
        {uR"(C:\Music)"_s, uR"(C:\Music\Größe.mp3)"_s},
        {u"D:"_s, uR"(D:\Größe.mp3)"_s},
        {uR"(\\server\share)"_s, uR"(\\server\share\Größe.mp3)"_s},
        {u"/home/anna/Music"_s, u"/home/anna/Music/Größe.mp3"_s},
        {u"/home/anna/Music/"_s, u"/home/anna/Music/Größe.mp3"_s},
        {u"Music"_s, u"Music/Größe.mp3"_s},
    };
    for (const auto &[answer, line] : cases)
        EXPECT_EQ(FilePrefix(answer).line(u"/music/Größe.mp3"_s), line) << answer.toStdString();
}

/** The play lists screen over a list whose songs have files in a music folder, and a folder to copy them to.
 */
class ThePlayListFiles : public PlayListTest
{
protected:
    ThePlayListFiles() { QDir().mkpath(m_store.path(u"stick"_s)); }
    /** A track of that file; and the file, unless there are no bytes for it. */
    void track(const QString &fileName, const QByteArray &bytes = "sound")
    {
        const QString path = fileName.isEmpty() ? QString() : m_store.path(u"music/"_s + fileName);
        if (!bytes.isEmpty() && !path.isEmpty())
            writeFile(path, bytes);
        m_lists.addTrack(m_list, {.ContactRecordID = 1, .SongTitle = u"t"_s, .FileName = path});
    }
    [[nodiscard]] QString stick() const { return m_store.path(u"stick/"_s); }
    [[nodiscard]] QStringList onStick() const
    {
        return QDir(stick()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    const QString m_name = u"What? A/B"_s;
    const qint64 m_list = m_lists.addList(m_name, {});
};

TEST_F(ThePlayListFiles, AreWrittenForOtherPlayers)
{
    track(u"Größe.mp3"_s);
    track({});
    track(u"gone, 曲 #1.flac"_s, {});
    open(m_name);
    m_desktop.willSave(m_store.path(u"party"_s)).willType(u"this machine"_s).willSee();
    choose(u"mnuFileMakePlayListFile");
    EXPECT_EQ(m_desktop.calls().first().offered, u"What_ A_B.m3u"_s);
    EXPECT_EQ(m_desktop.calls().first().startFolder, musicFolder());
    const QString written = m_store.path(u"party.m3u"_s);
    const QStringList lines{m_store.path(u"music/Größe.mp3"_s), m_store.path(u"music/gone, 曲 #1.flac"_s)};
    EXPECT_EQ(m_desktop.lastCall().text, u"Number of song file names written to play list file\r\n   \""_s +
                                             written + u"\"\r\n      2"_s);
    EXPECT_EQ(bytesOf(written), (lines.join(u"\r\n"_s) + u"\r\n"_s).toUtf8());
    EXPECT_EQ(media::readListFile(written), lines);

    m_desktop.willSave(m_store.path(u"loud.M3U"_s)).willType(uR"(C:\Music)"_s).willSee();
    choose(u"mnuFileMakePlayListFile");
    EXPECT_EQ(bytesOf(m_store.path(u"loud.M3U"_s)),
              u"C:\\Music\\Größe.mp3\r\nC:\\Music\\gone, 曲 #1.flac\r\n"_s.toUtf8());
}

TEST_F(ThePlayListFiles, AreNotWrittenWithoutAnAnswerOrAFile)
{
    const QString path = m_store.path(u"party.m3u"_s);
    writeFile(path, "old");
    track({});
    open(m_name);
    m_desktop.willSave(path).willSee(u"No music files were associated"_s);
    choose(u"mnuFileMakePlayListFile");
    track(u"a.mp3"_s);
    m_desktop.willSave(std::nullopt);
    choose(u"mnuFileMakePlayListFile");
    m_desktop.willSave(m_store.path(u"party"_s)).willAnswer(Answer::No, u"already exists."_s);
    choose(u"mnuFileMakePlayListFile");
    EXPECT_EQ(m_desktop.calls().last().defaultAnswer, Answer::No);
    m_desktop.willSave(path).willType({});
    choose(u"mnuFileMakePlayListFile");
    EXPECT_EQ(bytesOf(path), "old");
    m_desktop.willSave(m_store.path(u"no such folder/x.m3u"_s)).willType(u"none"_s).willSee();
    choose(u"mnuFileMakePlayListFile");
}

TEST_F(ThePlayListFiles, AreCopiedOnceEach)
{
    writeFile(stick() + u"there.mp3"_s, "other");
    track(u"a.mp3"_s);
    track(u"live/a.mp3"_s, "live");
    track(u"there.mp3"_s);
    track(u"gone.mp3"_s, {});
    track(u"A.mp3"_s, "capital");
    QDir().mkpath(stick() + u"folder.mp3"_s);
    track(u"folder.mp3"_s);
    open(m_name);
    m_desktop.willBrowse(stick()).willSee(u"could not be copied: 1"_s).willSee(stick() + u" = 2"_s);
    choose(u"mnuFileCopyMusic");
    EXPECT_EQ(onStick(), (QStringList{u"A.mp3"_s, u"a.mp3"_s, u"there.mp3"_s}));
    EXPECT_EQ(bytesOf(stick() + u"a.mp3"_s), "sound");
    EXPECT_EQ(bytesOf(stick() + u"there.mp3"_s), "other");
    EXPECT_TRUE(screen().isEnabled());
    EXPECT_EQ(m_musicFolder, stick());
    m_desktop.willBrowse({});
    choose(u"mnuFileCopyMusic");
    m_desktop.willBrowse(m_store.path(u"music/"_s)).willSee(u" = 0"_s);
    choose(u"mnuFileCopyMusic");
}

TEST_F(ThePlayListFiles, LeaveNoHalfCopy)
{
    track(u"a.mp3"_s);
    track(u"b.mp3"_s, QByteArray(9'000'000, 'b'));
    track(u"c.mp3"_s);
    open(m_name);
    m_desktop.willBrowse(stick()).willSee(u"Copying was stopped.\r\nNumber of files copied to folder\r\n"_s +
                                          stick() + u" = 1"_s);
    // Within the second file.
    m_desktop.atEvents(m_desktop.eventsRun() + 6, [this] { m_desktop.closeWorkingForm(); });
    choose(u"mnuFileCopyMusic");
    EXPECT_EQ(onStick(), QStringList{u"a.mp3"_s});
}

TEST_F(ThePlayListFiles, ShowTheirSongsOnTheMainScreen)
{
    track(u"a.mp3"_s);
    open(m_name);
    choose(u"mnuFileDisplayOnly");
    EXPECT_EQ(m_mainScreen.lblFilterMsg(), u"PlayList:What? A/B"_s);
    EXPECT_FALSE(isOpen());
}

} // namespace
