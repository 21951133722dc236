// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/StoreTest.h"

using namespace Qt::StringLiterals;

namespace quaverly::test {

TEST_F(SongCatalogue, EveryComposedStatementGivesItsRowsAsDynasetAndAsSnapshot)
{
    for (const QStringList &query : table(u"queries.tsv"_s, 2)) {
        const QString sql = query[0];
        SCOPED_TRACE(sql.toStdString());
        try {
            const QString dynaset = firstFields(db(), sql);
            EXPECT_EQ(firstFields(db(), sql, dao::RecordsetType::Snapshot), dynaset);
            EXPECT_EQ(dynaset, query[1]);
        } catch (const dao::DaoError &error) {
            ADD_FAILURE() << error.number << ' ' << error.what();
        }
    }
}

TEST_F(SongCatalogue, EveryActionChangesItsRowsAndIsUndoneByARollback)
{
    const QString before = everything();
    for (const QStringList &action : table(u"actions.tsv"_s, 4)) {
        SCOPED_TRACE(action[0].toStdString());
        dao::Transaction transaction(db().workspace());
        db().Execute(action[0]);
        EXPECT_EQ(db().RecordsAffected(), action[1].toInt());
        EXPECT_EQ(keys(action[2]), action[3]);
    }
    EXPECT_EQ(everything(), before);
}

TEST_F(SongCatalogue, ACategoryOrAJoinRepeatsNoSongUnlessItIsAskedFor)
{
    EXPECT_EQ(open(u"Select * from qryContacts"_s)->RecordCount(), 12);
    EXPECT_EQ(open(u"Select Artist, SongName from qryContacts "_s)->RecordCount(), 11);
    EXPECT_EQ(open(u"Select SongName, CategoryNumber from qryContacts"_s)->RecordCount(), 12);
    EXPECT_EQ(open(u"Select distinctrow * from qryContacts"_s)->RecordCount(), 11);
    EXPECT_EQ(keys(u"Select Count(*) as n from qryContacts"_s), u"11"_s);
    EXPECT_EQ(keys(u"Select Count(*) as n from qryContacts Where CategoryNumber > 0"_s), u"5"_s);
}

TEST_F(SongCatalogue, NamesAreFoundInAnyCaseAndNextToEachOther)
{
    const auto rows =
        open(u"select ARTIST, [bitRate], tblcontacts.songname from TBLCONTACTS where recordid=1"_s);
    EXPECT_EQ(rows->text(u"artist"_s), u"Beyoncé"_s);
    EXPECT_EQ(rows->text(u"SONGNAME"_s), u"Été"_s);
    EXPECT_TRUE(rows->value(u"BitRate"_s).isNull());
    EXPECT_EQ(rows->Fields()[1].name, u"Bitrate"_s);
    const auto both = open(u"Select * from qryShowDuplicatesToBeDeleted"_s);
    EXPECT_EQ(both->text(u"FirstRecordID"_s), u"1"_s);
    EXPECT_EQ(keys(u"Select FirstRecordID, tblContacts!SongName from qryDuplicateSongs Order By RecordID"_s),
              u"1|1|1"_s);
}

} // namespace quaverly::test
