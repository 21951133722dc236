// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/StoreTest.h"
#include "support/Limits.h"

#include <QRandomGenerator>
#include <QtEndian>

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

class CatalogueFiles : public ::testing::Test
{
protected:
    int opening(const QString &file, const QString &connect = {})
    {
        return errorOf([&] { static_cast<void>(store.engine().OpenDatabase(file, connect)); });
    }
    int repairing(const QString &file)
    {
        return errorOf([&] { static_cast<void>(store.engine().RepairDatabase(file)); });
    }
    QStringList files() { return QDir(store.folder()).entryList(QDir::Files, QDir::Name); }

    StoreFixture store;
    QString path = store.catalogue().DatabaseFile;
    dao::Schema schema = catalogueSchema();
};

/** A schema of one table; the second version has one more column, filled from the first. */
dao::Schema smallSchema(int version)
{
    dao::Schema schema;
    schema.applicationId = 77;
    schema.migrations = {u"CREATE TABLE t (a TEXT(9) COLLATE BINARY);"_s};
    schema.indexes = {u"CREATE INDEX IF NOT EXISTS \"t.a\" ON t (a)"_s};
    if (version > 1)
        schema.migrations.append(u"ALTER TABLE t ADD COLUMN b INTEGER; UPDATE t SET b = length(a);"_s);
    return schema;
}

} // namespace

TEST_F(CatalogueFiles, WhatIsNoCatalogueIsToldApartAndNeverWrittenTo)
{
    store.addSong(Song(u"x"_s));
    store.close();
    const QByteArray sound = bytesOf(path);
    dao::Schema newer = schema;
    newer.migrations.append(u"CREATE TABLE more (x);"_s);
    dao::Schema foreign = smallSchema(1);
    dao::DBEngine(newer).CreateEmpty(store.path(u"newer"_s));
    dao::DBEngine(foreign).CreateEmpty(store.path(u"foreign"_s));
    QByteArray badPage = sound;
    badPage.replace(100, 900, QByteArray(900, '\x5a'));
    const std::tuple<const char *, QByteArray, int> cases[] = {
        {"empty", "", dao::UnrecognisedFormat},
        {"text", "Song,Artist\n", dao::UnrecognisedFormat},
        {"jet", QByteArray("\0\1\0\0Standard Jet DB\0", 20) + QByteArray(5000, 0), dao::UnrecognisedFormat},
        {"newer", {}, dao::UnrecognisedFormat},
        {"foreign", {}, dao::UnrecognisedFormat},
        {"header", sound.left(60), dao::CannotOpenFile},
        {"schema", badPage, dao::CannotOpenFile},
    };
    for (const auto &[name, bytes, number] : cases) {
        SCOPED_TRACE(name);
        const QString file = store.path(QString::fromLatin1(name));
        if (!bytes.isNull())
            writeFile(file, bytes);
        const QByteArray before = bytesOf(file);
        const QStringList folder = files();
        EXPECT_EQ(opening(file), number);
        EXPECT_EQ(repairing(file), number);
        EXPECT_NE(errorOf([&] { store.engine().CompactDatabase(file, file + u".2"_s); }), 0);
        EXPECT_EQ(bytesOf(file), before);
        QFile::remove(file + u".damaged"_s);
        EXPECT_EQ(files(), folder);
    }
    EXPECT_EQ(opening(store.path(u"nowhere"_s)), dao::CatalogueNotFound);
    EXPECT_FALSE(QFileInfo::exists(store.path(u"nowhere"_s)));
    EXPECT_EQ(opening(store.folder()), dao::PathFileAccess);
    EXPECT_EQ(repairing(store.folder()), dao::PathFileAccess);
    EXPECT_EQ(errorOf([&] { store.engine().CreateEmpty(path); }), dao::FileAlreadyExists);
    EXPECT_EQ(errorOf([&] { store.engine().CompactDatabase(path, path); }), dao::FileAlreadyExists);
    EXPECT_EQ(bytesOf(path), sound);
}

