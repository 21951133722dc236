// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/PlayListStore.h"

#include "player/AddToPlayList.h"
#include "songlist/PlayerState.h"
#include "support/ScriptedDesktop.h"
#include "support/store/StoreFixture.h"

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

/** Two lists, one empty, over a catalogue of a few songs. */
class PlayLists : public ::testing::Test
{
protected:
    void SetUp() override
    {
        song = catalogue.addSong(Song(u"Say \"Hi\""_s, u"The Boys"_s)
                                     .file(u"/music/"_s, u"hi.mp3"_s)
                                     .with(u"AlbumName"_s, u"Album"_s)
                                     .with(u"TrackText"_s, u"3/12"_s)
                                     .with(u"Duration"_s, u"00:03:00"_s)
                                     .with(u"Year"_s, u"1999"_s)
                                     .with(u"Rating"_s, u"***"_s));
        party = catalogue.addPlayList(u"Party"_s, {song, song, song});
        empty = catalogue.addPlayList(u"Another"_s);
    }
    std::unique_ptr<dao::Recordset> songRow(const QString &where = u"RecordID > 0"_s)
    {
        return catalogue.db().OpenRecordset(u"select * from tblContacts Where "_s + where,
                                            dao::RecordsetType::Dynaset);
    }
    /** One field of a list's tracks, in playing order. */
    QString tracks(qint64 list, const QString &field)
    {
        return catalogue
            .column(u"select %1 from tblPlayListDetail Where ListID=%2 Order By ListTrackID"_s.arg(field).arg(
                list))
            .join(u'|');
    }
    void number(qint64 list, const QList<qint64> &numbers)
    {
        store.deleteList(list);
        for (const qint64 each : numbers)
            store.addTrack(list, each, {.SongTitle = u"t"_s + QString::number(each)});
    }

    StoreFixture catalogue;
    ScriptedDesktop desktop;
    PlayerState state;
    PlayListStore store{catalogue.catalogue(), [] { return QDateTime({2026, 11, 22}, {19, 22}, Qt::UTC); }};
    AddToPlayList add{desktop, state, store};
    qint64 song = 0, party = 0, empty = 0;
};

TEST_F(PlayLists, AreListedByNameAndKnownInAnyCase)
{
    EXPECT_EQ(store.lists(), (QList<PlayListName>{{u"Another"_s, empty}, {u"Party"_s, party}}));
    EXPECT_EQ(store.ListID(u"PARTY"_s), party);
    EXPECT_EQ(store.ListID(u"Part"_s), std::nullopt);
    EXPECT_TRUE(store.isTaken(u"another"_s));
    const qint64 added = store.addList(u"Third  "_s, u"some notes"_s);
    EXPECT_EQ(store.ListID(u"Third"_s), added);
    EXPECT_TRUE(store.editList(added, u"Fourth"_s, {}));
    EXPECT_FALSE(store.editList(added + 1, u"Fifth"_s, {}));
    store.deleteList(party);
    catalogue.reopen();
    EXPECT_EQ(store.lists(), (QList<PlayListName>{{u"Another"_s, empty}, {u"Fourth"_s, added}}));
    EXPECT_EQ(catalogue.valueOf(u"select count(*) from tblPlayListDetail"_s).toInt(), 0);
    EXPECT_EQ(catalogue.valueOf(u"select LastUpdated from tblPlayListHeader Where ListName=\"Fourth\""_s),
              QVariant(QDateTime({2026, 11, 22}, {19, 22}, Qt::UTC)));
}

TEST_F(PlayLists, NumberTheirTracksAnewWithoutGaps)
{
    const std::pair<QList<qint64>, QString> cases[] = {
        {{}, u""_s},
        {{1, 2, 3}, u"1|2|3"_s},
        {{1, 3, 4, 9}, u"1|2|3|4"_s},
        {{5, 7, 7, 8}, u"1|2|3|4"_s},
        {{0, 2}, u"1|2"_s},
    };
    for (const auto &[numbers, expected] : cases) {
        number(empty, numbers);
        const QString titles = tracks(empty, u"SongTitle"_s);
        store.RenumberTracks(empty);
        EXPECT_EQ(tracks(empty, u"ListTrackID"_s), expected);
        EXPECT_EQ(tracks(empty, u"SongTitle"_s), titles);
        EXPECT_EQ(tracks(empty, u"LastUpdated"_s).count(u"2026"_s), numbers.size());
    }
    EXPECT_EQ(tracks(party, u"ListTrackID"_s), u"1|2|3"_s);
    store.deleteTrack(party, 2);
    EXPECT_EQ(tracks(party, u"ListTrackID"_s), u"1|3"_s);
    EXPECT_EQ(store.highestTrack(party), 3);
}

