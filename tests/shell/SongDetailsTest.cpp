// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/SampleMaker.h"
#include "samples/Silence.h"
#include "shell/ShellFixture.h"

using namespace Qt::StringLiterals;
using namespace tagbytes;

namespace {

using Columns = QMap<int, QString>;

constexpr std::array AllTypes{"mp3",  "m4a", "wma",  "wav", "flac", "ogg", "mp4", "aac",
                              "opus", "oga", "aiff", "aif", "wv",   "m4b", "mp2"};

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
            if (QLatin1StringView(type).startsWith("mp"_L1) && type[2] != '4' && name != "odd.mp3"_L1)
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

TEST_F(SongDetails, OfKindsThatTheSampleMakerCannotTag)
{
    const auto ebml = [](const QByteArray &id, const QByteArray &content) {
        return QByteArray::fromHex(id) + char(0x10) + bigEndian(quint32(content.size())).last(3) + content;
    };
    const auto simple = [&](const QByteArray &name, const QByteArray &value) {
        return ebml("67c8", ebml("45a3", name) + ebml("4487", value));
    };
    const QByteArray info = ebml("1549a966", ebml("4489", bigEndian(quint32(0x45FA0000))));
    const QByteArray tags =
        ebml("1254c367", ebml("7373", ebml("63c0", ebml("68ca", "\x32")) + simple("TITLE", "Arrival")) +
                             ebml("7373", simple("TITLE", "Fernando") + simple("ARTIST", "Abba") +
                                              simple("ARTIST", "Cher") + simple("PART_NUMBER", "3") +
                                              simple("DATE_RELEASED", "1976-03-27")));
    const QByteArray sound = ebml("1f43b675", QByteArray(4000, 'x'));
    const auto seek = [&](qsizetype place) {
        return ebml("114d9b74", ebml("4dbb", ebml("53ab", QByteArray::fromHex("1254c367")) +
                                                 ebml("53ac", bigEndian(quint32(place)))));
    };
    const QByteArray front = seek(0) + info + sound;
    const Columns ofMatroska{{13, u"Abba; Cher"_s}, {14, u"Arrival"_s}, {15, u"1976"_s},
                             {21, u"Fernando"_s},   {26, u"3"_s},       {27, u"00:00:08"_s}};
    for (const QByteArray &segment : {info + tags + sound, seek(front.size()) + info + sound + tags}) {
        write(u"a.mka"_s, ebml("1a45dfa3", {}) + ebml("18538067", segment));
        Columns read = details(u"a.mka"_s);
        EXPECT_EQ(read.take(28), u"\u200E4kbps"_s);
        EXPECT_EQ(read, ofMatroska);
    }

    const QByteArray tag = id3v2(latin1Frame("TIT2", "Bits"));
    const QByteArray dsf = littleEndian(quint64(0)) + littleEndian(quint64(80)) + "fmt " +
                           littleEndian(quint64(52)) + QByteArray(12, '\0') + littleEndian(quint32(2)) +
                           littleEndian(quint32(2822400)) + littleEndian(quint32(1)) +
                           littleEndian(quint64(2822400 * 5)) + QByteArray(8, '\0');
    write(u"a.dsf"_s, "DSD " + littleEndian(quint64(28)) + dsf + tag);
    EXPECT_EQ(details(u"a.dsf"_s),
              (Columns{{21, u"Bits"_s}, {27, u"00:00:05"_s}, {28, u"\u200E5645kbps"_s}}));

    // Version, descriptor, frames of 73728 samples, 44.1 kHz: four of them last 6.7 seconds.
    const QByteArray ape =
        "MAC " + littleEndian(quint16(3990)) + QByteArray(2, '\0') + littleEndian(quint32(52)) +
        QByteArray(40, '\0') + littleEndian(quint16(2000)) + littleEndian(quint16(0)) +
        littleEndian(quint32(73728)) + littleEndian(quint32(73728)) + littleEndian(quint32(4)) +
        littleEndian(quint16(16)) + littleEndian(quint16(2)) + littleEndian(quint32(44100));
    write(u"a.ape"_s, ape + QByteArray(9000, 'x'));
    EXPECT_EQ(details(u"a.ape"_s).value(27), u"00:00:06"_s);
    // A stream head: sum, version, 441000 samples in all, none of them silence, 44.1 kHz.
    const QByteArray mpc = "MPCKSH" + QByteArray("\x0F\1\2\3\4\x08\x9A\xF5\x28\0\x1B\x11", 12);
    write(u"a.mpc"_s, mpc + "AP" + char(0x7F) + QByteArray(124, 'x'));
    EXPECT_EQ(details(u"a.mpc"_s).value(27), u"00:00:10"_s);
    for (const QString &name : {u"b.mka"_s, u"b.dsf"_s, u"b.ape"_s, u"b.mpc"_s, u"b.wv"_s, u"b.aiff"_s}) {
        write(name, "no sound at all");
        EXPECT_TRUE(details(name).value(27).isEmpty() && details(name).size() == 1) << qPrintable(name);
    }
}

TEST_F(SongDetails, OfTagsWithOneOddFrame)
{
    const QByteArray title = latin1Frame("TIT2", "Title");
    const QByteArray artist = latin1Frame("TPE1", "Artist");
    const QByteArray wide("T\0i\0t\0l\0e\0", 10);
    const auto tag = [](char version, uint flags, const QByteArray &frames) {
        return "ID3" + QByteArray(1, version) + '\0' + static_cast<char>(flags) +
               syncSafe(static_cast<quint32>(frames.size() + 50)) + frames + QByteArray(50, '\0');
    };
    const auto packed = [](const QByteArray &id, const QByteArray &content, char flags = 0) {
        return id + syncSafe(static_cast<quint32>(content.size())) + '\0' + flags + content;
    };
    const QByteArray longTitle = "Title" + QByteArray(300, ' ');
    const QByteArray picture = QByteArray("\xFF\0\xFF\0", 4) + QByteArray(200, 'p');
    const std::pair<const char *, QByteArray> cases[] = {
        {"no content in front", tag(3, 0, frame("TENC", {}) + title + artist)},
        {"a name with a blank", tag(3, 0, latin1Frame("TS2 ", "x") + title + artist)},
        {"names of version 2 in version 3",
         tag(3, 0, latin1Frame("TT2 ", "Title") + latin1Frame(QByteArray("TP1\0", 4), "Artist"))},
        {"lower case", tag(3, 0, latin1Frame("tit2", "Title") + artist)},
        {"bytes that are no frame", tag(3, 0, artist + "\1\2\3 junk" + title)},
        {"a short extended head", tag(3, 0x40, bigEndian(quint32(6)) + QByteArray(6, '\0') + title + artist)},
        {"a long one",
         tag(3, 0x40, bigEndian(quint32(10)) + QByteArray("\x80\0\0\0\0\0sum!", 10) + title + artist)},
        {"UTF-16 without byte order", tag(3, 0, frame("TIT2", '\1' + wide) + artist)},
        {"a group", tag(3, 0, frame("TIT2", "\x81" + QByteArray("\0Title", 6), 0x20) + artist)},
        {"a group in version 4", tag(4, 0, packed("TIT2", "\x81" + QByteArray("\0Title", 6), 0x40) + artist)},
        {"plain sizes in version 4", tag(4, 0, latin1Frame("TIT2", longTitle) + artist)},
        {"plain size of the last one", tag(4, 0, artist + latin1Frame("TIT2", longTitle))},
        {"a picture whose size counts its zeros",
         tag(3, 0x80, frame("APIC", picture) + frame("TIT2", QByteArray("\1\xFF\0\xFE", 4) + wide) + artist)},
        {"zeros in all frames",
         tag(4, 0x80,
             packed("APIC", picture) + packed("TIT2", QByteArray("\1\xFF\0\xFE", 4) + wide) + artist)},
    };
    for (const auto &[what, bytes] : cases) {
        write(u"odd.mp3"_s, bytes + samples::silence(u"mp3"));
        const Columns read = details(u"odd.mp3"_s);
        EXPECT_EQ(read.value(21).trimmed(), u"Title"_s) << what;
        EXPECT_EQ(read.value(13), u"Artist"_s) << what;
    }
}

TEST_F(SongDetails, OfOddFiles)
{
    // What the first tag lacks is taken from the next.
    const QByteArray old = "TAG" + QByteArray("Old title").leftJustified(30, '\0') +
                           QByteArray("Old artist").leftJustified(30, '\0') + QByteArray(64, '\0') + '\xFF';
    const Columns both = ofFrames(latin1Frame("TIT2", "New title"), old);
    EXPECT_EQ(both.value(21), u"New title"_s);
    EXPECT_EQ(both.value(13), u"Old artist"_s);
    const QByteArray minus = "TAG" + QByteArray(90, 'x') + QByteArray("-1\0\0", 4) + QByteArray(28, 'x') +
                             QByteArray("\0\xFF\x11", 3);
    for (const int column : {15, 26})
        EXPECT_EQ(ofFrames({}, minus).value(column), QString());
    EXPECT_EQ(ofFrames(latin1Frame("TPE1", "One") + latin1Frame("TPE1", "Two") + latin1Frame("TALB", "  ")),
              (Columns{{13, u"One; Two"_s}, {27, u"00:00:01"_s}, {28, u"\u200E32kbps"_s}}));
    // Big-endian sound, its rate left open, with a broadcaster's day and description.
    const auto big = [](const QByteArray &name, const QByteArray &content) {
        return name + bigEndian(quint32(content.size())) + content;
    };
    const QByteArray format = bigEndian(quint16(1)) + bigEndian(quint16(2)) + bigEndian(quint32(8000)) +
                              QByteArray(4, '\0') + bigEndian(quint16(4)) + bigEndian(quint16(16));
    const QByteArray bext =
        QByteArray("Evening news").leftJustified(320, '\0') + "1998-05-04" + QByteArray(272, '\0');
    write(u"big.wav"_s, "RIFX" + bigEndian(quint32(0)) + "WAVE" + big("fmt ", format) + big("bext", bext) +
                            big("LIST", "INFO" + big("INAM", "Big!")) + big("data", QByteArray(64000, 's')));
    EXPECT_EQ(details(u"big.wav"_s), (Columns{{15, u"1998"_s},
                                              {21, u"Big!"_s},
                                              {24, u"Evening news"_s},
                                              {27, u"00:00:02"_s},
                                              {28, u"\u200E256kbps"_s}}));
    // Sound that was cut behind the head that tells its length.
    QByteArray head = QByteArray::fromHex("fffb9064") + QByteArray(413, '\0');
    const quint32 whole = 417 * 1000;
    head.replace(36, 16, "Xing" + bigEndian(quint32(3)) + bigEndian(quint32(999)) + bigEndian(whole));
    write(u"cut.mp3"_s, head + (QByteArray::fromHex("fffb9064") + QByteArray(413, '\0')).repeated(499));
    EXPECT_EQ(details(u"cut.mp3"_s), (Columns{{27, u"00:00:13"_s}, {28, u"\u200E128kbps"_s}}));
    // A file made in pieces, whose artists stand in an atom each.
    const QByteArray handler = atom("hdlr", QByteArray(8, '\0') + "soun" + QByteArray(13, '\0'));
    const QByteArray clock =
        atom("mdhd", QByteArray(12, '\0') + bigEndian(quint32(1000)) + QByteArray(8, '\0'));
    const QByteArray stsd =
        atom("stsd", QByteArray(4, '\0') + bigEndian(quint32(1)) + atom("Opus", QByteArray(28, '\0')));
    const QByteArray media = atom("mdia", handler + clock + atom("minf", atom("stbl", stsd)));
    const QByteArray run = atom("trun", QByteArray(4, '\0') + bigEndian(quint32(50)));
    const QByteArray usual =
        atom("tfhd", bigEndian(quint32(8)) + bigEndian(quint32(1)) + bigEndian(quint32(40)));
    const QByteArray piece = atom("moof", atom("traf", usual + run)) + atom("mdat", QByteArray(8000, 'x'));
    const auto named = [](const QByteArray &text) {
        return atom("\251ART", atom("data", bigEndian(quint32(1)) + QByteArray(4, '\0') + text));
    };
    const QByteArray artists =
        atom("udta", atom("meta", QByteArray(4, '\0') + atom("ilst", named("One") + named("Two"))));
    write(u"pieces.m4a"_s,
          atom("ftyp", "M4A \0\0\0\0") + atom("moov", atom("trak", media) + artists) + piece + piece);
    EXPECT_EQ(details(u"pieces.m4a"_s),
              (Columns{{13, u"One; Two"_s}, {27, u"00:00:04"_s}, {28, u"\u200E32kbps"_s}}));
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