TEST_F(CatalogueFiles, WithoutRightsAFileIsReadOrRefusedButNotLost)
{
    store.addSong(Song(u"x"_s));
    store.close();
    const auto readAndWrite = [&] {
        const auto db = store.engine().OpenDatabase(path);
        EXPECT_FALSE(db->Updatable());
        if (firstFields(*db, u"Select SongName From tblContacts"_s) != u"x"_s)
            throw dao::DaoError(1, u"wrong rows"_s);
        db->Execute(u"Delete * From tblContacts"_s);
    };
    const auto open = [&] { static_cast<void>(store.engine().OpenDatabase(path)); };
    const QByteArray before = bytesOf(path);
    {
        const LockedFolder readOnly(path, store.folder(), QFile::ReadOwner);
        EXPECT_EQ(errorOf(readAndWrite), dao::ReadOnly);
        const LockedFolder folder(store.folder(), store.folder());
        EXPECT_EQ(errorOf(readAndWrite), dao::ReadOnly);
        EXPECT_EQ(errorOf([&] { static_cast<void>(store.engine().RepairDatabase(path)); }), dao::ReadOnly);
        EXPECT_EQ(errorOf([&] { store.engine().CompactDatabase(path, path + u"2"_s); }), dao::PathFileAccess);
        EXPECT_EQ(errorOf([&] { store.engine().CreateEmpty(path + u"2"_s); }), dao::PathFileAccess);
        const LockedFolder closed(path, store.folder(), {});
        EXPECT_EQ(errorOf(open), dao::PermissionDenied);
    }
    {
        const LockedFolder closed(path, store.folder(), {});
        EXPECT_EQ(errorOf(open), dao::PermissionDenied);
    }
    EXPECT_EQ(bytesOf(path), before);
    EXPECT_EQ(files(), QStringList{QFileInfo(path).fileName()});
}

TEST_F(CatalogueFiles, AShorterOrDamagedOneIsRepairedAsFarAsItCanBeRead)
{
    constexpr int Songs = 1500;
    store.db().workspace().BeginTrans();
    for (int i = 1; i <= Songs; ++i)
        store.addSong(Song(u"Song %1"_s.arg(i))
                          .file(u"/m/"_s, u"%1.mp3"_s.arg(i))
                          .with(u"Credits"_s, QString::number(i).repeated(100)));
    store.db().workspace().CommitTrans();
    store.db().CreateQueryDef(u"mine"_s, u"Select  * From tblContacts"_s);
    store.db().Execute(u"Insert Into tblSettings (Type, Name) Values ('KEPT', 'yes')"_s);
    store.db().NewPassword({}, u"pw"_s);
    store.close();
    const QByteArray sound = bytesOf(path);
    const int PageSize = qFromBigEndian<quint16>(sound.constData() + 16);
    const int pages = static_cast<int>(sound.size() / PageSize);
    // In front lie the roots of the tables: without them nothing would be found.
    constexpr int RootPages = 60;
    ASSERT_GT(pages, 2 * RootPages);
    QRandomGenerator random(7);
    // Each three times: pages of noise, pages of zeros, pages of which the tail is zeros, a file cut in
    // mid-page.
    for (int round = 0; round < 12; ++round) {
        SCOPED_TRACE(round);
        QByteArray damaged = sound;
        const int kind = round % 4;
        if (kind == 3)
            damaged.truncate(sound.size() * (round + 1) / 16 + 1000);
        for (int hit = kind == 3 ? 6 : 0; hit < 6; ++hit) {
            const int page = random.bounded(RootPages, pages);
            for (int i = kind == 2 ? random.bounded(PageSize) : 0; i < PageSize; ++i)
                damaged[page * PageSize + i] = kind == 0 ? static_cast<char>(random.generate()) : '\0';
        }
        for (const QString &file : files())
            QFile::remove(store.path(file));
        writeFile(path, damaged);
        if (kind == 3) {
            EXPECT_EQ(opening(path), dao::CannotOpenFile);
        }
        const dao::RepairReport report = store.engine().RepairDatabase(path);
        const QStringList all = files();
        ASSERT_EQ(all.size(), 2) << all.join(u' ').toStdString();
        EXPECT_TRUE(all[0].startsWith(u"QVdata damaged "_s)) << all[0].toStdString();
        EXPECT_EQ(report.damagedFile, store.path(all[0]));
        EXPECT_EQ(bytesOf(report.damagedFile), damaged);
        EXPECT_EQ(opening(path), dao::InvalidPassword);
        const auto db = store.engine().OpenDatabase(path, u";pwd=pw"_s);
        EXPECT_EQ(db->QueryDefs(u"mine"_s).SQL, u"Select  * From tblContacts"_s);
        EXPECT_EQ(firstFields(*db, u"Select Name From tblSettings Where Type='KEPT'"_s), u"yes"_s);
        const int saved = firstFields(*db, u"Select Count(*) From tblContacts"_s).toInt();
        EXPECT_GE(saved, kind == 3 ? 1 : Songs - 6 * 40);
        const dao::RepairedTable songs = report.tables.first();
        EXPECT_EQ(songs.table, u"tblContacts"_s);
        EXPECT_EQ(songs.saved, saved);
        EXPECT_EQ(songs.rowsAtMost, Songs);
        EXPECT_EQ(songs.rowsBefore.value_or(Songs), Songs);
        EXPECT_TRUE(kind == 3 || songs.rowsBefore);
        // What is there is what was stored, or what is left of it, and that is said.
        const QString wrong =
            u"Select RecordID From tblContacts Where Nz(SongName) <> 'Song ' & RecordID Or "
            "Nz(FileName) <> RecordID & '.mp3' Or Len(Nz(Credits)) <> 100 * Len(RecordID)"_s;
        const auto spoilt = db->OpenRecordset(wrong);
        EXPECT_LE(spoilt->RecordCount(), songs.cutShort);
        EXPECT_TRUE(kind == 0 || kind == 1 ? songs.cutShort == 0 : songs.cutShort < 20);
        EXPECT_EQ(
            firstFields(*db, u"Select RecordID From tblContacts Where RecordID Not Between 1 And 1500"_s),
            u""_s);
        EXPECT_FALSE(bytesOf(path).contains(QByteArray("Song \0", 6)));
        db->OpenRecordset(u"tblContacts"_s)->setIndex(u"PathFile"_s);
    }
    EXPECT_EQ(integrityOf(path), u"ok"_s);
}

