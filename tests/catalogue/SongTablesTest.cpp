// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/CommandLine.h"
#include "catalogue/DuplicateQueries.h"
#include "catalogue/SongFields.h"
#include "catalogue/SortOrders.h"
#include "support/QtPrinters.h"
#include "support/store/StoreFixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

TEST(SongTables, FieldsAreThoseOfTheShippedCatalogueInItsOrder)
{
    StoreFixture store;
    const QList<dao::Field> shipped = store.db().TableDefs(u"tblContacts"_s);
    const auto fields = songFields();
    ASSERT_EQ(shipped.size(), static_cast<qsizetype>(fields.size()));
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const dao::Field &column = shipped.at(static_cast<qsizetype>(i));
        EXPECT_EQ(QString(fields[i].name), column.name);
        EXPECT_EQ(fields[i].type, column.type) << column.name.toStdString();
        EXPECT_EQ(fields[i].width, column.size) << column.name.toStdString();
    }
    EXPECT_EQ(songField(u"bitRate"), songField(u"Bitrate"));
    EXPECT_EQ(songField(u"RecordIdOrphan"), nullptr);
}

TEST(SongTables, EveryEntryOfTheSortBoxSortsAndHasItsIndex)
{
    StoreFixture store;
    store.addSong(Song(u"Waterloo"_s, u"Abba"_s));
    ASSERT_EQ(sortOrders().size(), 23U);
    for (const SortOrder &order : sortOrders()) {
        const QString source = u"Select * from  tblContacts"_s + order.listOrder;
        EXPECT_NO_THROW({
            EXPECT_EQ(store.db().OpenRecordset(source)->RecordCount(), 1);
            store.catalogue().ContactsTable->setIndex(order.index);
        }) << order.label.data();
        EXPECT_NE(songField(QString(order.index)), nullptr) << order.label.data();
        EXPECT_EQ(&sortOrder(QString(order.label)), &order);
    }
    EXPECT_EQ(sortOrder(u" ").label, DefaultSortLabel);
    EXPECT_EQ(sortOrder(u"Loudness").label, DefaultSortLabel);
}

TEST(SongTables, AnArgumentIsAMusicFileByItsLastFourCharacters)
{
    using enum CommandLine::Kind;
    const struct
    {
        QString text;
        CommandLine::Kind kind;
        QString argument;
    } cases[] = {
        {u""_s, Nothing, u""_s},
        {u"   "_s, Nothing, u""_s},
        {u"/m/x.FLAC"_s, MusicFile, u"/m/x.FLAC"_s},
        {u"/m/noflac"_s, MusicFile, u"/m/noflac"_s},
        {u" \"/my music/a b.Mp3\" "_s, MusicFile, u"/my music/a b.Mp3"_s},
        {u"/m/x.mp4"_s, CatalogueFile, u"/m/x.mp4"_s},
        {u"/m/x.mp3 "_s, MusicFile, u"/m/x.mp3"_s},
        {u"\"/old/QVdata.mdb\""_s, CatalogueFile, u"/old/QVdata.mdb"_s},
    };
    for (const auto &c : cases) {
        const CommandLine line = parseCommandLine(c.text);
        EXPECT_EQ(line.kind, c.kind) << c.text.toStdString();
        EXPECT_EQ(line.argument, c.argument);
    }
}

/** A catalogue with two songs by file size twice, one of them thrice, and one album track twice. */
class Duplicates : public ::testing::Test
{
protected:
    void SetUp() override
    {
        for (const auto *size : {u"4.39 MB", u"4.39 MB", u"4.39 MB", u"4.40 MB"})
            add(u"Waterloo"_s, QString::fromUtf16(size), u"Waterloo"_s);
        add(u"SOS"_s, u"3.1 MB"_s, u"Abba"_s);
        add(u"sos"_s, u"3.1 MB"_s, u"Gold"_s);
        ensureDuplicateQueries(store.db());
    }
    void add(const QString &name, const QString &size, const QString &album)
    {
        store.addSong(Song(name, u"Abba"_s).with(u"FileSize"_s, size).with(u"AlbumName"_s, album));
    }
    qint64 rows(const QString &query) { return store.db().OpenRecordset(query)->RecordCount(); }

    StoreFixture store;
};

TEST_F(Duplicates, AreShownAndDeletedButForTheFirstOfEachGroup)
{
    EXPECT_EQ(rows(u"qryDuplicateSongs"_s), 5);
    EXPECT_EQ(rows(u"qryShowDuplicatesToBeDeleted"_s), 3);
    EXPECT_EQ(rows(u"qryDuplicateSongsAlbum"_s), 4);
    EXPECT_EQ(rows(u"qryShowDuplicatesToBeDeletedAlbum"_s), 3);
    store.db().Execute(u"qdelDuplicates"_s);
    EXPECT_EQ(store.column(u"Select RecordID from tblContacts Order By RecordID"_s),
              QStringList({u"1"_s, u"4"_s, u"5"_s}));
    store.db().Execute(u"qdelDuplicatesAlbum"_s);
    EXPECT_EQ(store.column(u"Select RecordID from tblContacts Order By RecordID"_s),
              QStringList({u"1"_s, u"5"_s}));
}

TEST(DuplicateQueriesAtStart, AGroupIsMadeWhenItsFirstQueryIsMissing)
{
    StoreFixture store;
    store.db().CreateQueryDef(u"qryDuplicateSongsAlbum"_s, u"Select 1"_s);
    store.db().CreateQueryDef(u"qtotDupSongNames"_s, u"Select 2"_s);
    ensureDuplicateQueries(store.db());
    store.reopen();
    EXPECT_EQ(store.db().QueryDefs(u"qryDuplicateSongs"_s).SQL, QString(duplicateQueries()[0].sql));
    EXPECT_EQ(store.db().QueryDefs(u"qdelDuplicates"_s).SQL, QString(duplicateQueries()[3].sql));
    // What was there stays, even where the rest of its group is made or missing.
    EXPECT_EQ(store.db().QueryDefs(u"qtotDupSongNames"_s).SQL, u"Select 2"_s);
    EXPECT_EQ(store.db().QueryDefs(u"qryDuplicateSongsAlbum"_s).SQL, u"Select 1"_s);
    EXPECT_FALSE(store.db().queryNames().contains(u"qdelDuplicatesAlbum"_s));
}

} // namespace
