// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/GenreTable.h"
#include "intake/M4aAtoms.h"
#include "intake/NewSong.h"
#include "intake/SampleBytes.h"
#include "intake/ScanReport.h"
#include "intake/VorbisComment.h"
#include "support/QtPrinters.h"

#include <QBuffer>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

NewSong vorbisSong(const QByteArray &head)
{
    NewSong song;
    song.write(u"FileName"_s, u"song.ogg"_s);
    ScanReport report{{}};
    fillFromVorbisComments(head.left(VorbisHeadBytes), song, report);
    return song;
}

NewSong m4aSong(QByteArray file)
{
    NewSong song;
    song.write(u"FileName"_s, u"song.m4a"_s);
    ScanReport report{{}};
    QBuffer device(&file);
    device.open(QIODevice::ReadOnly);
    fillFromM4aAtoms(device, song, report);
    return song;
}

} // namespace

TEST(Hex, GivesTheNumberAndLeavesItsDigits)
{
    struct Case
    {
        QByteArray bytes;
        qint32 little;
        QByteArray littleDigits;
        qint32 big;
        QByteArray bigDigits;
    };
    const Case cases[] = {
        {"\1\2\3\4"_ba, 0x04030201, "04030201"_ba, 0x01020304, "01020304"_ba},
        {QByteArray(4, '\0'), 0, "00000000"_ba, 0, "00000000"_ba},
        {QByteArray::fromHex("0A000000"), 10, "0000000A"_ba, 0x0A000000, "0A000000"_ba},
        {QByteArray::fromHex("00000080"), qint32(0x80000000), "80000000"_ba, 128, "00000080"_ba},
        {QByteArray::fromHex("ffffffff"), -1, "FFFFFFFF"_ba, -1, "FFFFFFFF"_ba},
    };
    for (const Case &c : cases) {
        QByteArray little = c.bytes;
        QByteArray big = c.bytes;
        EXPECT_EQ(HexLittleEndian(little), c.little);
        EXPECT_EQ(little, c.littleDigits);
        EXPECT_EQ(HexBigEndian(big), c.big);
        EXPECT_EQ(big, c.bigDigits);
    }
    QByteArray longer = "\1\0\0\0tail"_ba;
    EXPECT_EQ(HexLittleEndian(longer), 1);
    QByteArray two = "\1\2"_ba;
    EXPECT_EQ(HexBigEndian(two), 258);
    QByteArray three = "abc"_ba;
    EXPECT_THROW(HexLittleEndian(three), dao::DaoError);
}

TEST(VorbisComment, FindsAValueByItsKeyInAnyCase)
{
    struct Case
    {
        const char *what;
        QByteArray buffer;
        QString artist;
    };
    const QByteArray umlaut =
        QByteArray(990, 'x') + QByteArray::fromHex("0b000000") + "ARTIST=Bj\xC3\xB6rk"_ba;
    const Case cases[] = {
        {"upper case", vorbisComments({"ARTIST=Abba"}), u"Abba"_s},
        {"lower case", vorbisComments({"artist=Abba"}), u"Abba"_s},
        {"the first of two", vorbisComments({"ARTIST=Abba", "ARTIST=Blur"}), u"Abba"_s},
        {"another key in front", vorbisComments({"ALBUMARTIST=Various", "ARTIST=Abba"}), u"Abba"_s},
        {"UTF-8", vorbisComments({"ARTIST=Bj\xC3\xB6rk"}), u"Björk"_s},
        {"Windows-1252", vorbisComments({"ARTIST=Caf\xE9"}), u"Café"_s},
        {"bytes that Latin-1 would fold", vorbisComments({"X=\xE4\xF6", "Artist=\xE4"}), u"ä"_s},
        {"empty value", vorbisComments({"ARTIST="}), u""_s},
        {"place 3", "\5\0\0ARTIST=Abba"_ba, u""_s},
        {"place 4", "\13\0\0\0ARTIST=Abba"_ba, u"Abba"_s},
        {"no such key", vorbisComments({"TITLE=x"}), u""_s},
        {"nothing at all", {}, u""_s},
        {"a length beyond the buffer", "\xff\xff\xff\0ARTIST=Abba"_ba, u"Abba"_s},
        {"half a character at the end", (QByteArray(4, 'x') + "\30\0\0\0ARTIST=Bj\xC3"_ba), u"Bj"_s},
        {"two thirds of one", (QByteArray(4, 'x') + "\30\0\0\0ARTIST=n\xE2\x82"_ba), u"n"_s},
        {"Windows-1252, cut", (QByteArray(4, 'x') + "\30\0\0\0ARTIST=\xE9t\xE9s"_ba), u"étés"_s},
    };
    for (const Case &c : cases)
        EXPECT_EQ(ReadVorbisComment(c.buffer, "\0ARTIST="_ba), c.artist) << c.what;
    EXPECT_THROW((void)ReadVorbisComment("\3\0\0\0ARTIST=Abba"_ba, "\0ARTIST="_ba), dao::DaoError);
    EXPECT_EQ(ReadVorbisComment(umlaut.left(1000), "\0ARTIST="_ba), u""_s) << "the key is cut";
}