TEST_F(CatalogueFiles, DamageThatShowsWhileReadingIsRememberedForTheNextOpening)
{
    for (int i = 0; i < 400; ++i)
        store.addSong(Song(u"Song %1"_s.arg(i)).with(u"Credits"_s, u"c"_s.repeated(900)));
    store.close();
    QByteArray damaged = bytesOf(path);
    const qsizetype from = damaged.size() / 2;
    damaged.replace(from, damaged.size() - from, QByteArray(damaged.size() - from, '\x11'));
    writeFile(path, damaged);
    const int met = errorOf([&] {
        const auto db = store.engine().OpenDatabase(path);
        static_cast<void>(firstFields(*db, u"Select Sum(Len(Credits)) From tblContacts"_s));
    });
    EXPECT_EQ(met, dao::CannotOpenFile);
    EXPECT_EQ(opening(path), dao::CannotOpenFile);
    static_cast<void>(store.engine().RepairDatabase(path));
    EXPECT_EQ(opening(path), 0);
}

TEST_F(CatalogueFiles, DeletedWhileOpenItRefusesToWriteIntoTheVoid)
{
    store.addSong(Song(u"x"_s));
    QFile::remove(path);
    EXPECT_EQ(errorOf([&] { store.addSong(Song(u"y"_s)); }), dao::CatalogueNotFound);
    EXPECT_EQ(errorOf([&] { store.db().workspace().BeginTrans(); }), dao::CatalogueNotFound);
    EXPECT_EQ(store.db().workspace().depth(), 0);
    EXPECT_EQ(store.column(u"Select SongName From tblContacts"_s), QStringList{u"x"_s});
    store.close();
    EXPECT_EQ(opening(path), dao::CatalogueNotFound);
}

TEST_F(CatalogueFiles, APasswordIsAskedForChangedAndTakenAway)
{
    const QString word = u"Pässwörd;'\"桜"_s;
    EXPECT_EQ(errorOf([&] { store.db().NewPassword(u"x"_s, word); }), 0) << "none is set, so any is right";
    EXPECT_EQ(errorOf([&] { store.db().NewPassword(u"wrong"_s, u"y"_s); }), dao::InvalidPassword);
    store.close();
    EXPECT_FALSE(bytesOf(path).contains(word.toUtf8()));
    for (const QString &connect : {u""_s, u";pwd="_s, u";pwd=x"_s, u";pwd="_s + word.toLower(), word}) {
        EXPECT_EQ(opening(path, connect), dao::InvalidPassword) << connect.toStdString();
    }
    {
        const auto db = store.engine().OpenDatabase(path, u";PWD="_s + word);
        db->NewPassword(word, u"second"_s);
    }
    EXPECT_EQ(opening(path, u";pwd="_s + word), dao::InvalidPassword);
    store.engine().OpenDatabase(path, u";pwd=second"_s)->NewPassword(u"second"_s, {});
    EXPECT_EQ(opening(path), 0);
}

