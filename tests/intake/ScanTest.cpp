// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/KindsTaken.h"
#include "intake/GatherFolders.h"
#include "intake/IntakeFixture.h"
#include "samples/SampleMaker.h"
#include "samples/Silence.h"
#include "support/UserActs.h"

using namespace Qt::StringLiterals;
using namespace tagbytes;

namespace quaverly::test {

TEST_F(IntakeTest, AddsEveryKindOfMusicFileOnce)
{
    write(u"a/dancing.mp3"_s, mp3File(latin1Frame("TIT2", "Dancing Queen") + latin1Frame("TPE1", "Abba") +
                                      latin1Frame("TALB", "Arrival") + latin1Frame("TRCK", "2") +
                                      latin1Frame("TPE2", "Various")));
    write(u"a/b/Track.FLAC"_s, "fLaC" + oggFile({"artist=Abba", "TITLE=Fernando", "TRACKNUMBER=3/12"}));
    write(u"plain.ogg"_s, oggFile());
    write(u"silence.wav"_s, samples::silence(u"wav"));
    write(u"song.m4a"_s, m4aFile(itemAtom("\251nam", "Atoms") + itemAtom("\251ART", "Abba")));
    writeAll({u"film.mp4", u"raw.aac", u"old.wma", u"cover.jpg", u"notes.txt"}, "something else");

    m_seconds = {100.4, 101.4};
    EXPECT_EQ(scan(),
              u"Number of songs added to database: 8\r\n"
              "Number of songs not added because they were already in database: 0\r\n\r\n"
              "Total elapsed time: 1 second (about 0 min.)\r\n\r\n"
              "After loading many songs, it is a good idea to choose Compact Database from the File menu.  "
              "This will remove unused space from your database file."_s);
    EXPECT_EQ(stored(u"FileName"_s),
              u"film.mp4|old.wma|plain.ogg|raw.aac|silence.wav|song.m4a|dancing.mp3|Track.FLAC"_s);
    EXPECT_EQ(stored(u"FileType"_s), u"MP4|WMA|OGG|AAC|WAV|M4A|MP3|FLAC"_s);
    EXPECT_EQ(stored(u"PathName"_s, u"Track.FLAC"_s).toString(), music(u"a/b/"_s));

    const auto dancing = [&](const char16_t *field) {
        return stored(QString::fromUtf16(field), u"dancing.mp3"_s);
    };
    EXPECT_EQ(dancing(u"SongName").toString(), u"Dancing Queen"_s);
    EXPECT_EQ(dancing(u"Artist").toString(), u"Abba"_s);
    EXPECT_EQ(dancing(u"AlbumArtist").toString(), u"Various"_s);
    EXPECT_EQ(dancing(u"TrackNum").toDouble(), 2);
    EXPECT_EQ(dancing(u"bitRate").toString(), u"128kbps"_s);
    EXPECT_EQ(dancing(u"FileSize").toString(), u"16.3 KB"_s);
    EXPECT_NEAR(dancing(u"FileSizeNum").toDouble(), 16.3 / 1024, 1e-9);
    EXPECT_EQ(dancing(u"DateUpdated").toDateTime(), QDateTime({2026, 11, 22}, {19, 22}, Qt::UTC));
    EXPECT_EQ(dancing(u"DateAdded").toDateTime(), dancing(u"DateUpdated").toDateTime());
    EXPECT_EQ(dancing(u"Selected").toString(), u" "_s);
    EXPECT_TRUE(dancing(u"Rating").isNull());
    EXPECT_EQ(stored(u"SongName"_s, u"plain.ogg"_s).toString(), u"plain.ogg"_s);
    EXPECT_EQ(stored(u"Duration"_s, u"Track.FLAC"_s).toString(), u""_s) << "it holds none";

    m_seconds = {86399, 185};
    const QString again = scan();
    EXPECT_TRUE(again.contains(u"already in database: 8\r"_s));
    EXPECT_TRUE(again.contains(u"186 seconds (about 3 min.)"_s)) << "over midnight";
    EXPECT_EQ(m_mainScreen.showAlls, 2);
    EXPECT_TRUE(m_mainScreen.window.isEnabled());
    EXPECT_FALSE(folderForm()->isVisible());
}

TEST_F(IntakeTest, TakesWhatTheWholeFileTellsBesideItsHead)
{
    samples::SongTags tags{u"Fernando"_s, u"Abba"_s, {}, {}, {}, QString(5000, u'x'), 1976, 3, 0, 111};
    tags.albumArtist = u"Various"_s;
    tags.disc = 2;
    useShell(shell::makeShell({.version = 5.1}));
    for (const bool six : {false, true}) {
        if (six)
            useShell(shell::makeShell({}));
        for (const QString &type : {u"flac"_s, u"ogg"_s, u"m4a"_s}) {
            const QString name = (six ? u"six."_s : u"five."_s) + type;
            write(name, samples::SampleMaker().song(type, tags));
            scan();
            EXPECT_EQ(stored(u"SongName"_s, name).toString(), u"Fernando"_s) << qPrintable(name);
            EXPECT_EQ(stored(u"TrackNum"_s, name).toDouble(), 3);
            EXPECT_EQ(stored(u"Duration"_s, name).toString(), u"00:00:01"_s);
            EXPECT_TRUE(stored(u"bitRate"_s, name).toString().endsWith(u"kbps"_s));
            EXPECT_EQ(stored(u"BPM"_s, name).toString(), six ? u"111"_s : QString());
            EXPECT_EQ(stored(u"AlbumArtist"_s, name).toString(), six ? u"Various"_s : QString());
            EXPECT_EQ(stored(u"Disc"_s, name).toString(), six ? u"2"_s : QString());
        }
    }
}

TEST_F(IntakeTest, SaysWhatItPassesByAndLeavesOutKindsWithoutATick)
{
    keepKindsLeftOut(m_store.optionsStore(), {u"wv"_s});
    for (const QString &type : {u"opus"_s, u"aiff"_s, u"wv"_s, u"mp2"_s}) {
        samples::SongTags tags;
        tags.title = type;
        write(u"song."_s + type, samples::SampleMaker().song(type, tags));
    }
    writeAll({u"a.wmv", u"b.WMV", u"c.mid", u"cover.jpg", u"LICENCE", u".hidden"}, "x");
    EXPECT_TRUE(scan().contains(u"\r\n\r\n4 files of other kinds: 2 .wmv, 1 .mid, 1 .wv.\r\n\r\n"_s));
    EXPECT_EQ(stored(u"SongName"_s), u"aiff|mp2|opus"_s);
    EXPECT_EQ(stored(u"FileType"_s), u"AIFF|MP2|OPUS"_s);
    EXPECT_TRUE(stored(u"Duration"_s, u"song.opus"_s).toString() == u"00:00:01"_s);
    keepKindsLeftOut(m_store.optionsStore(), {});
    EXPECT_TRUE(scan().contains(u"added to database: 1\r"_s));
}

TEST_F(IntakeTest, OtherSystemsReadAtomsAndOldColumnsOrFindTheExtensionByTheTypeText)
{
    useShell(shell::makeShell({.version = 5.1}));
    write(u"a.m4a"_s, m4aFile(itemAtom("\251nam", "Atoms") + itemAtom("gnre", QByteArray("\0\22", 2))));
    write(u"b.mp3"_s, mp3File(latin1Frame("TIT2", "Columns") + latin1Frame("TPE1", "Abba")));
    scan();
    EXPECT_EQ(stored(u"SongName"_s), u"Atoms|Columns"_s);
    EXPECT_EQ(stored(u"Genre"_s), u"Rock|"_s);
    EXPECT_EQ(stored(u"Artist"_s), u"Unknown|Abba"_s);

    useShell(shell::makeShell({.hideFileExt = true}));
    writeAll({u"c.flac", u"d.ogg", u"e.wav", u"f.txt"}, "x");
    scan();
    EXPECT_EQ(stored(u"FileType"_s), u"M4A|MP3|FLAC|OGG|WAV"_s);
}

TEST_F(IntakeTest, OneFileIsLookedForBelowItsFolderTooAndAScanWithinAScanDoesNothing)
{
    writeAll({u"one.mp3", u"two.mp3", u"sub/one.mp3", u"sub/ONE.mp3"}, mp3File());
    m_desktop.atEvents(2, [&] { m_loader->LoadMusicFiles(music(), {}); });
    m_desktop.atEvents(3, [&] { m_commands->AddMusicFolder_Click(); });
    m_desktop.willSee();
    m_loader->LoadMusicFiles(music(), {u"one.mp3"_s});
    EXPECT_EQ(stored(u"FileName"_s), u"one.mp3|one.mp3"_s);
    EXPECT_EQ(m_desktop.calls().size(), 1);
}

TEST_F(IntakeTest, CancelWhileGatheringAddsNothing)
{
    for (int i = 0; i < 20; ++i)
        write(u"%1.mp3"_s.arg(i), mp3File());
    m_desktop.atEvents(10, [&] { click(*folderForm(), u"cmdCancel"_s); });
    m_loader->LoadMusicFiles(music(), {});
    EXPECT_EQ(stored(u"FileName"_s), QString());
    EXPECT_TRUE(m_desktop.calls().isEmpty()) << "no statistics";
    EXPECT_TRUE(m_mainScreen.window.isEnabled());
    EXPECT_FALSE(m_state.CancelScan || folderForm()->isVisible());
}

TEST_F(IntakeTest, CancelAmongTheItemsKeepsWhatWasAdded)
{
    for (int i = 0; i < 50; ++i)
        write(u"%1/%1.mp3"_s.arg(i, 2, 10, QChar(u'0')), mp3File());
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

    m_store.reopen();
    const auto kept = stored(u"FileName"_s).split(u'|').size();
    EXPECT_GT(kept, 1);
    EXPECT_LT(kept, 50);
    EXPECT_TRUE(scan().startsWith(u"Number of songs added to database: %1\r"_s.arg(50 - kept)));
}

TEST_F(IntakeTest, FoldersAreGatheredBreadthFirstAndOnce)
{
    writeAll({u"b/x/1.mp3", u"a/y/2.mp3", u"a/z/3.txt", u"4.mp3"}, "x");
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
