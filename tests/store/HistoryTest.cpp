// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/History.h"
#include "store/StoreTest.h"
#include "support/Death.h"
#include "support/Limits.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

const QStringList LoggedTables = {u"tblContacts"_s,       u"tblCategoryDesc"_s,   u"tblCategoryID"_s,
                                  u"tblPlayListHeader"_s, u"tblPlayListDetail"_s, u"tblSettings"_s};

/** Every value of every logged table, with its type and its row's key. */
QString dumpOf(StoreFixture &store)
{
    dao::Connection file(store.catalogue().DatabaseFile, dao::Connection::Mode::ReadOnly);
    QString dump;
    for (const QString &table : LoggedTables) {
        QByteArray columns = "rowid";
        for (const dao::Field &field : store.db().TableDefs(table))
            columns += " || ' ' || quote(" + dao::quotedName(field.name) + ")";
        dao::Statement rows =
            file.prepare("SELECT " + columns + " FROM " + dao::quotedName(table) + " ORDER BY rowid");
        while (rows.step())
            dump += table + u' ' + rows.text(0) + u'\n';
    }
    return dump;
}

void change(dao::Database &db, const QString &sql)
{
    db.Execute(sql);
    db.endChange();
}

dao::History historyOf(StoreFixture &store)
{
    return dao::History(store.db());
}

/** One change of one or several statements, over all tables and every way to write. */
void randomChange(StoreFixture &store, QRandomGenerator &random)
{
    const auto below = [&](int end) { return QString::number(random.bounded(1, end)); };
    const QStringList statements = {
        u"Insert Into tblContacts (SongName, Genre, PathName, FileName) Values ('n%1', 'g', '/m/', 'f' & %1)"_s,
        u"Update tblContacts Set Genre = 'G', Year = %1 Where RecordID < %1"_s,
        u"Update tblContacts Set PathName = FileName, FileName = PathName Where RecordID = %1"_s,
        u"Update tblContacts Set Genre = Null Where RecordID > %1"_s,
        u"Delete * From tblContacts Where RecordID = %1"_s,
        u"Insert Into tblCategoryDesc (CategoryDesc) Values ('c%1')"_s,
        u"Insert Into tblCategoryID (ID, CategoryNumber) Values (%1, %1)"_s,
        u"Delete * From tblCategoryID Where ID > %1"_s,
        u"Insert Into tblPlayListDetail (ListID, ListTrackID, SongTitle) Values (1, %1, 't')"_s,
        u"Update tblPlayListDetail Set ListTrackID = ListTrackID + 1 Where ListTrackID >= %1"_s,
        u"Delete * From tblPlayListDetail Where ListTrackID < %1"_s,
        u"Insert Into tblSettings (Type, Name, Setting8) Values ('NOTE', 'n%1', 'text')"_s,
        u"Update tblSettings Set Setting8 = 'text %1' Where Type = 'NOTE'"_s,
        u"Update tblContacts Set Selected = 'x' Where RecordID = %1"_s,
    };
    for (int i = random.bounded(1, 6); i > 0; --i) {
        const QString sql = statements[random.bounded(statements.size())];
        try {
            store.db().Execute(sql.contains(u"%1"_s) ? sql.arg(below(12)) : sql);
        } catch (const dao::DaoError &error) {
            EXPECT_EQ(error.number, dao::DuplicateKey);
        }
    }
    store.db().endChange();
}

} // namespace

