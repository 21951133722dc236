// SPDX-License-Identifier: GPL-3.0-or-later
// Play lists of the greatest size: loading one, filling it with all displayed songs, moving a song in it.
#include "Bench.h"
#include "WillingDesktop.h"

#include "catalogue/CatalogueSchema.h"
#include "catalogue/Options.h"
#include "catalogue/SettingsRows.h"
#include "lists/PlayerState.h"
#include "platform/options/OptionsStore.h"
#include "platform/store/Collation.h"
#include "platform/store/SqlFunctions.h"
#include "player/Player.h"
#include "playlists/frmPlayList.h"
#include "songlist/DisplayedSet.h"

#include <QApplication>
#include <QDir>
#include <QFile>

#include <sqlite3.h>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace quaverly;

namespace {

constexpr int Songs = 32'000;
constexpr int SongsOfArtist = 12;

class NoPlayer final : public Player
{
public:
    void unload() override {}
    void play(PlayRequest /*request*/) override {}
    bool addToQueue(const SongQueue & /*songs*/, bool /*next*/) override { return false; }
    void showPlayLists() override {}
};

/** A catalogue of that many songs, made anew. */
QString makeCatalogue()
{
    const QString root = bench::dataFolder() + u"playlists/"_s;
    QDir(root).removeRecursively();
    QDir().mkpath(root);
    dao::DBEngine engine(catalogueSchema());
    engine.CreateEmpty(root + u"QVdata.mdb"_s);
    auto db = engine.OpenDatabase(root + u"QVdata.mdb"_s);
    {
        dao::BulkLoad bulk(*db, u"tblContacts"_s);
        const auto rows = db->OpenRecordset(u"tblContacts"_s);
        for (int song = 0; song < Songs; ++song) {
            rows->AddNew();
            rows->setValue(u"SongName"_s, u"Song %1"_s.arg(song * 7919 % Songs));
            rows->setValue(u"Artist"_s, u"Artist %1"_s.arg(song / SongsOfArtist));
            rows->setValue(u"AlbumName"_s, u"Album %1"_s.arg(song / SongsOfArtist));
            rows->setValue(u"TrackText"_s, QString::number(song % SongsOfArtist + 1));
            rows->setValue(u"Duration"_s, u"00:03:30"_s);
            rows->setValue(u"Year"_s, u"1976"_s);
            rows->setValue(u"PathName"_s, u"/music/album %1/"_s.arg(song / SongsOfArtist));
            rows->setValue(u"FileName"_s, u"%1 some song.mp3"_s.arg(song));
            rows->Update();
        }
        rows->Close();
        while (bulk.finishStep()) {
        }
    }
    db->Close();
    return root;
}

/** The bare statements over the same catalogue, each prepared once. */
class Bare final
{
public:
    explicit Bare(const QString &path)
    {
        sqlite3_open_v2(QFile::encodeName(path).constData(), &m_db, SQLITE_OPEN_READWRITE, nullptr);
        dao::registerCollation(m_db);
        dao::registerFunctions(m_db);
        sqlite3_exec(m_db, "PRAGMA synchronous = FULL; PRAGMA cache_size = -16000", nullptr, nullptr,
                     nullptr);
    }
    ~Bare() { sqlite3_close(m_db); }
    Bare(const Bare &) = delete;
    Bare &operator=(const Bare &) = delete;

    /** Title, artist and number of each track. */
    qsizetype load(qint64 list)
    {
        sqlite3_stmt *rows = prepare("Select SongTitle, ArtistName, ListTrackID From tblPlayListDetail "
                                     "Where ListID=?1 Order by ListTrackID");
        sqlite3_bind_int64(rows, 1, list);
        m_rows.clear();
        while (sqlite3_step(rows) == SQLITE_ROW) {
            m_rows.append(text(rows, 0) + u" <> "_s + text(rows, 1));
            m_numbers += sqlite3_column_int64(rows, 2);
        }
        sqlite3_finalize(rows);
        return m_rows.size();
    }