TEST(VorbisComment, FillsTheFieldsOfASong)
{
    const QByteArray emoji = QByteArray("\xF0\x9F\x8E\xB5").repeated(150);
    const NewSong song = vorbisSong(vorbisComments({"TITLE=" + emoji, "album=Arrival", "DATE=1976-10-11 CET",
                                                    "genre=Pop", "COMPOSER=Benny", "TRACKNUMBER=07"}));
    EXPECT_EQ(song.text(u"SongName"_s).size(), 254) << "255 characters would end in half of one";
    EXPECT_EQ(song.text(u"Artist"_s), u"Unknown"_s);
    EXPECT_EQ(song.text(u"AlbumName"_s), u"Arrival"_s);
    EXPECT_EQ(song.text(u"Year"_s), u"1976-10-11"_s);
    EXPECT_EQ(song.text(u"Genre"_s), u"Pop"_s);
    EXPECT_EQ(song.text(u"Composer"_s), u"Benny"_s);
    EXPECT_EQ(song.text(u"TrackText"_s), u"07"_s);
    EXPECT_EQ(song.value(u"TrackNum"_s), QVariant(7.0));
    EXPECT_EQ(song.value(u"Notes"_s), QVariant(u""_s));

    const NewSong bare = vorbisSong(vorbisComments({"TRACKNUMBER=3/12", "COMMENT=" + QByteArray(600, 'n')}));
    EXPECT_EQ(bare.text(u"SongName"_s), u"song.ogg"_s);
    EXPECT_EQ(bare.text(u"TrackText"_s), u"3/12"_s);
    EXPECT_TRUE(bare.value(u"TrackNum"_s).isNull());
    EXPECT_EQ(bare.text(u"Notes"_s).size(), 600);

    const NewSong late = vorbisSong(QByteArray(1100, 'x') + vorbisComments({"ARTIST=Abba"}));
    EXPECT_EQ(late.text(u"Artist"_s), u"Unknown"_s) << "tags behind the first 1000 bytes are not seen";
}

TEST(VorbisComment, LeavesAFieldAloneWhoseLengthIsWrong)
{
    const NewSong song = vorbisSong("\3\0\0\0ALBUM=Arrival"_ba + vorbisComments({"GENRE=Pop"}));
    EXPECT_TRUE(song.value(u"AlbumName"_s).isNull());
    EXPECT_EQ(song.text(u"Genre"_s), u"Pop"_s);
}

TEST(GenreTable, HoldsItsOwnSpellings)
{
    const GenreTable genres = LoadGenreTable();
    const std::pair<const char16_t *, const char16_t *> cases[] = {
        {u"0", u"Blues"},
        {u"17", u"Rock"},
        {u"45", u"Meditative "},
        {u"62", u"Pop / Funk"},
        {u"85", u"Bebob"},
        {u"40", u"AlternRock"},
        {u"100", u"Humour"},
        {u"123", u"A Cappella"},
        {u"147", u"Synthpop"},
        {u"148", u""},
        {u"-1", u""},
        {u"017", u""},
        {u"", u""},
    };
    for (const auto &[key, name] : cases)
        EXPECT_EQ(genres.ReadProperty(QString::fromUtf16(key)), QString::fromUtf16(name));
}

