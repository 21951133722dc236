// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/SampleMaker.h"
#include "samples/Silence.h"
#include "shell/ShellFixture.h"

using namespace Qt::StringLiterals;
using namespace tagbytes;

namespace {

using Columns = QMap<int, QString>;

constexpr std::array AllTypes{"mp3", "m4a", "wma", "wav", "flac", "ogg", "mp4", "aac"};

QByteArray commentFrame(const QByteArray &description, const QByteArray &text)
{
    return frame("COMM", QByteArray(1, '\0') + "eng" + description + '\0' + text);
}

QByteArray chunk(const QByteArray &name, const QByteArray &content)
{
    return name + littleEndian(static_cast<quint32>(content.size())) + content +
           QByteArray(content.size() % 2, '\0');
}

samples::SongTags fullTags()
{
    samples::SongTags tags;
    tags.title = u"Où es-tu, \"Zoë\" & 東京 🎵"_s;
    tags.artist = u"Дмитрий Weiß"_s;
    tags.albumArtist = u"Múm & Friends"_s;
    tags.album = u"Señor's Álbum"_s;
    tags.genre = u"Folk-Rock"_s;
    tags.composer = u"Antonín Dvořák"_s;
    tags.comment = u"Live; at home"_s;
    tags.year = 1998;
    tags.track = 3;
    tags.tracks = 12;
    tags.beats = 128;
    tags.disc = 2;
    return tags;
}

class SongDetails : public ShellFixture
{
protected:
    /** The columns of an MP3 whose tag has these frames. */
    [[nodiscard]] Columns ofFrames(const QByteArray &frames, const QByteArray &behind = {})
    {
        write(u"tagged.mp3"_s, id3v2(frames) + samples::silence(u"mp3") + behind);
        return details(u"tagged.mp3"_s);
    }
};

TEST_F(SongDetails, FillTheColumnsOfBothVersionsForEveryType)
{
    const samples::SongTags tags = fullTags();
    for (const char *type : AllTypes) {
        SCOPED_TRACE(type);
        const QString name = u"song."_s + QString::fromLatin1(type).toUpper();
        samples::makeSong(path(name), tags);

        Columns six = details(name);
        EXPECT_TRUE(six.take(28).startsWith(QChar(0x200E)));
        const Columns expectedSix{{13, tags.artist},    {14, tags.album},    {15, u"1998"_s},
                                  {16, tags.genre},     {21, tags.title},    {24, tags.comment},
                                  {26, u"3/12"_s},      {27, u"00:00:01"_s}, {217, tags.albumArtist},
                                  {220, tags.composer}, {237, u"128"_s},     {251, u"2"_s}};
        EXPECT_EQ(six, expectedSix);

        Columns five = details(name, {.version = 5.1});
        EXPECT_TRUE(five.take(22).endsWith("kbps"_L1));
        const Columns expectedFive{{10, tags.title}, {14, tags.comment}, {16, tags.artist},
                                   {17, tags.album}, {18, u"1998"_s},    {19, u"3/12"_s},
                                   {20, tags.genre}, {21, u"00:00:01"_s}};
        EXPECT_EQ(five, expectedFive);
    }
}

TEST_F(SongDetails, OfUntaggedSongsAreLengthAndBitRateAlone)
{
    samples::SongTags tags;
    tags.seconds = 3725;
    for (const auto &[name, rate] : {std::pair{u"long.mp3"_s, u"\u200E32kbps"_s},
                                     {u"long.wav"_s, u"\u200E64kbps"_s},
                                     {u"long.aac"_s, u"\u200E4kbps"_s}}) {
        samples::makeSong(path(name), tags);
        EXPECT_EQ(details(name), (Columns{{27, u"01:02:05"_s}, {28, rate}})) << qPrintable(name);
    }
}

TEST_F(SongDetails, AreReadByWhatTheFileHolds)
{
    samples::SongTags tags;
    tags.title = u"Renamed"_s;
    samples::SampleMaker maker;
    for (const char *type : AllTypes) {
        for (const QString &name : {u"odd.mp3"_s, u"odd.wma"_s}) {
            // Frames of MPEG sound have no signature of their own.
            if (QLatin1StringView(type) == "mp3"_L1 && name != "odd.mp3"_L1)
                continue;
            write(name, maker.song(QString::fromLatin1(type), tags));
            EXPECT_EQ(details(name).value(21), tags.title) << type;
        }
    }
}

TEST_F(SongDetails, OfEightBitTextFollowTheCodePage)
{
    const std::pair<QByteArray, QString> cases[] = {
        {"Plain", u"Plain"_s},
        {"Caf\xE9 \x93quoted\x94 \x80", u"Café “quoted” €"_s},
        {"Caf\xE9", u"Café"_s},
        {"Caf\xC3\xA9 \xE6\x9D\xB1", u"Café 東"_s},
        {QByteArray("Short\0\0\0", 8), u"Short"_s},
    };
    for (const auto &[bytes, expected] : cases) {
        EXPECT_EQ(ofFrames(latin1Frame("TIT2", bytes)).value(21), expected);
        const QByteArray old = "TAG" + bytes.leftJustified(30, '\0') + QByteArray(94, '\0') + '\x11';
        write(u"old.mp3"_s, samples::silence(u"mp3") + old);
        EXPECT_EQ(details(u"old.mp3"_s).value(21), expected);
        EXPECT_EQ(details(u"old.mp3"_s).value(16), u"Rock"_s);
        const QByteArray info = chunk("LIST", "INFO" + chunk("INAM", bytes) + chunk("ITRK", "7"));
        write(u"info.wav"_s, samples::silence(u"wav") + info);
        EXPECT_EQ(details(u"info.wav"_s).value(21), expected);
        EXPECT_EQ(details(u"info.wav"_s).value(26), u"7"_s);
    }
    const QByteArray name = atom("\xA9nam", atom("data", QByteArray("\0\0\0\1\0\0\0\0", 8) + "Caf\xE9"));
    write(u"legacy.m4a"_s, m4aFile(name));
    EXPECT_EQ(details(u"legacy.m4a"_s).value(21), u"Café"_s);
}

TEST_F(SongDetails, OfFramesThatPlayersWroteDifferently)
{
    const std::tuple<const char *, QByteArray, int, QString> cases[] = {
        {"several artists", latin1Frame("TPE1", QByteArray("One\0Two\0Two", 11)), 13, u"One; Two"_s},
        {"a slash is part of a name", latin1Frame("TPE1", "AC/DC"), 13, u"AC/DC"_s},
        {"genre numbers", latin1Frame("TCON", "(17)(20)Pop"), 16, u"Rock; Alternative; Pop"_s},
        {"a genre by number", latin1Frame("TCON", "8"), 16, u"Jazz"_s},
        {"an unknown number", latin1Frame("TCON", "4711"), 16, u"4711"_s},
        {"beats with unit", latin1Frame("TBPM", "128 BPM"), 237, u"128"_s},
        {"beats with point", latin1Frame("TBPM", "84.78"), 237, u"85"_s},
        {"beats with comma", latin1Frame("TBPM", "84,5"), 237, u"84"_s},
        {"no beats", latin1Frame("TBPM", "fast"), 237, {}},
        {"year in a date", latin1Frame("TYER", "2005-10-03"), 15, u"2005"_s},
        {"year behind the day", latin1Frame("TYER", "Oct 3, 1995"), 15, u"1995"_s},
        {"year that would wrap", latin1Frame("TYER", "4294967299"), 15, u"4294"_s},
        {"year zero", latin1Frame("TYER", "0000"), 15, {}},
        {"track as tagged", latin1Frame("TRCK", "03/09"), 26, u"03/09"_s},
        {"track that would wrap", latin1Frame("TRCK", "4294967299"), 26, u"4294967299"_s},
        {"a player's own comment first", commentFrame("iTunNORM", " 0000021A") + commentFrame("", "Mine"), 24,
         u"Mine"_s},
        {"only a player's own comment", commentFrame("iTunSMPB", " 00000000"), 24, {}},
        {"a described comment", commentFrame("Note", "Described"), 24, u"Described"_s},
        {"picture in front", frame("APIC", QByteArray(300'000, '\x7F')) + latin1Frame("TIT2", "Behind"), 21,
         u"Behind"_s},
    };
    for (const auto &[what, frames, column, expected] : cases)
        EXPECT_EQ(ofFrames(frames).value(column), expected) << what;
}

TEST_F(SongDetails, OfOddFiles)
{
    // What the first tag lacks is taken from the next.
    const QByteArray old = "TAG" + QByteArray("Old title").leftJustified(30, '\0') +
                           QByteArray("Old artist").leftJustified(30, '\0') + QByteArray(64, '\0') + '\xFF';
    const Columns both = ofFrames(latin1Frame("TIT2", "New title"), old);
    EXPECT_EQ(both.value(21), u"New title"_s);
    EXPECT_EQ(both.value(13), u"Old artist"_s);
    // Raw AAC behind junk: its frames are counted.
    const QByteArray sound = samples::silence(u"aac", 90);
    write(u"junk.aac"_s, id3v2(latin1Frame("TIT2", "Junk")) + QByteArray(700, '\xFF') + sound);
    EXPECT_EQ(details(u"junk.aac"_s),
              (Columns{{21, u"Junk"_s}, {27, u"00:01:30"_s}, {28, u"\u200E4kbps"_s}}));
    // Numbers wider than usual.
    const QByteArray beats = atom("tmpo", atom("data", QByteArray("\0\0\0\x15\0\0\0\0\0\1\x86\x9F", 12)));
    const QByteArray track = atom("trkn", atom("data", QByteArray("\0\0\0\0\0\0\0\0\0\0\0\7\0\0\0\0", 16)));
    const QByteArray meta = QByteArray(4, '\0') + atom("ilst", beats + track);
    write(u"wide.m4a"_s, atom("ftyp", "M4A \0\0\0\0") + atom("moov", atom("udta", atom("meta", meta))));
    EXPECT_EQ(details(u"wide.m4a"_s), (Columns{{26, u"7"_s}, {237, u"99999"_s}}));
}

} // namespace
