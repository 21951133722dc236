// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/GatherFolders.h"
#include "intake/IntakeFixture.h"
#include "intake/SampleBytes.h"
#include "support/UserActs.h"

#include <QFile>
#include <QLabel>
#include <QProgressBar>

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

QString closingMessage(int added, int skipped, const QString &time)
{
    return u"Number of songs added to database: %1\r\n"
           "Number of songs not added because they were already in database: %2\r\n\r\n"
           "Total elapsed time: %3\r\n\r\n"
           "After loading many songs, it is a good idea to choose Compact Database from the File menu.  "
           "This will remove unused space from your database file."_s.arg(added)
               .arg(skipped)
               .arg(time);
}

} // namespace

TEST_F(IntakeTest, AddsEveryKindOfMusicFileOnce)
{
    write(u"a/dancing.mp3"_s,
          mp3File({{"TIT2", "Dancing Queen"}, {"TPE1", "Abba"}, {"TALB", "Arrival"}, {"TRCK", "2"}}));
    write(u"a/b/Track.FLAC"_s, "fLaC" + oggFile({"artist=Abba", "TITLE=Fernando", "TRACKNUMBER=3/12"}));
    write(u"plain.ogg"_s, oggFile({}));
    write(u"silence.wav"_s, wavFile());
    write(u"song.m4a"_s, m4aFile(textAtom("\251nam", "Atoms") + textAtom("\251ART", "Abba")));
    for (const char16_t *name : {u"film.mp4", u"raw.aac", u"old.wma", u"cover.jpg", u"notes.txt"})
        write(QString::fromUtf16(name), "something else");

    m_seconds = {100.4, 101.4};
    EXPECT_EQ(scan(), closingMessage(8, 0, u"1 second (about 0 min.)"_s));
    EXPECT_EQ(m_desktop.lastCall().title, u"Done"_s);
    EXPECT_EQ(stored(u"FileName"_s),
              u"film.mp4|old.wma|plain.ogg|raw.aac|silence.wav|song.m4a|dancing.mp3|Track.FLAC"_s);
    EXPECT_EQ(stored(u"FileType"_s), u"MP4|WMA|OGG|AAC|WAV|M4A|MP3|FLAC"_s);
    EXPECT_EQ(stored(u"PathName"_s, u"Track.FLAC"_s).toString(), music(u"a/b/"_s));

    const auto dancing = [&](const char16_t *field) {
        return stored(QString::fromUtf16(field), u"dancing.mp3"_s);
    };
    EXPECT_EQ(dancing(u"SongName").toString(), u"Dancing Queen"_s);
    EXPECT_EQ(dancing(u"Artist").toString(), u"Abba"_s);
    EXPECT_EQ(dancing(u"TrackNum").toDouble(), 2);
    EXPECT_EQ(dancing(u"bitRate").toString(), u"128kbps"_s);
    EXPECT_EQ(dancing(u"FileSize").toString(), u"16.3 KB"_s);
    EXPECT_NEAR(dancing(u"FileSizeNum").toDouble(), 16.3 / 1024, 1e-9);
    EXPECT_EQ(dancing(u"DateUpdated").toDateTime(), QDateTime({2026, 11, 22}, {19, 22}, Qt::UTC));
    EXPECT_EQ(dancing(u"Selected").toString(), u" "_s);
    EXPECT_TRUE(dancing(u"Rating").isNull());
    EXPECT_EQ(stored(u"SongName"_s, u"plain.ogg"_s).toString(), u"plain.ogg"_s);
    EXPECT_EQ(stored(u"Duration"_s, u"Track.FLAC"_s).toString(), u""_s) << "no columns are read for it";
    EXPECT_EQ(stored(u"bitRate"_s, u"Track.FLAC"_s), QVariant(u""_s));
    EXPECT_TRUE(stored(u"TrackNum"_s, u"Track.FLAC"_s).isNull());

    m_seconds = {86399, 185};
    EXPECT_EQ(scan(), closingMessage(0, 8, u"186 seconds (about 3 min.)"_s)) << "over midnight";
    EXPECT_EQ(m_mainScreen.showAlls, 2);
    EXPECT_TRUE(m_mainScreen.window.isEnabled());
    EXPECT_FALSE(m_state.CancelScan);
    EXPECT_FALSE(folderForm()->isVisible());
    EXPECT_EQ(m_state.MusicFolder, music());
}

