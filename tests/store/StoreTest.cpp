// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/StoreTest.h"

#include "catalogue/DuplicateQueries.h"

#include <QFile>

#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quaverly::test {

QString firstFields(dao::Recordset &rows)
{
    QStringList values;
    for (qint64 row = 0; row < rows.RecordCount(); ++row) {
        const QVariant value = rows.valueAt(row, 0);
        values.append(value.isNull() ? u"Null"_s : value.toString());
    }
    return values.join(u'|');
}

QString firstFields(dao::Database &db, const QString &sql, dao::RecordsetType type)
{
    return firstFields(*db.OpenRecordset(sql, type));
}

QString quotedSql(QString text)
{
    return u'"' + text.replace(u"\""_s, u"\"\""_s) + u'"';
}

QString integrityOf(const QString &path)
{
    dao::Connection connection(path, dao::Connection::Mode::ReadWrite);
    return connection.scalar("PRAGMA integrity_check").toString();
}

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

void writeBytes(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write(bytes), bytes.size());
}

int inChild(bool asNobody, const std::function<int()> &run)
{
    constexpr unsigned Nobody = 65534;
    int ends[2] = {};
    EXPECT_EQ(::pipe(ends), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        int result = -1;
        const bool dropped = !asNobody || ::getuid() != 0 ||
                             (::setgroups(0, nullptr) == 0 && ::setgid(Nobody) == 0 && ::setuid(Nobody) == 0);
        if (dropped)
            result = run();
        ::_exit(::write(ends[1], &result, sizeof result) == sizeof result ? 0 : 1);
    }
    ::close(ends[1]);
    int result = -1;
    EXPECT_EQ(::read(ends[0], &result, sizeof result), static_cast<ssize_t>(sizeof result));
    ::close(ends[0]);
    ::waitpid(child, nullptr, 0);
    return result;
}

void SongCatalogue::SetUp()
{
    struct Row
    {
        const char16_t *song, *artist, *album, *genre, *rating, *id, *size, *path, *file;
        double megabytes, track;
        const char16_t *bought;
    };
    static constexpr Row songs[] = {
        {u"Été", u"Beyoncé", u"Sun", u"Pop", u"*****", u"A1", u"3.2 MB", u"/m/é/", u"été.mp3", 3.2, 2,
         u"2001-02-03"},
        {u"ete", u"Beyonce", u"Sun", u"pop", u"****", u"B2", u"3.2 MB", u"/m/e/", u"ete.mp3", 1, 1,
         u"2001-02-03"},
        {u"Say \"Hi\"", u"O'Neil \"Q\"", u"Sun", u"Rock", nullptr, nullptr, nullptr, u"/m/q/",
         u"say 'hi'.mp3", 2, 3, u"1999-12-31 23:59:58"},
        {u" blank both ", nullptr, u" ", u"", u" ", u"  ", nullptr, u"/m/ b /", u" b .wav", 4, 0, nullptr},
        {u"Straße", u"Zoë", nullptr, u"Rock", u"*", u"ß", u"1 MB", u"/M/S/", u"straße.flac", 0, 0,
         u"2024-02-29"},
        {u"桜", u"椎名林檎", u"無罪", u"J-Pop", u"***", u"c[3]", u"9 MB", u"/m/日本/", u"桜.mp3", 9, 12,
         nullptr},
        {u"Star* [Live]", u"a_b%c", u"100%", u"#1", u"[x]", u"7", u"7 KB", u"/m/[l]/", u"star [1].mp3", 7, 7,
         nullptr},
        {nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 0, 0, nullptr},
        {u"ÉTÉ", u"BEYONCÉ", u"SUN", u"POP", u"*****", u"a9", u"3.2 MB", u"/m/é/", u"copy.mp3", 3.2, 2,
         nullptr},
        {u"Strasse", u"Zoe", u"Road", u"Rock", u"", u"10", u"1 MB", u"/m/s/", u"strasse.mp3", 1, 10, nullptr},
        {u"été", u"beyoncé", u"Moon", u"Pop", u"*****", u"c3", u"3.2 MB", u"/m/é/", u"copy2.mp3", 3.2, 5,
         nullptr},
    };
    const auto text = [](const char16_t *value) {
        return value == nullptr ? QVariant() : QVariant(QString::fromUtf16(value));
    };
    for (const Row &row : songs) {
        Song song(QString::fromUtf16(row.song == nullptr ? u"" : row.song));
        song.with(u"SongName"_s, text(row.song)).with(u"Artist"_s, text(row.artist));
        song.with(u"AlbumName"_s, text(row.album)).with(u"Genre"_s, text(row.genre));
        song.with(u"Rating"_s, text(row.rating))
            .with(u"ID"_s, text(row.id))
            .with(u"FileSize"_s, text(row.size));
        song.with(u"PathName"_s, text(row.path)).with(u"FileName"_s, text(row.file));
        song.with(u"PurchaseDate"_s, text(row.bought));
        if (row.song != nullptr)
            song.with(u"FileSizeNum"_s, row.megabytes).with(u"TrackNum"_s, row.track);
        store.addSong(song);
    }
    store.addCategory(u"Rock"_s, {1, 3, 9});
    store.addCategory(u"Élan \"12\""_s, {1, 6});
    store.addCategory(u"élan"_s);
    store.addPlayList(u"Mix \"A\""_s, {5, 1, 3});
    store.addPlayList(u"empty"_s);
    db().Execute(u"Update tblPlayListDetail Set SongTitle='t' & ListTrackID, FileName='/m/' & "
                 u"ContactRecordID & '.mp3' "
                 "Where ContactRecordID <> 3"_s);
    db().Execute(
        u"Insert Into tblSettings (Type, Name, Setting8) Values ('FILTER', 'four', 'Rating like \"[*]*\"')"_s);
    db().Execute(u"Update tblContacts Set Selected='x' Where RecordID in (2, 6)"_s);
    ensureDuplicateQueries(db());
}

QString SongCatalogue::everything()
{
    QString all;
    for (const QString &table : {u"tblContacts"_s, u"tblSettings"_s, u"tblCategoryDesc"_s, u"tblCategoryID"_s,
                                 u"tblPlayListHeader"_s, u"tblPlayListDetail"_s, u"tblOrphanFileNames"_s}) {
        const auto rows = db().OpenRecordset(table, dao::RecordsetType::Snapshot);
        for (qint64 row = 0; row < rows->RecordCount(); ++row) {
            for (int field = 0; field < rows->Fields().size(); ++field)
                all += rows->valueAt(row, field).toString() + u'\t';
            all += u'\n';
        }
    }
    return all + db().queryNames().join(u' ');
}

} // namespace quaverly::test