    void addAll(qint64 list)
    {
        sqlite3_exec(m_db, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
        sqlite3_stmt *songs = prepare("Select RecordID, SongName, Artist, AlbumName, TrackText, PathName || "
                                      "FileName, Duration, Year, Rating from tblContacts Order By SongName");
        sqlite3_stmt *insert = prepare(
            "Insert Into tblPlayListDetail (ContactRecordID, SongTitle, ArtistName, AlbumName, Track, "
            "FileName, Duration, Year, Rating, ListID, ListTrackID, LastUpdated) "
            "Values (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, '2026-11-22 19:22:00')");
        for (qint64 number = 1; sqlite3_step(songs) == SQLITE_ROW; ++number) {
            for (int column = 0; column < 9; ++column)
                sqlite3_bind_value(insert, column + 1, sqlite3_column_value(songs, column));
            sqlite3_bind_int64(insert, 10, list);
            sqlite3_bind_int64(insert, 11, number);
            run(insert);
        }
        sqlite3_finalize(songs);
        sqlite3_finalize(insert);
        sqlite3_exec(m_db, "COMMIT", nullptr, nullptr, nullptr);
    }

    /** Every track is looked for by its number and written. */
    void reorder(qint64 list)
    {
        sqlite3_exec(m_db, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
        sqlite3_stmt *find =
            prepare("Select rowid From tblPlayListDetail Where ListID=?1 And ListTrackID=?2 Limit 1");
        sqlite3_stmt *write = prepare(
            "Update tblPlayListDetail Set ListTrackID=?1, LastUpdated='2026-11-22 19:22:00' Where rowid=?2");
        sqlite3_bind_int64(find, 1, list);
        for (int number = 1; number <= Songs; ++number) {
            sqlite3_bind_int64(find, 2, number);
            sqlite3_step(find);
            sqlite3_bind_int64(write, 1, number);
            sqlite3_bind_int64(write, 2, sqlite3_column_int64(find, 0));
            sqlite3_reset(find);
            run(write);
        }
        sqlite3_finalize(find);
        sqlite3_finalize(write);
        sqlite3_exec(m_db, "COMMIT", nullptr, nullptr, nullptr);
    }

private:
    sqlite3_stmt *prepare(const char *sql)
    {
        sqlite3_stmt *statement = nullptr;
        sqlite3_prepare_v2(m_db, sql, -1, &statement, nullptr);
        return statement;
    }
    static void run(sqlite3_stmt *statement)
    {
        if (sqlite3_step(statement) != SQLITE_DONE)
            std::fprintf(stderr, "a statement failed\n");
        sqlite3_reset(statement);
    }
    static QString text(sqlite3_stmt *row, int column)
    {
        return QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(row, column)),
                                 sqlite3_column_bytes(row, column));
    }

    sqlite3 *m_db = nullptr;
    QStringList m_rows;
    qint64 m_numbers = 0;
};

} // namespace

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    bench::Suite suite(QCoreApplication::arguments().mid(1));
    const QString root = makeCatalogue();
    dao::DBEngine engine(catalogueSchema());
    Catalogue catalogue;
    catalogue.DatabaseFolder = root;
    catalogue.CatalogueDb = engine.OpenDatabase(root + u"QVdata.mdb"_s);
    Bare bare(root + u"QVdata.mdb"_s);
    OptionsStore store(root + u"options.ini"_s);
    bench::WillingDesktop desktop(store);
    SettingsRows settings(catalogue);
    DisplayedSet displayed(catalogue, settings, desktop);
    displayed.Data1().setRecordSource(u"Select * from  tblContacts Order By SongName"_s);
    displayed.Data1().Refresh();
    PlayListStore lists(catalogue);
    Options options;
    PlayListTracks tracks(
        {.services = {desktop, catalogue, options, store}, .lists = lists, .displayed = displayed.Data1()});

    const auto newList = [&] { return lists.addList(u"List %1"_s.arg(lists.lists().size()), {}); };
    suite.compare(
        u"add 32k displayed songs"_s, 3,
        [&] {
            const PlayListName list{u"List"_s, newList()};
            tracks.LoadDetailListbox(list.ListID);
            if (tracks.addAllSongs(list) != Songs)
                std::fprintf(stderr, "not all songs were added\n");
        },
        [&] { bare.addAll(newList()); });

    const qint64 list = lists.lists().first().ListID;
    tracks.LoadDetailListbox(list);
    int last = Songs;
    suite.compare(
        u"reorder 32k tracks"_s, 3,
        [&] {
            tracks.rows().MoveListBoxItem(Songs / 2, --last);
            if (tracks.ReOrderTracksAfterDrag() != OrderKept::Yes)
                std::fprintf(stderr, "the tracks were not reordered\n");
        },
        [&] { bare.reorder(list); });

    NoPlayer player;
    PlayerState state;
    state.CurrentPlayListName = u"List 0"_s;
    QString folder;
    frmPlayList screen({.services = {desktop, catalogue, options, store},
                        .player = player,
                        .state = state,
                        .displayed = displayed,
                        .LastMusicFolder = folder,
                        .LastPlayListFolder = folder,
                        .makeMediaPlayer = {},
                        .populateReport = {},
                        .RunPlayListReport = {},
                        .showChangeFileNamePath = {}});
    screen.open();
    suite.compare(
        u"load 32k tracks"_s, 3, [&] { screen.LoadDetailListbox(); }, [&] { bare.load(list); });
    return suite.exitCode();
}