TEST_F(CatalogueFiles, CompactingGivesASmallerCopyWithEverythingInIt)
{
    for (int i = 0; i < 300; ++i)
        store.addSong(Song(u"Song %1"_s.arg(i)).with(u"Credits"_s, u"c"_s.repeated(2000)));
    store.db().Execute(u"Delete From tblContacts Where RecordID > 10"_s);
    store.db().CreateQueryDef(u"mine"_s, u"x"_s);
    store.close();
    const QString copy = store.path(u"it's a copy.mdb"_s);
    store.engine().CompactDatabase(path, copy);
    EXPECT_LT(QFileInfo(copy).size(), QFileInfo(path).size());
    EXPECT_EQ(integrityOf(copy), u"ok"_s);
    const auto db = store.engine().OpenDatabase(copy);
    EXPECT_EQ(firstFields(*db, u"Select Count(*) From tblContacts"_s), u"10"_s);
    EXPECT_EQ(db->QueryDefs(u"mine"_s).SQL, u"x"_s);
    const auto rows = db->OpenRecordset(u"tblContacts"_s);
    rows->AddNew();
    rows->Update();
    EXPECT_EQ(rows->LastModified().key, 301) << "numbers of deleted songs are not given again";
}

TEST_F(CatalogueFiles, AnOlderOneIsBroughtUpToDateOrLeftAsItIs)
{
    const QString old = store.path(u"old"_s);
    dao::DBEngine(smallSchema(1)).CreateEmpty(old);
    dao::DBEngine(smallSchema(1)).OpenDatabase(old)->Execute(u"Insert Into t (a) Values ('four')"_s);
    dao::Schema failing = smallSchema(2);
    failing.migrations[1] += u"INSERT INTO nowhere VALUES (1);"_s;
    EXPECT_NE(errorOf([&] { static_cast<void>(dao::DBEngine(failing).OpenDatabase(old)); }), 0);
    EXPECT_EQ(dao::DBEngine(smallSchema(1)).OpenDatabase(old)->TableDefs(u"t"_s).size(), 1);
    {
        dao::DBEngine engine(smallSchema(2));
        EXPECT_EQ(firstFields(*engine.OpenDatabase(old), u"Select b From t Where a = 'four'"_s), u"4"_s);
    }
    EXPECT_EQ(errorOf([&] { static_cast<void>(dao::DBEngine(smallSchema(1)).OpenDatabase(old)); }),
              dao::UnrecognisedFormat);
}

TEST_F(CatalogueFiles, IndexesOfAnotherCollationAreMadeAnew)
{
    const QString file = store.path(u"indexed"_s);
    dao::DBEngine engine(smallSchema(1));
    engine.CreateEmpty(file);
    {
        const auto db = engine.OpenDatabase(file);
        for (const QString &a : {u"Zoe"_s, u"abba"_s, u"ÉTÉ"_s, u"éclair"_s, u"Z"_s})
            db->Execute(u"Insert Into t (a) Values ('%1')"_s.arg(a));
    }
    // As if the table's order had changed under its index, and the version of the order with it.
    QByteArray bytes = bytesOf(file);
    bytes.replace("COLLATE BINARY", "COLLATE DAO   ");
    const qsizetype version = bytes.indexOf("collation") + 9;
    bytes[version] = bytes[version] == '9' ? '8' : '9';
    writeFile(file, bytes);
    EXPECT_NE(integrityOf(file), u"ok"_s);
    {
        const auto db = engine.OpenDatabase(file);
        EXPECT_EQ(firstFields(*db, u"Select a From t Where a Like 'é*' Order By a"_s), u"éclair|ÉTÉ"_s);
        EXPECT_EQ(firstFields(*db, u"Select a From t Order By a"_s), u"abba|éclair|ÉTÉ|Z|Zoe"_s);
    }
    EXPECT_EQ(integrityOf(file), u"ok"_s);
}

} // namespace quaverly::test