TEST_F(PlayLists, TakeACopyOfTheSong)
{
    state.CurrentPlayListName = u"another"_s;
    const auto row = songRow();
    EXPECT_EQ(add.AddSongToCurrentList(AddToPlayList::From::NameList, *row), SongAdded::Yes);
    EXPECT_EQ(add.addFromEditor(*row), SongAdded::Yes);
    catalogue.db().Execute(u"Update tblContacts Set SongName=\"Other\""_s);
    catalogue.reopen();
    const std::pair<const char16_t *, QString> fields[] = {
        {u"ListTrackID", u"1|2"_s},
        {u"ContactRecordID", QString::number(song) + u'|' + QString::number(song)},
        {u"SongTitle", u"Say 'Hi'|Say 'Hi'"_s},
        {u"ArtistName", u"The Boys|The Boys"_s},
        {u"AlbumName", u"Album|Album"_s},
        {u"Track", u"3/12|3/12"_s},
        {u"FileName", u"/music/hi.mp3|/music/hi.mp3"_s},
        {u"Duration", u"00:03:00|00:03:00"_s},
        {u"Year", u"1999|1999"_s},
        {u"Rating", u"***|***"_s},
        {u"Notes", u"|"_s},
    };
    for (const auto &[field, expected] : fields)
        EXPECT_EQ(tracks(empty, QString::fromUtf16(field)), expected)
            << QString::fromUtf16(field).toStdString();
}

TEST_F(PlayLists, RefuseWhatCannotBePlayed)
{
    using From = AddToPlayList::From;
    catalogue.addSong(Song(u"No file"_s).with(u"PathName"_s, u"/music/"_s));
    catalogue.addSong(Song(u"No path"_s).with(u"FileName"_s, u"x.mp3"_s));
    store.addTrack(store.addList(u"Full"_s, {}), 32000, {});
    const std::tuple<QString, From, QString, QString> cases[] = {
        {u"Another"_s, From::NameList, u"No file"_s,
         u"No File Name exists for this record, so not added to Play List."_s},
        {u"Another"_s, From::NameEdit, u"No file"_s,
         u"No saved File Name exists for this record, so not added to Play List."_s},
        {u"Another"_s, From::NameList, u"No path"_s,
         u"No Path Name (folder) exists for this record, so not added to Play List."_s},
        {u"Another"_s, From::NameEdit, u"No path"_s,
         u"No saved Path Name (folder) exists for this record, so not added to Play List."_s},
        {u"Full"_s, From::NameList, u"Say*"_s,
         u"The current Play List has reached maximum size of 32,000 songs.  Song not added to Play List."_s},
        {u"Renamed"_s, From::NameList, u"Say*"_s, u"\"Renamed\" Play list name not found."_s},
    };
    for (const auto &[list, from, name, text] : cases) {
        state.CurrentPlayListName = list;
        desktop.willSee();
        EXPECT_EQ(add.AddSongToCurrentList(from, *songRow(u"SongName Like \"%1\""_s.arg(name))),
                  SongAdded::No);
        EXPECT_EQ(desktop.lastCall().text, text);
    }
}

TEST_F(PlayLists, TakeAndLoseSongsOfThePlayer)
{
    const QString quotes = u"/music/the \"best\".mp3"_s;
    EXPECT_EQ(add.addFromPlayer(u"Another"_s, u"Say \"Hi\" <> The <> Boys"_s, u"/music/hi.mp3"_s),
              SongAdded::Yes);
    EXPECT_EQ(add.addFromPlayer(u"Another"_s, u"Alone"_s, quotes), SongAdded::Yes);
    EXPECT_EQ(add.addFromPlayer(u"Another"_s, u"Alone"_s, quotes), SongAdded::Yes);
    EXPECT_EQ(tracks(empty, u"SongTitle"_s), u"Say 'Hi'|Alone|Alone"_s);
    EXPECT_EQ(tracks(empty, u"ArtistName"_s), u"The <> Boys||"_s);
    EXPECT_EQ(tracks(empty, u"ContactRecordID"_s), QString::number(song) + u"||"_s);
    EXPECT_EQ(tracks(empty, u"Notes"_s), u"Added from Player|Added from Player|Added from Player"_s);
    state.CurrentPlayTitle = u"PlayList Party"_s;
    add.deleteFromPlayer(quotes);
    EXPECT_EQ(tracks(empty, u"ListTrackID"_s), u"1|2|3"_s);
    state.CurrentPlayTitle = u"PlayList Another"_s;
    add.deleteFromPlayer(quotes);
    EXPECT_EQ(tracks(empty, u"ListTrackID"_s), u"1"_s);
    store.addList(u"My PlayList One"_s, {});
    state.CurrentPlayTitle = u"PlayList My PlayList One"_s;
    add.deleteFromPlayer(u"/music/hi.mp3"_s);
    EXPECT_EQ(tracks(empty, u"ListTrackID"_s), u"1"_s);
    empty = store.addList(u"Full"_s, {});
    store.addTrack(empty, 32000, {});
    desktop.willSee(
        u"The Play List has reached maximum size of 32,000 songs.  Song not added to Play List."_s);
    EXPECT_EQ(add.addFromPlayer(u"Full"_s, u"a"_s, u"/a"_s), SongAdded::No);
}

} // namespace