TEST(History, WalksBackAndForthThroughAnyChanges)
{
    const quint32 seed = QRandomGenerator::global()->generate();
    SCOPED_TRACE("seed " + std::to_string(seed));
    QRandomGenerator random(seed);
    StoreFixture store;
    change(store.db(), u"Update tblContacts Set Selected = ' '"_s);
    EXPECT_FALSE(historyOf(store).undoable()) << "marks are no change";

    QStringList dumps = {dumpOf(store)};
    while (dumps.size() < 40) {
        randomChange(store, random);
        if (const auto newest = historyOf(store).undoable();
            newest && historyOf(store).changes().size() == std::size_t(dumps.size()))
            dumps.append(dumpOf(store));
    }
    store.db().workspace().settle();
    const QString marks = u"Update tblContacts Set Selected = ' '"_s;
    for (int round = 0; round < 2; ++round) {
        for (qsizetype i = dumps.size() - 1; i > 0; --i) {
            ASSERT_TRUE(historyOf(store).takeBack(*historyOf(store).undoable()).empty()) << i;
            store.db().Execute(marks);
            ASSERT_EQ(dumpOf(store), QString(dumps[i - 1]).replace(u"'x'"_s, u"' '"_s)) << i;
        }
        EXPECT_FALSE(historyOf(store).undoable());
        store.reopen();
        for (qsizetype i = 1; i < dumps.size(); ++i) {
            ASSERT_TRUE(historyOf(store).makeAgain(*historyOf(store).redoable()).empty()) << i;
            ASSERT_EQ(dumpOf(store), QString(dumps[i]).replace(u"'x'"_s, u"' '"_s)) << i;
        }
        EXPECT_FALSE(historyOf(store).redoable());
    }
    EXPECT_EQ(integrityOf(store.catalogue().DatabaseFile), u"ok"_s);
}

TEST(History, TakesManyRowsBackAtOnceOrOneByOneWhereOneStandsInTheWay)
{
    StoreFixture store;
    {
        dao::BulkLoad load(store.db(), u"tblContacts"_s);
        for (int i = 0; i < 2000; ++i)
            store.addSong(Song(u"Song %1"_s.arg(i)).file(u"/m/"_s, QString::number(i)));
    }
    store.db().endChange();
    QStringList dumps = {dumpOf(store)};
    for (const QString &sql :
         {u"Update tblContacts Set Genre = 'Pop', Year = RecordID, TrackNum = 1.5"_s,
          u"Update tblContacts Set FileName = PathName, PathName = FileName"_s,
          u"Delete * From tblContacts Where RecordID > 100"_s,
          u"Insert Into tblCategoryID (ID, CategoryNumber) Select RecordID, 7 From tblContacts"_s,
          u"Delete * From tblContacts"_s}) {
        change(store.db(), sql);
        dumps.append(dumpOf(store));
    }
    const auto walk = [&](bool back) {
        for (qsizetype i = 1; i < dumps.size(); ++i) {
            const auto left = back ? historyOf(store).takeBack(*historyOf(store).undoable())
                                   : historyOf(store).makeAgain(*historyOf(store).redoable());
            EXPECT_TRUE(left.empty());
            EXPECT_EQ(dumpOf(store), dumps[back ? dumps.size() - 1 - i : i]) << i << back;
        }
    };
    walk(true);
    walk(false);
    walk(true);
    EXPECT_EQ(integrityOf(store.catalogue().DatabaseFile), u"ok"_s);
    EXPECT_TRUE(historyOf(store).makeAgain(*historyOf(store).redoable()).empty());
    {
        dao::Connection other(store.catalogue().DatabaseFile, dao::Connection::Mode::ReadWrite);
        other.execute("UPDATE tblContacts SET Genre = 'pop' WHERE RecordID = 1234");
    }
    const QString before = dumpOf(store);
    EXPECT_EQ(historyOf(store).takeBack(*historyOf(store).undoable()).size(), 1U);
    EXPECT_EQ(dumpOf(store), before);
    EXPECT_EQ(
        historyOf(store).takeBack(*historyOf(store).undoable(), dao::History::Conflicts::LeaveOut).size(),
        1U);
    EXPECT_EQ(store.column(u"Select Count(*) From tblContacts Where Genre Is Null"_s),
              QStringList(u"1999"_s));
}

