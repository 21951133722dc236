// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/StoreTest.h"
#include "support/Limits.h"

#include <QEventLoop>
#include <QTimer>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

qint64 songsIn(dao::Database &db)
{
    return firstFields(db, u"Select Count(*) From tblContacts"_s).toLongLong();
}

void addSongs(dao::Database &db, int first, int count)
{
    const auto rows = db.OpenRecordset(u"tblContacts"_s);
    for (int i = first; i < first + count; ++i) {
        rows->AddNew();
        rows->setValue(u"SongName"_s, u"Song %1"_s.arg(i));
        rows->setValue(u"PathName"_s, u"/m/%1/"_s.arg(i / 10));
        rows->setValue(u"FileName"_s, u"%1.mp3"_s.arg(i));
        rows->setValue(u"Notes"_s, QString::number(i).repeated(400));
        rows->Update();
    }
}

} // namespace

TEST(Transactions, NestAndRollBackTheirOwnPartOnly)
{
    StoreFixture store;
    dao::Workspace &workspace = store.db().workspace();
    EXPECT_EQ(errorOf([&] { workspace.CommitTrans(); }), dao::NoTransaction);
    EXPECT_EQ(errorOf([&] { workspace.Rollback(); }), dao::NoTransaction);
    workspace.BeginTrans();
    store.addSong(Song(u"outer"_s));
    {
        const dao::Transaction undone(workspace);
        store.addSong(Song(u"inner"_s));
        EXPECT_EQ(songsIn(store.db()), 2);
    }
    {
        dao::Transaction kept(workspace);
        store.addSong(Song(u"kept"_s));
        EXPECT_EQ(errorOf([&] { store.db().Execute(u"Update tblContacts Set RecordID = 1"_s); }),
                  dao::DuplicateKey);
        kept.commit();
    }
    EXPECT_EQ(workspace.depth(), 1);
    workspace.CommitTrans();
    EXPECT_EQ(store.column(u"Select SongName From tblContacts"_s), (QStringList{u"outer"_s, u"kept"_s}));
    workspace.BeginTrans();
    store.db().Execute(u"Delete * From tblContacts"_s);
    workspace.Rollback();
    store.reopen();
    EXPECT_EQ(songsIn(store.db()), 2);
}

TEST(Transactions, APendingOneIsSettledByTheEventLoop)
{
    StoreFixture store;
    dao::DBEngine engine(catalogueSchema());
    const auto other = engine.OpenDatabase(store.catalogue().DatabaseFile);
    store.db().workspace().BeginTrans();
    store.db().workspace().BeginTrans();
    store.addSong(Song(u"pending"_s));
    EXPECT_EQ(songsIn(*other), 0);
    QEventLoop loop;
    QTimer poll;
    int polls = 0;
    QObject::connect(&poll, &QTimer::timeout, &loop, [&] {
        if (songsIn(*other) == 1 || ++polls == 5000)
            loop.quit();
    });
    poll.start(1);
    loop.exec();
    EXPECT_EQ(songsIn(*other), 1);
    EXPECT_EQ(store.db().workspace().depth(), 0);
    EXPECT_EQ(errorOf([&] { store.db().workspace().Rollback(); }), dao::NoTransaction);
}

TEST(Transactions, AnotherWriterLocksForAWhileAndNothingIsLost)
{
    StoreFixture store;
    store.addSong(Song(u"first"_s));
    dao::DBEngine engine(catalogueSchema());
    const auto other = engine.OpenDatabase(store.catalogue().DatabaseFile);
    engine.Workspaces(0).BeginTrans();
    other->Execute(u"Update tblContacts Set Genre = 'theirs'"_s);
    const auto rows = store.db().OpenRecordset(u"Select * From tblContacts"_s);
    rows->Edit();
    rows->setValue(u"Artist"_s, u"mine"_s);
    EXPECT_EQ(errorOf([&] { rows->Update(); }), dao::Locked);
    EXPECT_TRUE(rows->editing());
    EXPECT_EQ(rows->text(u"Artist"_s), u"mine"_s) << "what was typed is still there";
    engine.Workspaces(0).Rollback();
    rows->Update();
    store.reopen();
    EXPECT_EQ(store.songValue(1, u"Artist"_s), u"mine"_s);
    EXPECT_TRUE(store.songValue(1, u"Genre"_s).isNull());
}