TEST_F(IntakeTest, OldSystemsReadAtomsAndOldColumns)
{
    restartShell({.version = 5.1});
    write(u"a.m4a"_s, m4aFile(textAtom("\251nam", "Atoms") + genreAtom(18)));
    write(u"b.mp3"_s, mp3File({{"TIT2", "Columns"}, {"TPE1", "Abba"}, {"TRCK", "7"}}));
    write(u"c.mp4"_s, m4aFile(textAtom("\251nam", "Not read by atoms")));
    scan();
    EXPECT_EQ(stored(u"SongName"_s).section(u'|', 0, 1), u"Atoms|Columns"_s);
    EXPECT_EQ(stored(u"Genre"_s).section(u'|', 0, 0), u"Rock"_s);
    EXPECT_EQ(stored(u"Artist"_s).section(u'|', 0, 1), u"Unknown|Abba"_s);
    EXPECT_EQ(stored(u"TrackText"_s, u"b.mp3"_s).toString(), u"7"_s);
    EXPECT_EQ(stored(u"FileType"_s), u"M4A|MP3|MP4"_s);
}

TEST_F(IntakeTest, HiddenExtensionsAreFoundByTheTypeText)
{
    restartShell({.hideFileExt = true});
    for (const char16_t *name : {u"a.mp3", u"b.flac", u"c.ogg", u"d.wav", u"e.txt", u"f.m4a"})
        write(QString::fromUtf16(name), "x");
    scan();
    EXPECT_EQ(stored(u"FileName"_s), u"a.mp3|b.flac|c.ogg|d.wav|f.m4a"_s);
    EXPECT_EQ(stored(u"FileType"_s), u"MP3|FLAC|OGG|WAV|M4A"_s);
}

TEST_F(IntakeTest, OneFileIsLookedForBelowItsFolderToo)
{
    for (const char16_t *name : {u"one.mp3", u"two.mp3", u"sub/one.mp3", u"sub/ONE.mp3"})
        write(QString::fromUtf16(name), mp3File({}));
    QString caption;
    m_desktop.willSee().meanwhile([&] { caption = folderForm()->windowTitle(); });
    m_loader->LoadMusicFiles(music(), u"one.mp3"_s);
    EXPECT_EQ(stored(u"FileName"_s), u"one.mp3|one.mp3"_s);
    EXPECT_EQ(caption, u"Add One Music File"_s);
}

TEST_F(IntakeTest, ShowsHowFarItIs)
{
    for (int i = 0; i < 40; ++i)
        write(u"%1/%1.ogg"_s.arg(i, 2, 10, QChar(u'0')), oggFile({}));
    QStringList shown;
    const auto look = [&] {
        shown = QStringList{folderForm()->windowTitle(), child<QLabel>(*folderForm(), u"Msg"_s)->text()};
        for (const char16_t *name :
             {u"lblRecsReadLabel", u"lblRecsRead", u"lblRecsAddedLabel", u"lblRecsAdded"})
            shown += child<QLabel>(*folderForm(), QString::fromUtf16(name))->text();
        EXPECT_TRUE(folderForm()->isVisible() && folderForm()->isEnabled());
        EXPECT_TRUE(child<QProgressBar>(*folderForm(), u"Label1"_s)->isVisible());
        EXPECT_FALSE(m_mainScreen.window.isEnabled());
    };
    for (int i = 60; i < 400; ++i)
        m_desktop.atEvents(i, look);
    scan();
    EXPECT_EQ(shown.first(2),
              QStringList({u"Add a Folder of Music Files"_s, u"Scanning in progress...\nPlease wait..."_s}));
    EXPECT_EQ(shown.mid(2), QStringList({u"Files read:"_s, u"80"_s, u"Songs found:"_s, u"30"_s}));
    EXPECT_EQ(child<QProgressBar>(*folderForm(), u"Label1"_s)->value(), 6300)
        << "the sub-folders are items too";
}