TEST(M4aAtoms, FillTheFieldsOfASong)
{
    const NewSong song = m4aSong(
        m4aFile(textAtom("\251nam", "Dancing Queen") + textAtom("\251ART", "Bj\xC3\xB6rk") +
                textAtom("\251alb", "Arrival") + genreAtom(18) + textAtom("\251day", "1976-10-11T00:00:00Z") +
                atom("covr", QByteArray(200000, 'p')) + textAtom("\251wrt", QByteArray(300, 'w'))));
    EXPECT_EQ(song.text(u"SongName"_s), u"Dancing Queen"_s);
    EXPECT_EQ(song.text(u"Artist"_s), u"Björk"_s);
    EXPECT_EQ(song.text(u"AlbumName"_s), u"Arrival"_s);
    EXPECT_EQ(song.text(u"Genre"_s), u"Rock"_s);
    EXPECT_EQ(song.text(u"Year"_s), u"1976-10-11"_s);
    EXPECT_EQ(song.text(u"Composer"_s).size(), 255);
}

TEST(M4aAtoms, FollowTheirOddRules)
{
    struct Case
    {
        const char *what;
        QByteArray list;
        const char16_t *field;
        const char16_t *value;
    };
    const QByteArray five = textAtom("\251nam", "n") + textAtom("\251ART", "a") + genreAtom(1) +
                            textAtom("\251gen", "g") + textAtom("\251day", "1");
    const Case cases[] = {
        {"the first title stays", textAtom("\251nam", "one") + textAtom("\251nam", "two"), u"SongName",
         u"one"},
        {"a blank one does not", textAtom("\251nam", "  ") + textAtom("\251nam", "two"), u"SongName", u"two"},
        {"the last album wins", textAtom("\251alb", "one") + textAtom("\251alb", "two"), u"AlbumName",
         u"two"},
        {"genre 0 has no name", genreAtom(0), u"Genre", u""},
        {"the text genre comes later", genreAtom(18) + textAtom("\251gen", "Schlager"), u"Genre",
         u"Schlager"},
        {"the sixth is taken", five + textAtom("\251wrt", "w"), u"Composer", u"w"},
        {"the seventh is not", five + textAtom("\251day", "2") + textAtom("\251wrt", "w"), u"Composer", u""},
        {"the album doesn't count", five + textAtom("\251alb", "b") + textAtom("\251wrt", "w"), u"Composer",
         u"w"},
        {"free ends the list", atom("free", {}) + textAtom("\251nam", "n"), u"SongName", u"song.m4a"},
        {"mdat ends the list", atom("mdat", {}) + textAtom("\251ART", "a"), u"Artist", u"Unknown"},
        {"too small for a value", atom("\251alb", QByteArray(10, 'x')) + textAtom("\251nam", "n"),
         u"AlbumName", u""},
        {"and the next is read", atom("\251alb", QByteArray(10, 'x')) + textAtom("\251nam", "n"), u"SongName",
         u"n"},
        {"an empty value", textAtom("\251alb", ""), u"AlbumName", u""},
    };
    for (const Case &c : cases)
        EXPECT_EQ(m4aSong(m4aFile(c.list)).text(QString::fromUtf16(c.field)), QString::fromUtf16(c.value))
            << c.what;
}

TEST(M4aAtoms, EndOnWhatCannotBeRead)
{
    const QByteArray good = m4aFile(textAtom("\251nam", "found"));
    for (const char *size :
         {"00000000", "00000004", "00000007", "7fffffff", "80000000", "ffffffff", "00001000"}) {
        const QByteArray hostile = good + QByteArray::fromHex(size) + "\251ARTxxxxdata"_ba;
        EXPECT_EQ(m4aSong(hostile).text(u"SongName"_s), u"found"_s) << size;
        EXPECT_EQ(m4aSong(hostile).text(u"Artist"_s), u"Unknown"_s) << size;
        // In the fixed head there is nothing to be found then.
        EXPECT_EQ(m4aSong(QByteArray::fromHex(size) + good.mid(4)).text(u"SongName"_s), u"song.m4a"_s)
            << size;
    }
    for (qsizetype length = 0; length < good.size(); ++length)
        EXPECT_EQ(m4aSong(good.left(length)).text(u"SongName"_s), u"song.m4a"_s) << length;
    const QByteArray moovBehindMdat = good.left(24) + atom("mdat", QByteArray(500, 'm')) + good.mid(24);
    EXPECT_EQ(m4aSong(moovBehindMdat).text(u"SongName"_s), u"song.m4a"_s);
}

} // namespace quaverly::test
