// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlists/PopulateFromText.h"

#include "lists/PlayerState.h"
#include "playlists/ChartLine.h"
#include "songlist/DataControl.h"
#include "support/Files.h"
#include "support/ScriptedDesktop.h"
#include "support/UserActs.h"
#include "support/store/StoreFixture.h"

#include <QStringEncoder>

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

TEST(TheChartLine, IsTakenApartAtTheCommaBehindThePeriod)
{
    const std::pair<QString, std::optional<ChartLine>> cases[] = {
        {u"1. Satisfaction, The Rolling Stones"_s, {{u"Satisfaction"_s, u"The Rolling Stones"_s}}},
        {u"Satisfaction,The Rolling Stones "_s, {{u"Satisfaction"_s, u"The Rolling Stones"_s}}},
        {u"Mr. Tambourine Man, The Byrds"_s, {{u"Tambourine Man"_s, u"The Byrds"_s}}},
        {u"12. A, B, C"_s, {{u"A"_s, u"B, C"_s}}},
        {u"Drive, R.E.M."_s, std::nullopt},
        {u"no comma"_s, std::nullopt},
        {{}, std::nullopt},
        {u"\"Heroes\", David \"D\" Bowie (live, 1978)"_s, {{u"Heroes"_s, u"David D Bowie"_s}}},
        {u"2. (I Can't Get No) Satisfaction, Stones"_s, {{{}, {}}}},
        {u"Satisfaction (live), Stones"_s, {{u"Satisfaction"_s, {}}}},
        {u"a (b. c, d"_s, {{{}, {}}}},
        {u",."_s, std::nullopt},
        {u","_s, {{{}, {}}}},
    };
    for (const auto &[line, names] : cases)
        EXPECT_EQ(splitChartLine(line), names) << line.toStdString();
}

class Populate : public ::testing::Test
{
protected:
    Populate()
    {
        state.CurrentPlayListName = u"Charts"_s;
        list = lists.addList(u"charts"_s, {});
        add(u"Satisfaction"_s, u"The Rolling Stones"_s);
        add(u"Satisfaction"_s, u"The Rolling Stones"_s);
        add(u"Jóga"_s, u"Björk"_s);
        add(u"Untitled"_s, {});
    }
    /** Songs have the numbers 1, 2 ... */
    void add(const QString &name, const QString &artist)
    {
        store.addSong(
            Song(name, artist).file(u"/music/"_s, u"%1.mp3"_s.arg(++files)).with(u"Year"_s, u"1965"_s));
    }
    void choose(const QByteArray &bytes)
    {
        writeFile(store.path(u"charts.txt"_s), bytes);
        desktop.willAnswer(Answer::Yes, u"1. Satisfaction, The Rolling Stones\r\n\r\nQuaverly"_s)
            .willOpen(store.path(u"charts.txt"_s));
    }
    void populate(const QByteArray &bytes)
    {
        choose(bytes);
        commands.mnuFilePopulate_Click();
    }
    QString tracks(const QString &field = u"ContactRecordID"_s)
    {
        const QString sql = u"select %1 from tblPlayListDetail Where ListID=%2 Order By ListTrackID"_s;
        return store.column(sql.arg(field).arg(list)).join(u'|');
    }
    QByteArray report() { return bytesOf(store.path(u"state/populate.txt"_s)); }

    StoreFixture store;
    ScriptedDesktop desktop;
    PlayerState state;
    PlayListStore lists{store.catalogue()};
    DataControl displayed{store.catalogue()};
    QString lastMusicFolder = store.path(u"music"_s);
    qint64 list = 0;
    int files = 0, loads = 0;
    PopulateFromText commands{{.services = store.services(desktop),
                               .lists = lists,
                               .displayed = displayed,
                               .state = state,
                               .LastMusicFolder = lastMusicFolder,
                               .reportPath = store.path(u"state/populate.txt"_s),
                               .LoadDetailListbox = [this] { ++loads; }}};
};

