// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/StoreTest.h"

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

struct Query
{
    const char16_t *sql;
    const char16_t *firstFields;
};

/** Statements as the screens compose them, blanks included. */
constexpr Query Queries[] = {
    // The displayed set and its orders.
    {u"Select * from  tblContacts Order By SongName ", u"8|4|2|1|9|11|3|7|10|5|6"},
    {u"Select * from tblContacts Order By SongName, Artist", u"8|4|2|1|9|11|3|7|10|5|6"},
    {u"Select * from  tblContacts Order By tblContacts!AlbumName, tblContacts!TrackNum",
     u"8|5|4|7|11|10|2|1|9|3|6"},
    {u"Select * from  qryContacts Where CategoryNumber = 1  Order By SongName ", u"1|9|3"},
    {u"Select * from  qryContacts Where CategoryNumber = 1  Order By tblContacts!Rating, SongName", u"3|1|9"},
    {u"Select distinctrow * from  qryContacts Where  CategoryNumber = 1  And (Rating like \"[*]*\")  Order "
     u"By "
     "tblContacts!Year, Artist, SongName",
     u"1|9"},
    {u"Select * from  tblContacts Order By Genre, Artist, SongName", u"8|4|7|6|2|1|9|11|3|10|5"},
    {u"Select * from  tblContacts Order By DateUpdated DESC", u"11|10|9|8|7|6|5|4|3|2|1"},
    {u"Select * from  tblContacts Order By FileSizeNum", u"8|5|2|10|3|1|9|11|4|7|6"},
    {u"Select * from  tblContacts Order By PathName, tblContacts!FileName", u"8|4|7|2|9|11|1|3|5|10|6"},
    {u"Select * from  tblContacts Order By PurchaseDate", u"4|6|7|8|9|10|11|3|1|2|5"},
    {u"Select * from  tblContacts Order By TrackNum", u"8|4|5|2|1|9|3|11|7|10|6"},
    {u"Select * from  tblContacts Where Artist = \"O'Neil \"\"Q\"\"\"  Order By SongName ", u"3"},
    {u"Select * from  tblContacts Where Artist = \"BEYONCÉ\"  Order By SongName ", u"1|9|11"},
    {u"Select * from  tblContacts Where Selected = 'x'  Order By SongName ", u"2|6"},
    {u"Select * from  tblContacts Where Genre = \"rock\"  And Selected < 'x'  Order By SongName ", u"3|10|5"},
    {u"Select * from  tblContacts Where Selected < 'x'  Order By SongName ", u"8|4|1|9|11|3|7|10|5"},
    {u"Select * from tblContacts  INNER JOIN tblOrphanFileNames ON tblContacts.RecordID = "
     "tblOrphanFileNames.RecordIdOrphan  Order By SongName ",
     u""},
    {u"Select * from qryContacts  INNER JOIN tblOrphanFileNames ON tblContacts.RecordID = "
     "tblOrphanFileNames.RecordIdOrphan And  CategoryNumber = 1  Order By SongName ",
     u""},
    {u"SELECT DISTINCTROW tblContacts.* FROM tblContacts INNER JOIN tblPlayListDetail ON "
     u"tblContacts.RecordID = "
     "tblPlayListDetail.ContactRecordID  WHERE tblPlayListDetail.ListID=1 order by tblContacts!SongName, "
     "Artist ",
     u"1|3|5"},
    {u"SELECT DISTINCTROW tblContacts.* FROM tblContacts INNER JOIN tblPlayListDetail ON "
     u"tblContacts.RecordID = "
     "tblPlayListDetail.ContactRecordID  WHERE tblPlayListDetail.ListID=2 ",
     u""},
    // Filters and searches.
    {u"Select distinctrow * from  tblContacts Where Rating=\"****\" or Rating = '*****' Order By SongName ",
     u"2|1|9|11"},
    {u"Select distinctrow * from  tblContacts Where SongName like \"*s*\" and Artist like 'zo*' Order By "
     u"SongName ",
     u"10|5"},
    {u"Select distinctrow * from  tblContacts Where AlbumName=\"sun\" And Artist=\"beyoncé\" Order By "
     u"TrackNum ",
     u"1|9"},
    {u"Select DISTINCTROW * from  tblContacts Where SongName Like \"*[[]live]*\" OR Artist Like \"*日*\" OR "
     u"Notes Like "
     "\"*x*\" Order By SongName ",
     u"7"},
    {u"SELECT Genre FROM tblContacts GROUP BY Genre", u"Null||#1|J-Pop|pop|Rock"},
    {u"Select * from tblSettings Where Type='FILTER'", u"FILTER"},
    {u"Select Name from tblSettings Where Type='filter' and Name='four'", u"four"},
    {u"SELECT Sum(FileSizeNum) AS SumOfFileSizeNum FROM  TBLCONTACTS WHERE ARTIST = \"ZOE\"  ", u"1"},
    // Play lists.
    {u"select ListName, ListID from tblPlayListHeader Order by ListName", u"empty|Mix \"A\""},
    {u"select ListID from tblPlayListHeader where ListName=\"mix \"\"a\"\"\"", u"1"},
    {u"select ListTrackID from tblPlayListDetail where ListID=1 Order By ListTrackID DESC ", u"3|2|1"},
    {u"Select SongTitle, ArtistName, ListTrackID From tblPlayListDetail Where ListID=1 Order by ListTrackID",
     u"t1|t2|Null"},
    {u"Select * From tblPlayListDetail where ListID=1 and ListTrackID = 2", u"1"},
    {u"Select FileName From tblPlayListDetail Where ListID=1 AND FileName > ' ' Order by ListTrackID",
     u"/m/5.mp3|/m/1.mp3"},
    {u"Select FileName, ListTrackID From tblPlayListDetail Where ListID=1 And len(FileName) > 0  Order by "
     "ListTrackID",
     u"/m/5.mp3|/m/1.mp3"},
    {u"Select Count(*) as RowCount From  tblContacts Where Selected = 'x' ", u"2"},
    {u"select RecordID from tblContacts Where PathName=\"/m/s/\" and FileName=\"strasse.mp3\"", u"10"},
    {u"select * from tblContacts where SongName=\"ÉTÉ\" And Artist=\"Beyoncé\"", u"1|9|11"},
    {u"SELECT tblPlayListHeader.*, tblPlayListDetail.* FROM tblPlayListHeader INNER JOIN tblPlayListDetail "
     u"ON "
     "tblPlayListHeader.ListID = tblPlayListDetail.ListID Where ListName = \"mix \"\"A\"\"\"",
     u"1|1|1"},
    // Categories.
    {u"Select CategoryDesc, CategoryNumber from tblCategoryDesc Order By CategoryDesc",
     u"élan|Élan \"12\"|Rock"},
    {u"SELECT ID, CategoryDesc, tblCategoryID.CategoryNumber FROM tblCategoryID LEFT JOIN tblCategoryDesc ON "
     "tblCategoryID.CategoryNumber = tblCategoryDesc.CategoryNumber WHERE tblCategoryID.ID=1 Order By "
     "CategoryDesc",
     u"1|1"},
    {u"Select count(*) as CountRecs from tblCategoryID Where CategoryNumber=1", u"3"},
    // Duplicates.
    {u"qryDuplicateSongs", u"1|9|11"},
    {u"qryShowDuplicatesToBeDeleted", u"9|11"},
    {u"qryDuplicateSongsAlbum", u"1|9"},
    {u"qryShowDuplicatesToBeDeletedAlbum", u"9"},
    {u"qtotDupSongNames", u"Beyoncé"},
    {u"Select RecordID, SongName, PathName, FileName, Duration from qryDuplicateSongs Order By Artist, "
     u"SongName ",
     u"1|9|11"},
    {u"Select RecordID, Artist, PathName, FileName from qryShowDuplicatesToBeDeleted Order By PathName, "
     u"FileName ",
     u"9|11"},
    {u"Select FirstRecordID from qryShowDuplicatesToBeDeleted", u"1|1"},
    // Reports, maintenance, pictures and notes.
    {u"Select RecordID, SongName, PathName, FileName, Duration from qryContacts  Order By SongName, Artist ",
     u"8|4|2|1|9|11|3|7|10|5|6"},
    {u"Select RecordID, SongName from qryContacts  Where  CategoryNumber = 2   Order By PathName, FileName ",
     u"1|6"},
    {u"Select count(*) as NumRecs from tblContacts Where Genre is null or Genre=''", u"2"},
    {u"Select count(*) as NumRecs from tblContacts Where PathName like \"*/é/*\" ", u"3"},
    {u"Select count(*) as NumRecs from tblPlayListDetail Where FileName like \"*.MP3*\"", u"2"},
    {u"SELECT ID, SongName from tblContacts Where ID=\"SS\"", u""},
    {u"SELECT RecordID From tblContacts Where PicturePath1=\"a'b\" Or PicturePath2=\"a'b\" Or "
     u"PicturePath8=\"a'b\"",
     u""},
    {u"Select SongName from tblContacts Where PicturePath1=\"\" Or PicturePath2 = \"\" Order By SongName",
     u""},
    {u"Select Type, Name, Setting8 from tblSettings Where Type='NOTE' Order by Name", u""},
};