TEST_F(IntakeTest, CancelWhileGatheringAddsNothing)
{
    for (int i = 0; i < 20; ++i)
        write(u"%1.mp3"_s.arg(i), mp3File({}));
    m_desktop.atEvents(10, [&] { click(*folderForm(), u"cmdCancel"_s); });
    m_loader->LoadMusicFiles(music(), {});
    EXPECT_EQ(stored(u"FileName"_s), QString());
    EXPECT_TRUE(m_desktop.calls().isEmpty()) << "no statistics";
    EXPECT_TRUE(m_mainScreen.window.isEnabled());
    EXPECT_EQ(m_mainScreen.showAlls, 1);
    EXPECT_FALSE(m_state.CancelScan);
    EXPECT_FALSE(folderForm()->isVisible());
}

TEST_F(IntakeTest, CancelAmongTheItemsKeepsWhatWasAdded)
{
    for (int i = 0; i < 50; ++i)
        write(u"%1/%1.mp3"_s.arg(i, 2, 10, QChar(u'0')), mp3File({}));
    bool cancelled = false;
    for (int i = 100; i < 400; ++i) {
        m_desktop.atEvents(i, [&] {
            if (!cancelled && child<QLabel>(*folderForm(), u"lblRecsAdded"_s)->text().toInt() >= 20)
                cancelled = folderForm()->close();
        });
    }
    m_loader->LoadMusicFiles(music(), {});
    EXPECT_TRUE(m_desktop.calls().isEmpty()) << "no statistics";
    EXPECT_FALSE(m_state.CancelScan);
    EXPECT_TRUE(m_mainScreen.window.isEnabled());

    m_catalogue.CatalogueDb.reset();
    m_catalogue.CatalogueDb = m_engine.OpenDatabase(m_catalogue.DatabaseFile);
    const auto kept = stored(u"FileName"_s).split(u'|').size();
    EXPECT_GT(kept, 1);
    EXPECT_LT(kept, 50);
    EXPECT_TRUE(scan().startsWith(u"Number of songs added to database: %1\r"_s.arg(50 - kept)));
}

TEST_F(IntakeTest, AScanWithinAScanDoesNothing)
{
    write(u"a.mp3"_s, mp3File({}));
    m_desktop.atEvents(2, [&] { m_loader->LoadMusicFiles(music(), {}); });
    m_desktop.atEvents(3, [&] { m_commands->AddMusicFolder_Click(); });
    scan();
    EXPECT_EQ(m_desktop.calls().size(), 1);
}

TEST_F(IntakeTest, ArtistButtonFollowsTheCurrentRow)
{
    m_currentArtist = u"Simon & Garfunkel"_s;
    scan();
    EXPECT_EQ(m_mainScreen.artistCaption, u"Show all songs by Simon && Garfunkel"_s);
    EXPECT_TRUE(m_mainScreen.isVisible(MainControl::cmdShowArtistSongs));
    m_currentArtist = u" "_s;
    scan();
    EXPECT_FALSE(m_mainScreen.isVisible(MainControl::cmdShowArtistSongs));
}

TEST_F(IntakeTest, FoldersAreGatheredBreadthFirstAndOnce)
{
    for (const char16_t *name : {u"b/x/1.mp3", u"a/y/2.mp3", u"a/z/3.txt", u"4.mp3"})
        write(QString::fromUtf16(name), "x");
    QFile::link(music(), music(u"a/loop"_s));
    QFile::link(music(u"b/x"_s), music(u"a/again"_s));
    QFile::link(u"/proc"_s, music(u"proc"_s));
    QFile::link(music(u"missing"_s), music(u"gone"_s));
    const QTemporaryDir elsewhere;
    QFile::link(elsewhere.path(), music(u"linked"_s));

    GatheredFolders found;
    GatherFolders(*m_shell, m_desktop, m_state.CancelScan, music().chopped(1), found);
    QStringList relative;
    for (const QString &folder : std::as_const(found.folders))
        relative += folder.mid(music().size());
    EXPECT_EQ(relative.join(u' '), u" a/ b/ a/y/ a/z/ b/x/ linked/"_s);
    EXPECT_EQ(found.plainFiles, 4);
}

} // namespace quaverly::test
