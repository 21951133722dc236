// SPDX-License-Identifier: GPL-3.0-or-later
// Playing every displayed song, and how soon a single one plays.
#include "Bench.h"
#include "WillingDesktop.h"

#include "catalogue/CatalogueSchema.h"
#include "catalogue/Options.h"
#include "lists/PlayerState.h"
#include "platform/media/Media.h"
#include "platform/options/OptionsStore.h"
#include "platform/shell/Shell.h"
#include "player/PlayCommands.h"
#include "player/PlayForms.h"
#include "samples/Silence.h"
#include "songlist/DataControl.h"

#include <QApplication>
#include <QDir>
#include <QFile>

#include <cstdio>
#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace quaverly;

namespace {

constexpr int Songs = 32'000;
constexpr int SongsInFolder = 12;

// The first start is left out: it loads the module that plays.
constexpr int Starts = 15;
/** Milliseconds that a user takes for at once. */
constexpr double LongestWait = 100;

const QString AllSongs = u"play all 32k"_s;
const QString OneSong = u"click to playing"_s;

QString folderOfSong(const QString &root, int song)
{
    return root + u"music/album %1/"_s.arg(song / SongsInFolder);
}

QString nameOfSong(int song)
{
    return u"%1 some song.mp3"_s.arg(song);
}

/** Files, and a catalogue that knows them; made once and kept. */
QString dataOfSongs()
{
    const QString root = bench::dataFolder() + u"player/"_s;
    if (QFile::exists(root + u"QVdata.mdb"_s))
        return root;
    std::fprintf(stderr, "making %d files ...\n", Songs);
    QDir(root).removeRecursively();
    for (int song = 0; song < Songs; ++song) {
        if (song % SongsInFolder == 0)
            QDir().mkpath(folderOfSong(root, song));
        QFile file(folderOfSong(root, song) + nameOfSong(song));
        if (file.open(QIODevice::WriteOnly))
            file.write("x");
    }
    const QString unfinished = root + u"unfinished"_s;
    dao::DBEngine engine(catalogueSchema());
    engine.CreateEmpty(unfinished);
    auto db = engine.OpenDatabase(unfinished);
    {
        dao::BulkLoad bulk(*db, u"tblContacts"_s);
        const auto rows = db->OpenRecordset(u"tblContacts"_s);
        for (int song = 0; song < Songs; ++song) {
            rows->AddNew();
            rows->setValue(u"SongName"_s, u"Song %1"_s.arg(song * 7919 % Songs));
            rows->setValue(u"Artist"_s, u"Artist %1"_s.arg(song / SongsInFolder));
            rows->setValue(u"PathName"_s, folderOfSong(root, song));
            rows->setValue(u"FileName"_s, nameOfSong(song));
            rows->Update();
        }
        rows->Close();
        while (bulk.finishStep()) {
        }
    }
    db->Close();
    QFile::rename(unfinished, root + u"QVdata.mdb"_s);
    return root;
}

/** The least that has to be done: a look at every file, and the list written. */
void statAndWrite(const QString &root)
{
    QByteArray lines;
    for (int song = 0; song < Songs; ++song) {
        const QByteArray path = QFile::encodeName(folderOfSong(root, song) + nameOfSong(song));
        struct stat found = {};
        if (::stat(path.constData(), &found) == 0)
            lines += path + "\r\n";
    }
    QFile file(root + u"baseline.m3u"_s);
    if (!file.open(QIODevice::WriteOnly) || file.write(lines) != lines.size())
        std::fprintf(stderr, "the list can't be written\n");
}

/** Runs on until the player made last plays. */
void waitForSound(const media::MediaPlayer *player)
{
    while (player->playState() != media::PlayState::Playing)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

QStringList silentSongs(const QString &root)
{
    QStringList paths;
    for (const QString &type : {u"mp3"_s, u"flac"_s, u"m4a"_s}) {
        paths += root + u"silence."_s + type;
        QFile file(paths.constLast());
        if (!file.open(QIODevice::WriteOnly) || file.write(samples::silence(type)) <= 0)
            std::fprintf(stderr, "%s can't be written\n", qPrintable(paths.constLast()));
    }
    return paths;
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    bench::Suite suite(QCoreApplication::arguments().mid(1));
    if (!suite.wants(AllSongs) && !suite.wants(OneSong))
        return 0;
    const QString root = dataOfSongs();
    dao::DBEngine engine(catalogueSchema());
    Catalogue catalogue;
    catalogue.DatabaseFolder = root;
    catalogue.CatalogueDb = engine.OpenDatabase(root + u"QVdata.mdb"_s);
    OptionsStore store(root + u"options.ini"_s);
    bench::WillingDesktop desktop(store);
    PlayerState state;
    Options options;
    const Services services{desktop, catalogue, options, store};
    DataControl displayed(catalogue);
    displayed.setRecordSource(u"Select * from  tblContacts Order By SongName, Artist"_s);
    const media::MediaFactory media(
        {.audioOutput = u"null"_s, .outputFile = {}, .untimed = false, .moduleFolder = {}});
    const media::MediaPlayer *lastPlayer = nullptr;
    PlayForms player({.services = services,
                      .state = state,
                      .displayed = displayed,
                      .makeMediaPlayer =
                          [&] {
                              auto made = media.makeMediaPlayer();
                              lastPlayer = made.get();
                              return made;
                          },
                      .isLastScreen = [] { return false; },
                      .endProgram = [] {},
                      .random = [] { return 0.0; }});
    const auto shell = shell::makeShell();
    QString lastFolder;
    PlayCommands commands({.services = services,
                           .player = player,
                           .state = state,
                           .displayed = displayed,
                           .shell = *shell,
                           .LastMusicFolder = lastFolder,
                           .gatherFolders = {},
                           .showPlayLists = {},
                           .showSongAdded = {}});
    if (suite.wants(AllSongs))
        suite.compare(
            AllSongs, 4, [&] { commands.cmdPlayAll_Click(); }, [&] { statAndWrite(root); });
    if (suite.wants(OneSong)) {
        const QStringList songs = silentSongs(root);
        QList<double> times;
        for (int run = 0; run <= Starts; ++run) {
            const bench::Cost cost = bench::costOf([&] {
                player.unload();
                player.play(playerOnlyRequest(songs.at(run % songs.size())));
                waitForSound(lastPlayer);
            });
            if (run > 0)
                times += cost.wall;
        }
        suite.report(OneSong, 1, bench::median(times), LongestWait, "ms");
        player.unload();
    }
    return suite.exitCode();
}