struct Action
{
    const char16_t *sql;
    int affected;
    const char16_t *check;
    const char16_t *firstFields;
};

constexpr Action Actions[] = {
    {u"Update tblContacts Set Selected=' ' Where Selected='x'", 2,
     u"Select RecordID from tblContacts Where "
     "Selected='x'",
     u""},
    {u"Delete * from tblContacts", 11, u"Select Count(*) as n from tblContacts", u"0"},
    {u"Delete * from tblContacts  Where Genre = \"rock\"  And Selected < 'x' ", 3,
     u"Select RecordID from tblContacts Where Genre='ROCK'", u""},
    {u"Delete * from tblContacts WHERE SELECTED = 'X' ", 2, u"Select Count(*) as n from tblContacts", u"9"},
    {u"Delete  DISTINCTROW tblContacts.* from tblContacts INNER JOIN tblCategoryID on tblContacts.RecordID = "
     "tblCategoryID.ID   Where  CategoryNumber = 1 ",
     3, u"Select RecordID from tblContacts", u"2|4|5|6|7|8|10|11"},
    {u"DELETE FROM tblContacts WHERE RecordID = 5", 1, u"Select RecordID from tblContacts Where RecordID < 7",
     u"1|2|3|4|6"},
    {u"Delete from tblCategoryID Where CategoryNumber=1", 3, u"Select ID from tblCategoryID", u"1|6"},
    {u"Delete from tblPlayListDetail Where ListID=1 and ListTrackID = 2", 1,
     u"Select ListTrackID from tblPlayListDetail", u"1|3"},
    {u"Delete From tblPlayListDetail Where ListID=1 And FileName =\"/M/1.mp3\"", 1,
     u"Select ListTrackID from tblPlayListDetail", u"1|3"},
    {u"Delete from tblPlayListHeader Where ListID=2", 1, u"Select ListName from tblPlayListHeader",
     u"Mix \"A\""},
    {u"Delete * from tblOrphanFileNames", 0, u"Select Count(*) as n from tblOrphanFileNames", u"0"},
    {u"Update tblPlayListDetail Set FileName=\"/n/été 'x'.mp3\" Where FileName=\"/m/1.mp3\"", 1,
     u"Select FileName from tblPlayListDetail Where ListTrackID=2", u"/n/été 'x'.mp3"},
    {u"Update tblContacts Set Genre=\"none\" Where Genre is null or Genre= ''", 2,
     u"Select RecordID from tblContacts Where Genre='NONE'", u"4|8"},
    {u"Update tblContacts Set AlbumName=\"\" Where AlbumName like \"*u*\" ", 4,
     u"Select RecordID from tblContacts Where AlbumName = ''", u"1|2|3|9"},
    {u"qdelDuplicates", 2, u"Select RecordID from tblContacts", u"1|2|3|4|5|6|7|8|10"},
    {u"qdelDuplicatesAlbum", 1, u"Select RecordID from tblContacts", u"1|2|3|4|5|6|7|8|10|11"},
};

} // namespace

TEST_F(SongCatalogue, EveryComposedStatementGivesItsRowsAsDynasetAndAsSnapshot)
{
    for (const Query &query : Queries) {
        const QString sql = QString::fromUtf16(query.sql);
        SCOPED_TRACE(sql.toStdString());
        try {
            const QString dynaset = firstFields(db(), sql);
            EXPECT_EQ(firstFields(db(), sql, dao::RecordsetType::Snapshot), dynaset);
            EXPECT_EQ(dynaset, QString::fromUtf16(query.firstFields));
        } catch (const dao::DaoError &error) {
            ADD_FAILURE() << error.number << ' ' << error.what();
        }
    }
}

TEST_F(SongCatalogue, EveryActionChangesItsRowsAndIsUndoneByARollback)
{
    const QString before = everything();
    for (const Action &action : Actions) {
        SCOPED_TRACE(QString::fromUtf16(action.sql).toStdString());
        dao::Transaction transaction(db().workspace());
        db().Execute(QString::fromUtf16(action.sql));
        EXPECT_EQ(db().RecordsAffected(), action.affected);
        EXPECT_EQ(keys(QString::fromUtf16(action.check)), QString::fromUtf16(action.firstFields));
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
