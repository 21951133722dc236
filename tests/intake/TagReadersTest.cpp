// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/M4aAtoms.h"
#include "intake/NewSong.h"
#include "intake/ScanReport.h"
#include "intake/VorbisComment.h"
#include "support/QtPrinters.h"
#include "support/TagBytes.h"

#include <QBuffer>

using namespace Qt::StringLiterals;
using namespace tagbytes;

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

TEST(VorbisComment, FindsAValueByItsKeyInAnyCase)
{
    const QByteArray umlaut =
        QByteArray(990, 'x') + QByteArray::fromHex("0b000000") + "ARTIST=Bj\xC3\xB6rk"_ba;
    const std::tuple<const char *, QByteArray, QString> cases[] = {
        {"upper case", vorbisComments({"ARTIST=Abba"}), u"Abba"_s},
        {"the first of two", vorbisComments({"ARTIST=Abba", "ARTIST=Blur"}), u"Abba"_s},
        {"another key in front", vorbisComments({"ALBUMARTIST=Various", "ARTIST=Abba"}), u"Abba"_s},
        {"UTF-8", vorbisComments({"ARTIST=Bj\xC3\xB6rk"}), u"Björk"_s},
        {"Windows-1252", vorbisComments({"ARTIST=Caf\xE9"}), u"Café"_s},
        {"bytes that Latin-1 would fold", vorbisComments({"X=\xE4\xF6", "Artist=\xE4"}), u"ä"_s},
        {"place 3", "\5\0\0ARTIST=Abba"_ba, u""_s},
        {"place 4", "\13\0\0\0ARTIST=Abba"_ba, u"Abba"_s},
        {"nothing at all", {}, u""_s},
        {"a length beyond the buffer", "\xff\xff\xff\0ARTIST=Abba"_ba, u"Abba"_s},
        {"half a character at the end", (QByteArray(4, 'x') + "\30\0\0\0ARTIST=Bj\xC3"_ba), u"Bj"_s},
        {"two thirds of one", (QByteArray(4, 'x') + "\30\0\0\0ARTIST=n\xE2\x82"_ba), u"n"_s},
        {"Windows-1252, cut", (QByteArray(4, 'x') + "\30\0\0\0ARTIST=\xE9t\xE9s"_ba), u"étés"_s},
    };
    for (const auto &[what, buffer, artist] : cases)
        EXPECT_EQ(ReadVorbisComment(buffer, "\0ARTIST="_ba), artist) << what;
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
    for (const auto &[field, text] : {std::pair{u"AlbumName"_s, u"Arrival"_s},
                                      {u"Year"_s, u"1976-10-11"_s},
                                      {u"Genre"_s, u"Pop"_s},
                                      {u"Composer"_s, u"Benny"_s},
                                      {u"TrackText"_s, u"07"_s},
                                      {u"TrackNum"_s, u"7"_s}})
        EXPECT_EQ(song.text(field), text);
    EXPECT_EQ(song.value(u"Notes"_s), QVariant(u""_s));

    const NewSong bare = vorbisSong(vorbisComments({"TRACKNUMBER=3/12", "COMMENT=" + QByteArray(600, 'n')}));
    EXPECT_EQ(bare.text(u"SongName"_s), u"song.ogg"_s);
    EXPECT_EQ(bare.text(u"TrackText"_s), u"3/12"_s);
    EXPECT_TRUE(bare.value(u"TrackNum"_s).isNull());
    EXPECT_EQ(bare.text(u"Notes"_s).size(), 600);

    const NewSong late = vorbisSong(QByteArray(1100, 'x') + vorbisComments({"ARTIST=Abba"}));
    EXPECT_EQ(late.text(u"Artist"_s), u"Unknown"_s) << "tags behind the first 1000 bytes are not seen";

    const NewSong wrongLength = vorbisSong("\3\0\0\0ALBUM=Arrival"_ba + vorbisComments({"GENRE=Pop"}));
    EXPECT_TRUE(wrongLength.value(u"AlbumName"_s).isNull());
    EXPECT_EQ(wrongLength.text(u"Genre"_s), u"Pop"_s);
}

TEST(M4aAtoms, FollowTheirOddRules)
{
    const QByteArray five = itemAtom("\251nam", "n") + itemAtom("\251ART", "a") +
                            itemAtom("gnre", QByteArray("\0\1", 2)) + itemAtom("\251gen", "g") +
                            itemAtom("\251day", "1");
    const std::tuple<const char *, QByteArray, const char16_t *, const char16_t *> cases[] = {
        {"UTF-8", itemAtom("\251ART", "Bj\xC3\xB6rk"), u"Artist", u"Björk"},
        {"a date", itemAtom("\251day", "1976-10-11T00:00:00Z"), u"Year", u"1976-10-11"},
        {"a numeric genre", itemAtom("gnre", QByteArray("\0\22", 2)), u"Genre", u"Rock"},
        {"a picture in front", atom("covr", QByteArray(200000, 'p')) + itemAtom("\251wrt", "w"), u"Composer",
         u"w"},
        {"the first title stays", itemAtom("\251nam", "one") + itemAtom("\251nam", "two"), u"SongName",
         u"one"},
        {"a blank one does not", itemAtom("\251nam", "  ") + itemAtom("\251nam", "two"), u"SongName", u"two"},
        {"the last album wins", itemAtom("\251alb", "one") + itemAtom("\251alb", "two"), u"AlbumName",
         u"two"},
        {"genre 0 has no name", itemAtom("gnre", QByteArray("\0\0", 2)), u"Genre", u""},
        {"the text genre comes later",
         itemAtom("gnre", QByteArray("\0\22", 2)) + itemAtom("\251gen", "Schlager"), u"Genre", u"Schlager"},
        {"the sixth is taken", five + itemAtom("\251wrt", "w"), u"Composer", u"w"},
        {"the seventh is not", five + itemAtom("\251day", "2") + itemAtom("\251wrt", "w"), u"Composer", u""},
        {"the album doesn't count", five + itemAtom("\251alb", "b") + itemAtom("\251wrt", "w"), u"Composer",
         u"w"},
        {"free ends the list", atom("free", {}) + itemAtom("\251nam", "n"), u"SongName", u"song.m4a"},
        {"mdat ends the list", atom("mdat", {}) + itemAtom("\251ART", "a"), u"Artist", u"Unknown"},
        {"too small for a value", atom("\251alb", QByteArray(10, 'x')) + itemAtom("\251nam", "n"),
         u"AlbumName", u""},
        {"and the next is read", atom("\251alb", QByteArray(10, 'x')) + itemAtom("\251nam", "n"), u"SongName",
         u"n"},
        {"an empty value", itemAtom("\251alb", ""), u"AlbumName", u""},
    };
    for (const auto &[what, list, field, value] : cases)
        EXPECT_EQ(m4aSong(m4aFile(list)).text(QString::fromUtf16(field)), QString::fromUtf16(value)) << what;
}

TEST(M4aAtoms, EndOnWhatCannotBeRead)
{
    const QByteArray good = m4aFile(itemAtom("\251nam", "found"));
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
