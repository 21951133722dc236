// SPDX-License-Identifier: GPL-3.0-or-later
// A list of a whole large table opens with its first rows; the others come when they are needed.
#include "store/StoreTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

constexpr int Songs = 2500;

class LargeList : public ::testing::Test
{
protected:
    LargeList()
    {
        dao::Transaction transaction(db().workspace());
        const auto rows = db().OpenRecordset(u"tblContacts"_s);
        for (int i = 0; i < Songs; ++i) {
            rows->AddNew();
            rows->setValue(u"SongName"_s, u"%1"_s.arg(i * 7919 % Songs, 5, 10, QChar(u'0')));
            rows->Update();
        }
        transaction.commit();
    }

    dao::Database &db() { return m_store.db(); }
    std::unique_ptr<dao::Recordset> list()
    {
        return db().OpenRecordset(u"Select * From tblContacts Order By SongName"_s,
                                  dao::RecordsetType::Dynaset);
    }
    static QList<qint64> keysOf(dao::Recordset &rows)
    {
        QList<qint64> keys;
        for (qint64 i = 0; i < rows.RecordCount(); ++i)
            keys.append(rows.bookmarkAt(i).key);
        return keys;
    }
    /** How many pages of the log a reader keeps from going into the file. */
    int pagesHeldBack()
    {
        dao::Connection connection(m_store.catalogue().DatabaseFile, dao::Connection::Mode::ReadWrite);
        dao::Statement state = connection.prepare("PRAGMA wal_checkpoint(PASSIVE)");
        return state.step() ? static_cast<int>(state.integer(1) - state.integer(2)) : -1;
    }

    StoreFixture m_store;
};

} // namespace

TEST_F(LargeList, IsThatOfItsOpeningWhateverChangesBeforeItIsRead)
{
    dao::DBEngine engine(catalogueSchema());
    const auto other = engine.OpenDatabase(m_store.catalogue().DatabaseFile);
    const std::pair<const char *, std::function<void()>> changes[] = {
        {"a statement deletes",
         [&] { db().Execute(u"Delete * From tblContacts Where SongName Between '02000' And '02050'"_s); }},
        {"a song is added", [&] { m_store.addSong(Song(u"02100x"_s)); }},
        {"a song goes elsewhere in the order",
         [&] { db().Execute(u"Update tblContacts Set SongName = 'a' Where SongName = '02400'"_s); }},
        {"a deletion is taken back",
         [&] {
             const dao::Transaction transaction(db().workspace());
             db().Execute(u"Delete * From tblContacts Where SongName > '01500'"_s);
         }},
        {"an index is built anew", [&] { dao::BulkLoad(db(), u"tblContacts"_s).finishStep(); }},
        {"another program deletes",
         [&] { other->Execute(u"Delete * From tblContacts Where SongName Between '02060' And '02070'"_s); }},
        {"both write",
         [&] {
             other->Execute(u"Delete * From tblContacts Where SongName = '02200'"_s);
             m_store.addSong(Song(u"02201x"_s));
         }},
    };
    for (const auto &[what, change] : changes) {
        const QList<qint64> before = keysOf(*list());
        const auto rows = list();
        EXPECT_EQ(rows->RecordCount(), before.size()) << what;
        EXPECT_EQ(rows->valueAt(0, 0), before.front()) << what;
        change();
        EXPECT_EQ(rows->RecordCount(), before.size()) << what;
        EXPECT_EQ(keysOf(*rows), before) << what;
    }
    EXPECT_EQ(list()->RecordCount(), Songs - 51 + 1 - 11 - 1 + 1);
}

TEST_F(LargeList, IsWholeForWhoeverGoesBeyondItsFirstRows)
{
    const QList<qint64> keys = keysOf(*list());
    const qint64 last = Songs - 1;
    const auto far = list();
    EXPECT_EQ(far->valueAt(last, far->fieldIndex(u"SongName"_s)), u"02499"_s);
    const auto moved = list();
    moved->MoveLast();
    EXPECT_EQ(moved->text(u"SongName"_s), u"02499"_s);
    const auto marked = list();
    marked->setBookmark({keys[2000]});
    EXPECT_EQ(marked->AbsolutePosition(), 2000);
    EXPECT_EQ(marked->positionOf({keys[5]}), 5);
    EXPECT_EQ(marked->positionOf({99'999}), -1);
    const auto found = list();
    found->FindFirst(u"SongName like '0222*'"_s);
    EXPECT_EQ(found->AbsolutePosition(), 2220);
    const auto changed = list();
    changed->Delete();
    EXPECT_EQ(changed->RecordCount(), last);
    changed->AddNew();
    changed->setValue(u"SongName"_s, u"0"_s);
    changed->Update();
    EXPECT_EQ(changed->bookmarkAt(last), changed->LastModified()) << "a new row stands at the end";
    EXPECT_EQ(keysOf(*changed).first(last), keys.sliced(1));
}

TEST_F(LargeList, IsReadToItsEndOnceNothingElseWaits)
{
    const auto rows = list();
    {
        dao::DBEngine engine(catalogueSchema());
        engine.OpenDatabase(m_store.catalogue().DatabaseFile)
            ->Execute(u"Update tblContacts Set Genre = 'x'"_s);
    }
    EXPECT_GT(pagesHeldBack(), 0) << "the list stands at the moment of its opening";
    EXPECT_TRUE(QTest::qWaitFor([&] { return pagesHeldBack() == 0; }));
    EXPECT_EQ(rows->RecordCount(), Songs);
}

TEST_F(LargeList, MayBeClosedBeforeItIsRead)
{
    const auto rows = list();
    rows->Close();
    EXPECT_NE(errorOf([&] { rows->MoveLast(); }), 0);
    list().reset();
    m_store.close();
    EXPECT_FALSE(QFile::exists(m_store.catalogue().DatabaseFile + u"-wal"_s));
}

} // namespace quaverly::test