TEST(History, TellsOfEachChangeAndForgetsWhatANewOneEnds)
{
    StoreFixture store;
    store.db().describeChange(u"Add Sun"_s);
    const qint64 sun = store.addSong(Song(u"Sun"_s, u"Abba"_s));
    store.db().endChange();
    store.db().describeChange(u"Edit"_s);
    store.db().describeChange(u"a later sentence"_s);
    store.db().Execute(u"Update tblContacts Set Genre = 'Pop', Year = '1970'"_s);
    store.db().Execute(u"Update tblContacts Set Genre = 'pop'"_s);
    store.db().endChange();
    {
        const dao::Transaction undone(store.db().workspace());
        store.db().Execute(u"Delete * From tblContacts"_s);
    }
    store.db().endChange();

    const auto changes = historyOf(store).changes();
    ASSERT_EQ(changes.size(), 2U) << "what was rolled back is no change";
    EXPECT_EQ(changes[0].sentence, u"Edit"_s);
    EXPECT_EQ(changes[0].rows, 1);
    ASSERT_EQ(dao::History::valueCount(changes[0]), 3) << "a letter's case is a change";
    const auto value = historyOf(store).valueAt(changes[0], 2);
    EXPECT_EQ(value->field + u' ' + value->before.toString() + u' ' + value->after.toString(),
              u"Genre Pop pop"_s);
    EXPECT_EQ(historyOf(store).valueAt(changes[1], 0)->kind, dao::ChangedValue::Kind::RowAdded);
    EXPECT_EQ(historyOf(store).rowTexts(changes[1], 0, {u"Artist"_s, u"SongName"_s}),
              (QStringList{u"Abba"_s, u"Sun"_s}));

    EXPECT_EQ(errorOf([&] { historyOf(store).takeBack(changes[1]); }), dao::InvalidOperation);
    EXPECT_TRUE(historyOf(store).takeBack(changes[0]).empty());
    EXPECT_EQ(historyOf(store).redoable()->id, changes[0].id);
    change(store.db(), u"Update tblContacts Set Genre = 'Rock'"_s);
    EXPECT_FALSE(historyOf(store).redoable());
    EXPECT_EQ(historyOf(store).changes().size(), 2U);
    EXPECT_EQ(store.songValue(sun, u"Genre"_s), u"Rock"_s);
}

TEST(History, LeavesAloneWhatIsNotAsItWasLeft)
{
    StoreFixture store;
    for (int i = 0; i < 3; ++i)
        store.addSong(Song(u"Song"_s).file(u"/m/"_s, QString::number(i)));
    store.db().endChange();
    change(store.db(), u"Update tblContacts Set Genre = 'new'"_s);
    {
        dao::Connection other(store.catalogue().DatabaseFile, dao::Connection::Mode::ReadWrite);
        other.execute("UPDATE tblContacts SET Genre = 'New' WHERE RecordID = 2");
    }
    const auto refused = historyOf(store).takeBack(*historyOf(store).undoable());
    ASSERT_EQ(refused.size(), 1U);
    EXPECT_EQ(refused[0].key, 2);
    EXPECT_EQ(store.column(u"Select Genre From tblContacts"_s), (QStringList{u"new"_s, u"New"_s, u"new"_s}));
    EXPECT_EQ(
        historyOf(store).takeBack(*historyOf(store).undoable(), dao::History::Conflicts::LeaveOut).size(),
        1U);
    EXPECT_EQ(store.column(u"Select Genre From tblContacts"_s), (QStringList{{}, u"New"_s, {}}));
}

