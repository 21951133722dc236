// SPDX-License-Identifier: GPL-3.0-or-later
#include "BenchCatalogue.h"

#include "Bench.h"
#include "catalogue/CatalogueSchema.h"
#include "platform/store/Dao.h"

#include <QDateTime>
#include <QFile>
#include <QRandomGenerator>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

const QStringList Words{u"love"_s,   u"night"_s,  u"Straße"_s, u"dance"_s,  u"river"_s,  u"été"_s,
                        u"golden"_s, u"dream"_s,  u"heart"_s,  u"shadow"_s, u"夜"_s,     u"blue"_s,
                        u"train"_s,  u"home"_s,   u"wild"_s,   u"summer"_s, u"rain"_s,   u"Mädchen"_s,
                        u"fire"_s,   u"silver"_s, u"road"_s,   u"moon"_s,   u"letter"_s, u"stone"_s};

QString words(QRandomGenerator &random, int count)
{
    QStringList chosen;
    for (int i = 0; i < count; ++i)
        chosen.append(Words[random.bounded(Words.size())]);
    return chosen.join(u' ');
}

void fill(dao::Database &db, int songs)
{
    QRandomGenerator random(7);
    const QDateTime start(QDate(2015, 1, 1), QTime(8, 0), Qt::UTC);
    const QStringList genres{u"Rock"_s, u"Jazz"_s, u"Pop"_s, u"Classical"_s, u"Folk"_s, u"Blues"_s};
    dao::BulkLoad bulk(db, u"tblContacts"_s);
    auto rows = db.OpenRecordset(u"tblContacts"_s);
    for (int i = 0; i < songs; ++i) {
        const int album = i / 12;
        const int artist = album / 4;
        // One song in two hundred is there a second time.
        const bool again = i % 200 == 199;
        rows->AddNew();
        rows->setValue(u"SongName"_s,
                       again ? u"Again %1"_s.arg(i / 400) : words(random, 3) + u" %1"_s.arg(i % 977));
        rows->setValue(u"Artist"_s,
                       again ? u"Again"_s : u"%1 band %2"_s.arg(Words[artist % Words.size()]).arg(artist));
        rows->setValue(u"AlbumName"_s, u"%1 %2"_s.arg(Words[album % 7]).arg(album));
        rows->setValue(u"Genre"_s, genres[artist % genres.size()]);
        rows->setValue(u"Year"_s, QString::number(1955 + artist % 70));
        rows->setValue(u"Rating"_s, QString(1 + i % 5, u'*'));
        rows->setValue(u"TrackText"_s, QString::number(i % 12 + 1));
        rows->setValue(u"TrackNum"_s, i % 12 + 1);
        rows->setValue(u"Duration"_s, u"00:0%1:%2"_s.arg(2 + i % 5).arg(10 + i % 50));
        rows->setValue(u"Bitrate"_s, u"%1kbps"_s.arg(128 + 64 * (i % 4)));
        rows->setValue(u"FileSize"_s,
                       again ? u"4.00 MB"_s : u"%1 MB"_s.arg(2.0 + (i % 700) / 100.0, 0, 'f', 2));
        rows->setValue(u"FileSizeNum"_s, 2.0 + (i % 700) / 100.0);
        rows->setValue(u"FileType"_s, i % 5 == 0 ? u"FLAC"_s : u"MP3"_s);
        rows->setValue(u"PathName"_s, u"/home/anna/Music/%1/%2/"_s.arg(artist).arg(album));
        rows->setValue(u"FileName"_s, u"%1 song.mp3"_s.arg(i));
        rows->setValue(u"Notes"_s, i % 9 == 0 ? words(random, 12) : QString());
        rows->setValue(u"DateUpdated"_s, start.addSecs(i * 61LL));
        rows->Update();
    }
    rows->Close();
    while (bulk.finishStep()) {
    }
}

} // namespace

QString catalogueOf(int songs)
{
    const QString path = dataFolder() + u"catalogue-%1.mdb"_s.arg(songs);
    if (QFile::exists(path))
        return path;
    std::fprintf(stderr, "making a catalogue of %d songs ...\n", songs);
    const QString unfinished = path + u".part"_s;
    for (const QString &ending : {u""_s, u"-wal"_s, u"-shm"_s})
        QFile::remove(unfinished + ending);
    dao::DBEngine engine(quaverly::catalogueSchema());
    engine.CreateEmpty(unfinished);
    auto db = engine.OpenDatabase(unfinished);
    fill(*db, songs);
    db->Close();
    QFile::rename(unfinished, path);
    return path;
}

} // namespace bench
