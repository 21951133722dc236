// SPDX-License-Identifier: GPL-3.0-or-later
// The catalogue store beside the same work through SQLite's bare interface.
#include "BareSqlite.h"
#include "Bench.h"
#include "BenchCatalogue.h"

#include "catalogue/CatalogueSchema.h"
#include "catalogue/DuplicateQueries.h"
#include "platform/store/Dao.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

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
    suite.report(u"locate "_s + size, 0.75, bench::median(keys), bench::Frame, "ms");
}

void run(bench::Suite &suite, int songs)
{
    const QString size = songs >= 1'000'000 ? u"1M"_s : u"100k"_s;
    const QString path = bench::catalogueOf(songs);
    dao::DBEngine engine(quaverly::catalogueSchema());
    const auto db = engine.OpenDatabase(path);
    quaverly::ensureDuplicateQueries(*db);
    bench::BareSqlite bare(path, bench::Collate::AsTheStore);
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
