// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/StoreTest.h"

#include "catalogue/DuplicateQueries.h"

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

QList<QStringList> table(const QString &name, qsizetype fields)
{
    QList<QStringList> rows;
    const QString text = QString::fromUtf8(bytesOf(QStringLiteral(SQL_TABLES) + name));
    for (const QString &line : text.split(u'\n', Qt::SkipEmptyParts)) {
        if (line.startsWith("# "_L1))
            continue;
        rows.append(line.split(u'\t').replaceInStrings(u"(none)"_s, QString()));
        EXPECT_EQ(rows.last().size(), fields) << line.toStdString();
    }
    EXPECT_GT(rows.size(), 10);
    return rows;
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

void SongCatalogue::SetUp()
{
    const QStringList fields = {u"SongName"_s, u"Artist"_s,      u"AlbumName"_s, u"Genre"_s,
                                u"Rating"_s,   u"ID"_s,          u"FileSize"_s,  u"PathName"_s,
                                u"FileName"_s, u"FileSizeNum"_s, u"TrackNum"_s,  u"PurchaseDate"_s};
    for (const QStringList &row : table(u"songs.tsv"_s, fields.size())) {
        Song song({});
        for (qsizetype i = 0; i < row.size(); ++i)
            song.with(fields[i], row[i] == u"(null)"_s ? QVariant() : QVariant(row[i]));
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
    for (const QString &name : {u"tblContacts"_s, u"tblSettings"_s, u"tblCategoryDesc"_s, u"tblCategoryID"_s,
                                u"tblPlayListHeader"_s, u"tblPlayListDetail"_s, u"tblOrphanFileNames"_s}) {
        const auto rows = db().OpenRecordset(name, dao::RecordsetType::Snapshot);
        for (qint64 row = 0; row < rows->RecordCount(); ++row) {
            for (int field = 0; field < rows->Fields().size(); ++field)
                all += rows->valueAt(row, field).toString() + u'\t';
            all += u'\n';
        }
    }
    return all + db().queryNames().join(u' ');
}

} // namespace quaverly::test