TEST(History, KeepsABulkLoadAsOneRunAndAUnloggedDeleteAsASentence)
{
    StoreFixture store;
    store.addSong(Song(u"before"_s));
    store.db().endChange();
    const QString before = dumpOf(store);
    {
        dao::BulkLoad load(store.db(), u"tblContacts"_s);
        for (int i = 0; i < 2500; ++i)
            store.addSong(Song(u"Song %1"_s.arg(i)).file(u"/m/"_s, QString::number(i)));
    }
    store.db().endChange();
    const QString after = dumpOf(store);
    const auto scan = historyOf(store).undoable();
    EXPECT_EQ(scan->rows, 2500);
    EXPECT_EQ(dao::History::valueCount(*scan), 1);
    EXPECT_TRUE(historyOf(store).takeBack(*scan).empty());
    EXPECT_EQ(dumpOf(store), before);
    EXPECT_TRUE(historyOf(store).makeAgain(*scan).empty());
    EXPECT_EQ(dumpOf(store), after);

    // Compacting keeps the journal and the keys that it names.
    store.db().Close();
    store.close();
    store.engine().CompactDatabase(store.catalogue().DatabaseFile, store.path(u"compact.mdb"_s));
    QFile::remove(store.catalogue().DatabaseFile);
    QFile::rename(store.path(u"compact.mdb"_s), store.catalogue().DatabaseFile);
    store.open();
    EXPECT_TRUE(historyOf(store).takeBack(*historyOf(store).undoable()).empty());
    EXPECT_EQ(dumpOf(store), before);

    store.db().ExecuteUnlogged(u"Delete * From tblContacts"_s, u"Delete all records"_s);
    EXPECT_FALSE(historyOf(store).undoable());
    EXPECT_EQ(historyOf(store).changes().front().sentence, u"Delete all records"_s);
}

TEST(History, KilledOrFullAtAnyPointItIsWholeOrNotAtAll)
{
    for (int point = 1;; point += 4) {
        SCOPED_TRACE(point);
        StoreFixture store;
        for (int i = 0; i < 20; ++i)
            store.addSong(Song(u"Song"_s).file(u"/m/"_s, QString::number(i)));
        store.db().endChange();
        const QString before = dumpOf(store);
        store.close();
        const bool died = diesAt(
            point, [&] { store.open(); },
            [&] {
                change(store.db(), u"Update tblContacts Set Genre = 'new', Notes = FileName"_s);
                historyOf(store).takeBack(*historyOf(store).undoable());
            });
        store.open();
        if (dumpOf(store) != before) {
            EXPECT_TRUE(historyOf(store).takeBack(*historyOf(store).undoable()).empty());
        }
        EXPECT_EQ(dumpOf(store), before);
        EXPECT_LE(historyOf(store).changes().size(), 2U);
        if (!died)
            break;
    }
    StoreFixture store;
    for (int i = 0; i < 2000; ++i)
        store.addSong(Song(u"Song"_s).with(u"Notes"_s, u"note "_s.repeated(50)));
    store.db().endChange();
    const QString before = dumpOf(store);
    {
        const FullDisk full(QFileInfo(store.catalogue().DatabaseFile).size() + 300'000);
        EXPECT_EQ(errorOf([&] { change(store.db(), u"Update tblContacts Set Notes = Notes & 'x'"_s); }),
                  dao::DiskFull);
    }
    EXPECT_EQ(dumpOf(store), before);
    EXPECT_EQ(historyOf(store).changes().size(), 1U);
}

TEST(History, ADamagedJournalLeavesTheCatalogueAlone)
{
    StoreFixture store;
    store.addSong(Song(u"Sun"_s));
    store.db().endChange();
    store.close();
    {
        dao::Connection other(store.catalogue().DatabaseFile, dao::Connection::Mode::ReadWrite);
        other.execute("DROP TABLE sysLog; CREATE VIEW sysLog AS SELECT 1 AS One");
    }
    store.open();
    store.addSong(Song(u"Moon"_s));
    store.db().endChange();
    EXPECT_EQ(errorOf([&] { static_cast<void>(historyOf(store).changes()); }), dao::CannotOpenFile);
    store.reopen();
    EXPECT_EQ(store.column(u"Select SongName From tblContacts"_s), (QStringList{u"Sun"_s, u"Moon"_s}));
}

} // namespace quaverly::test
