// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/CommandLine.h"
#include "catalogue/DuplicateQueries.h"
#include "catalogue/SongFields.h"
#include "catalogue/SortOrders.h"
#include "support/store/StoreFixture.h"

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
    for (const SortOrder &order : sortOrders())
        EXPECT_NE(songField(QString(order.index)), nullptr) << order.label.data();
    EXPECT_EQ(sortOrder(u"Loudness").label, DefaultSortLabel);
}

TEST(SongTables, AnArgumentIsAMusicFileByItsLastFourCharacters)
{
    using enum CommandLine::Kind;
    const std::tuple<QString, CommandLine::Kind, QString> cases[] = {
        {u""_s, Nothing, u""_s},
        {u"   "_s, Nothing, u""_s},
        {u"/m/x.FLAC"_s, MusicFile, u"/m/x.FLAC"_s},
        {u"/m/noflac"_s, MusicFile, u"/m/noflac"_s},
        {u" \"/my music/a b.Mp3\" "_s, MusicFile, u"/my music/a b.Mp3"_s},
        {u"/m/x.mp4"_s, CatalogueFile, u"/m/x.mp4"_s},
        {u"/m/x.mp3 "_s, MusicFile, u"/m/x.mp3"_s},
        {u"\"/old/QVdata.mdb\""_s, CatalogueFile, u"/old/QVdata.mdb"_s},
    };
    for (const auto &[text, kind, argument] : cases) {
        const CommandLine line = parseCommandLine(text);
        EXPECT_EQ(line.kind, kind) << text.toStdString();
        EXPECT_EQ(line.argument, argument);
    }
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