TEST_F(Populate, AddsTheSongsOfALineInEitherOrder)
{
    populate("1. Satisfaction, The Rolling Stones\r\nTHE rolling stones, SATISFACTION\nNo Such Song, Nobody\n"
             "\nno comma\nUntitled,\nUntitled (live), x\nSatisfaction,The Rolling Stones");
    EXPECT_EQ(desktop.lastCall().startFolder, lastMusicFolder + u'/');
    EXPECT_EQ(tracks(), u"1|1|1"_s);
    EXPECT_EQ(tracks(u"ListTrackID"_s), u"1|2|3"_s);
    EXPECT_EQ(tracks(u"FileName"_s), u"/music/1.mp3|/music/1.mp3|/music/1.mp3"_s);
    EXPECT_EQ(tracks(u"Year"_s), u"1965|1965|1965"_s);
    EXPECT_EQ(report().count('\n'), 4);
    EXPECT_TRUE(report().startsWith("No Such Song, Nobody\t") && report().contains("\nno comma\t"));
    populate({});
    EXPECT_EQ(loads, 2);
    EXPECT_EQ(report(), "no such file");
}

TEST_F(Populate, AddsWhatIsTickedInThePreview)
{
    for (const char *button : {"cmdGiveUp", "cmdGoOn"}) {
        writeFile(store.path(u"charts.txt"_s),
                  "Satisfaction, The Rolling Stones\nNo Such Song, Nobody\nJóga, Björk\n");
        desktop.willAnswer(Answer::More)
            .willOpen(store.path(u"charts.txt"_s))
            .willPreview([=](QWidget &preview) {
                EXPECT_EQ(rowsOf(preview),
                          (QStringList{
                              u"- No Such Song, Nobody |  |  | No song of this name and artist was found."_s,
                              u"x Satisfaction, by The Rolling Stones | Play list |  | Charts"_s,
                              u"x Jóga, by Björk | Play list |  | Charts"_s}));
                tickRow(preview, 1);
                click(preview, QString::fromLatin1(button));
            });
        commands.mnuFilePopulate_Click();
    }
    EXPECT_EQ(tracks(), u"3"_s);
}

TEST_F(Populate, ReadsTheTextsOfAllMachines)
{
    const QString text = u"1. Jóga, Björk\r\n2. Satisfaction, The Rolling Stones\r\n"_s;
    const auto encoded = [&](QStringConverter::Encoding encoding) -> QByteArray {
        return QStringEncoder(encoding, QStringConverter::Flag::WriteBom)(text);
    };
    const QByteArray texts[] = {
        text.toUtf8(),
        QString(text).remove(u'\r').toUtf8(),
        text.toLatin1(),
        encoded(QStringConverter::Utf8),
        encoded(QStringConverter::Utf16LE),
        encoded(QStringConverter::Utf16BE),
        QByteArray("\x00\xFF,\x01\"\n\x80\n,\n", 9) + QByteArray(1'000'000, 'x') + ',' +
            QByteArray(1'000'000, '\'') + "\n\r\n\x00,\x00\n" + text.toUtf8(),
    };
    QString expected;
    for (const QByteArray &bytes : texts) {
        populate(bytes);
        expected += expected.isEmpty() ? u"3|1"_s : u"|3|1"_s;
        EXPECT_EQ(tracks(), expected) << bytes.first(20).toHex(' ').toStdString();
    }
}

TEST_F(Populate, EndsAbruptlyAtTheLimit)
{
    lists.addTracks(list, QList<Track>(MostTracks - 1));
    choose("Nobody, Nothing\nSatisfaction, The Rolling Stones\nJóga, Björk\n");
    desktop.willSee(u"maximum size of 32,000 songs.  Song not added"_s);
    commands.mnuFilePopulate_Click();
    EXPECT_EQ(lists.countTracks(list), MostTracks);
    EXPECT_TRUE(desktop.isHourglassOn());
    desktop.resetPointer();
    EXPECT_EQ(loads, 0);
}

TEST_F(Populate, ChangesNothingWithoutAListOrAText)
{
    desktop.willAnswer(Answer::No);
    commands.mnuFilePopulate_Click();
    desktop.willAnswer(Answer::Yes).willOpen(std::nullopt);
    commands.mnuFilePopulate_Click();
    desktop.willAnswer(Answer::Yes).willOpen(store.path(u"no such text"_s)).willSee(u"can't be read"_s);
    commands.mnuFilePopulate_Click();
    state.CurrentPlayListName = u"Gone"_s;
    choose("Jóga, Björk");
    desktop.willSee(u"\"Gone\" Play list name not found."_s);
    commands.mnuFilePopulate_Click();
    state.CurrentPlayListName.clear();
    desktop.willAnswer(Answer::Yes);
    commands.mnuFilePopulate_Click();
    EXPECT_EQ(tracks(), QString());
    EXPECT_EQ(loads, 0);
}

} // namespace
