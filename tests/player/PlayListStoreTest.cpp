// SPDX-License-Identifier: GPL-3.0-or-later
#include "lists/PlayListStore.h"

#include "lists/PlayerState.h"
#include "player/AddToPlayList.h"
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
    /** Tracks a, b, c ... of the empty list, with numbers as older programs left them. */
    void number(const QList<qint64> &numbers)
    {
        store.deleteList(empty);
        for (qsizetype i = 0; i < numbers.size(); ++i) {
            const QString title(QChar(u'a' + static_cast<char16_t>(i)));
            catalogue.addRow(u"tblPlayListDetail"_s, {{u"ListID"_s, empty},
                                                      {u"ListTrackID"_s, numbers.at(i)},
                                                      {u"SongTitle"_s, title},
                                                      {u"FileName"_s, u"/"_s + title}});
        }
    }
    /** The key of the empty list's track of that title; 0 without one. */
    qint64 keyOf(const QString &title)
    {
        for (const ShownTrack &track : store.shownTracks(empty, MostTracks)) {
            if (track.SongTitle == title)
                return track.key;
        }
        return 0;
    }
    void fillUp(const QString &name) { store.addTracks(store.addList(name, {}), QList<Track>(MostTracks)); }

    StoreFixture catalogue;
    ScriptedDesktop desktop;
    PlayerState state;
    PlayListStore store{catalogue.catalogue(), [] { return QDateTime({2026, 11, 22}, {19, 22}, Qt::UTC); }};
    AddToPlayList add{desktop, state, store};
    qint64 song = 0, party = 0, empty = 0;
};

TEST_F(PlayLists, AreKnownByNameInAnyCase)
{
    EXPECT_EQ(store.ListID(u"PARTY"_s), party);
    EXPECT_EQ(store.ListID(u"Part"_s), std::nullopt);
    const qint64 added = store.addList(u"Third  "_s, u"some notes"_s);
    EXPECT_TRUE(store.isTaken(u"third"_s));
    EXPECT_FALSE(store.editList(added + 1, u"Fifth"_s, {}));
    store.deleteList(party);
    catalogue.reopen();
    EXPECT_EQ(store.lists(), (QList<PlayListName>{{u"Another"_s, empty}, {u"Third"_s, added}}));
    EXPECT_EQ(catalogue.valueOf(u"select count(*) from tblPlayListDetail"_s).toInt(), 0);
}

TEST_F(PlayLists, AreMadeWholeByWhateverChangesThem)
{
    const TrackTexts other{.SongTitle = u"C"_s, .ArtistName = {}, .FileName = {}, .Notes = {}};
    const std::pair<QString, std::function<void()>> changes[] = {
        {u"a b c d"_s, [&] { store.RenumberTracks(empty); }},
        {u"a b c d z"_s, [&] { store.addTrack(empty, {.SongTitle = u"z"_s}); }},
        {u"a b c d y z"_s,
         [&] {
             store.addTracks(empty, {{.SongTitle = u"y"_s}, {.SongTitle = u"z"_s}});
         }},
        {u"a c d"_s, [&] { store.deleteTrack(empty, keyOf(u"b"_s)); }},
        {u"a b d"_s, [&] { store.deleteTrack(empty, keyOf(u"c"_s)); }},
        {u"a b c"_s, [&] { store.deleteFile(empty, u"/d"_s); }},
        {u"a b C d"_s, [&] { EXPECT_TRUE(store.editTrack(empty, keyOf(u"c"_s), other)); }},
        {u"d c b a"_s,
         [&] {
             EXPECT_EQ(store.reorder(empty, {keyOf(u"d"_s), keyOf(u"c"_s), keyOf(u"b"_s), keyOf(u"a"_s)}),
                       std::nullopt);
         }},
        // One that has been deleted meanwhile, one that is not this list's, one twice, one left out.
        {u"c a b d"_s,
         [&] {
             const qint64 stranger = store.shownTracks(party, 1).first().key;
             EXPECT_EQ(store.reorder(empty, {keyOf(u"c"_s), stranger, keyOf(u"a"_s), keyOf(u"c"_s), 99999}),
                       1);
         }},
        {u"a b c d"_s, [&] { store.deleteTrack(empty, 99999); }},
    };
    for (const QList<qint64> &numbers :
         {QList<qint64>{1, 2, 3, 4}, {2, 3, 3, 9}, {0, 1, 1, 1}, {-5, 4, 4, 32000}}) {
        for (const auto &[expected, change] : changes) {
            number(numbers);
            change();
            EXPECT_EQ(tracks(empty, u"SongTitle"_s).replace(u'|', u' '), expected);
            for (qsizetype i = 0; i <= expected.count(u' '); ++i)
                EXPECT_EQ(tracks(empty, u"ListTrackID"_s).split(u'|').at(i).toInt(), i + 1);
        }
    }
    EXPECT_FALSE(store.editTrack(empty, 99999, other));
    EXPECT_EQ(store.oneTrack(empty, 99999), std::nullopt);
    EXPECT_EQ(tracks(party, u"ListTrackID"_s), u"1|2|3"_s);
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
    fillUp(u"Full"_s);
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
    fillUp(u"Full"_s);
    desktop.willSee(
        u"The Play List has reached maximum size of 32,000 songs.  Song not added to Play List."_s);
    EXPECT_EQ(add.addFromPlayer(u"Full"_s, u"a"_s, u"/a"_s), SongAdded::No);
}

} // namespace