TEST(Transactions, ABulkLoadLeavesAllRowsAndIndexes)
{
    StoreFixture store;
    {
        dao::BulkLoad load(store.db(), u"tblContacts"_s);
        for (int folder = 0; folder < 250; ++folder) {
            store.db().workspace().BeginTrans();
            addSongs(store.db(), folder * 10, 10);
            if (folder % 50 == 49)
                store.db().workspace().Rollback();
            else
                store.db().workspace().CommitTrans();
        }
        store.catalogue().ContactsTable->setIndex(u"PathFile"_s);
        EXPECT_EQ(errorOf([&] { addSongs(store.db(), 7, 1); }), dao::DuplicateKey);
        EXPECT_EQ(songsIn(store.db()), 2450);
        while (load.finishStep()) {
        }
    }
    store.catalogue().ContactsTable->setIndex(u"Genre"_s);
    store.close();
    EXPECT_FALSE(QFileInfo::exists(store.catalogue().DatabaseFile + u"-wal"_s));
    EXPECT_EQ(integrityOf(store.catalogue().DatabaseFile), u"ok"_s);
    store.open();
    EXPECT_EQ(songsIn(store.db()), 2450);
}

TEST(Transactions, AFullDiskStopsAWriteAndLosesNothingThatWasCommitted)
{
    StoreFixture store;
    const QString path = store.catalogue().DatabaseFile;
    for (const bool bulk : {false, true}) {
        int added = 0;
        {
            const FullDisk disk(3'000'000);
            const auto load = bulk ? std::make_unique<dao::BulkLoad>(store.db(), u"tblContacts"_s) : nullptr;
            EXPECT_EQ(errorOf([&] {
                          for (; added < 5000; ++added)
                              addSongs(store.db(), (bulk ? 5000 : 0) + added, 1);
                      }),
                      dao::DiskFull);
            EXPECT_GT(songsIn(store.db()), 0) << "it still reads";
        }
        store.close();
        EXPECT_GT(added, 5);
        EXPECT_EQ(integrityOf(path), u"ok"_s);
        store.open();
        if (!bulk) {
            EXPECT_EQ(songsIn(store.db()), added);
        }
        EXPECT_EQ(store.column(u"Select RecordID From tblContacts Where Len(Notes) Mod 400 <> 0"_s),
                  QStringList());
        addSongs(store.db(), bulk ? 20'000 : 10'000, 1);
    }
    store.close();
    const QString copy = store.path(u"copy.mdb"_s);
    const FullDisk disk(100'000);
    EXPECT_EQ(errorOf([&] { store.engine().CompactDatabase(path, copy); }), dao::DiskFull);
    EXPECT_FALSE(QFileInfo::exists(copy));
}

// A child adds, edits and reports; killed anywhere, what it reported is there.
TEST(Transactions, KilledAtAnyPointTheCatalogueOpensWithAllThatWasCommitted)
{
    constexpr int Points = 26;
    for (int point = 0; point < Points; ++point) {
        const bool bulk = point % 2 == 1;
        SCOPED_TRACE(point);
        StoreFixture store;
        store.close();
        int ends[2] = {};
        ASSERT_EQ(::pipe(ends), 0);
        const pid_t child = ::fork();
        if (child == 0) {
            store.open();
            const auto load = bulk ? std::make_unique<dao::BulkLoad>(store.db(), u"tblContacts"_s) : nullptr;
            for (int i = 0;; ++i) {
                dao::Transaction folder(store.db().workspace());
                addSongs(store.db(), i * 10, bulk ? 10 : 1);
                if (!bulk)
                    store.db().Execute(
                        u"Update tblContacts Set Genre = 'g' & RecordID Where RecordID = %1"_s.arg(i + 1));
                folder.commit();
                if (i == 400)
                    while (load && load->finishStep()) {
                    }
                if (::write(ends[1], &i, sizeof i) != sizeof i)
                    ::_exit(1);
            }
        }
        ::close(ends[1]);
        int done = -1;
        for (int wanted = bulk ? point * point : 1 + point * 3; done < wanted;)
            ASSERT_EQ(::read(ends[0], &done, sizeof done), static_cast<ssize_t>(sizeof done));
        ::kill(child, SIGKILL);
        while (::read(ends[0], &done, sizeof done) > 0) {
        }
        ::close(ends[0]);
        ::waitpid(child, nullptr, 0);

        store.open();
        const qint64 songs = songsIn(store.db());
        if (bulk) {
            EXPECT_GE(songs, (done + 1) * 10 - 1010);
            EXPECT_EQ(songs % 10, 0) << "a folder is there whole or not at all";
        } else {
            EXPECT_GE(songs, done + 1);
            EXPECT_EQ(store.valueOf(u"Select Count(*) From tblContacts Where Genre = 'g' & RecordID"_s),
                      songs);
        }
        EXPECT_EQ(
            store.column(u"Select RecordID From tblContacts Where Len(Notes) Mod 400 <> 0 Or Notes Not Like "
                         "Val(FileName) & '*' Or SongName <> 'Song ' & Val(FileName)"_s),
            QStringList());
        store.catalogue().ContactsTable->setIndex(u"Genre"_s);
        store.close();
        EXPECT_EQ(integrityOf(store.catalogue().DatabaseFile), u"ok"_s);
    }
}

} // namespace quaverly::test
