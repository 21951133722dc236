// SPDX-License-Identifier: GPL-3.0-or-later
// The catalogue store beside the same work through SQLite's bare interface.
#include "Bench.h"
#include "BenchCatalogue.h"

#include "catalogue/CatalogueSchema.h"
#include "catalogue/DuplicateQueries.h"
#include "platform/store/Collation.h"
#include "platform/store/Dao.h"
#include "platform/store/SqlFunctions.h"

#include <QCoreApplication>
#include <QFile>

#include <memory>
#include <sqlite3.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/** A frame at sixty a second, in milliseconds. */
constexpr double Frame = 1000.0 / 60;

/** The same file through the bare interface. */
class Bare
{
public:
    explicit Bare(const QString &path)
    {
        sqlite3 *db = nullptr;
        sqlite3_open_v2(QFile::encodeName(path).constData(), &db, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX,
                        nullptr);
        m_db.reset(db);
        dao::registerCollation(db);
        dao::registerFunctions(db);
        sqlite3_exec(db, "PRAGMA cache_size = -16000", nullptr, nullptr, nullptr);
    }

    /** Steps through all rows and keeps the first column, as a key walk does. */
    void walk(const char *sql)
    {
        sqlite3_stmt *statement = nullptr;
        sqlite3_prepare_v2(m_db.get(), sql, -1, &statement, nullptr);
        m_keys.clear();
        while (sqlite3_step(statement) == SQLITE_ROW)
            m_keys.push_back(sqlite3_column_int64(statement, 0));
        sqlite3_finalize(statement);
    }

private:
    struct Close
    {
        void operator()(sqlite3 *db) const { sqlite3_close(db); }
    };
    std::unique_ptr<sqlite3, Close> m_db;
    std::vector<qint64> m_keys;
};

void open(dao::Database &db, const QString &sql)
{
    const auto rows = db.OpenRecordset(sql, dao::RecordsetType::Dynaset);
    static_cast<void>(rows->RecordCount());
}

void locate(bench::Suite &suite, dao::Database &db, const QString &size)
{
    if (!suite.wants(u"locate "_s + size))
        return;
    const auto rows = db.OpenRecordset(u"Select * from  tblContacts Order By SongName, Artist"_s,
                                       dao::RecordsetType::Dynaset);
    const QStringList typed{u"l"_s,      u"lo"_s, u"lov"_s, u"love"_s, u"love "_s,
                            u"love r"_s, u"x"_s,  u"été"_s, u"夜"_s,   u""_s};
    rows->FindFirst(u"SongName like \"a*\""_s);
    QList<double> keys;
    for (int round = 0; round < 20; ++round) {
        for (const QString &text : typed)
            keys.append(
                bench::costOf([&] { rows->FindFirst(u"SongName like \""_s + text + u"*\""_s); }).wall);
    }
    suite.report(u"locate "_s + size, 0.75, bench::median(keys), Frame, "ms");
}

void run(bench::Suite &suite, int songs)
{
    const QString size = songs >= 1'000'000 ? u"1M"_s : u"100k"_s;
    const QString path = bench::catalogueOf(songs);
    dao::DBEngine engine(quaverly::catalogueSchema());
    const auto db = engine.OpenDatabase(path);
    quaverly::ensureDuplicateQueries(*db);
    Bare bare(path);
    suite.compare(
        u"sort change "_s + size, 2,
        [&] { open(*db, u"Select * from  tblContacts Order By Genre, Artist, SongName"_s); },
        [&] { bare.walk("SELECT RecordID FROM tblContacts ORDER BY Genre, Artist, SongName, RecordID"); });
    suite.compare(
        u"filter on two fields "_s + size, 1.3,
        [&] {
            open(
                *db,
                u"Select distinctrow * from  tblContacts Where  (Genre = \"Jazz\" and Rating = \"****\")  Order By SongName, Artist"_s);
        },
        [&] {
            bare.walk("SELECT RecordID FROM tblContacts WHERE (Genre = 'Jazz' AND Rating = '****') "
                      "ORDER BY SongName, Artist, RecordID");
        });
    suite.compare(
        u"duplicate view "_s + size, 1.5, [&] { open(*db, u"qryDuplicateSongs"_s); },
        [&] {
            bare.walk("SELECT c.RecordID, d.a, d.s, d.f, d.k FROM tblContacts c JOIN (SELECT Artist a, "
                      "SongName s, FileSize f, "
                      "min(RecordID) k FROM tblContacts GROUP BY Artist, SongName, FileSize HAVING "
                      "count(SongName) > 1) d "
                      "ON c.FileSize = d.f AND c.SongName = d.s AND c.Artist = d.a "
                      "ORDER BY c.Artist, c.SongName, c.FileSize, c.RecordID");
        });
    locate(suite, *db, size);
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    bench::Suite suite(QCoreApplication::arguments().mid(1));
    run(suite, 100'000);
    run(suite, 1'000'000);
    return suite.exitCode();
}
