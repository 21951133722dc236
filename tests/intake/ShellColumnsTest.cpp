// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/ShellColumns.h"
#include "intake/MusicItem.h"
#include "intake/NewSong.h"
#include "intake/ScanReport.h"
#include "platform/shell/Shell.h"
#include "support/Files.h"

#include <QHash>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

class ColumnItem final : public shell::Item
{
public:
    ColumnItem(QString name, QHash<int, QString> columns)
        : m_name(std::move(name)), m_columns(std::move(columns))
    {}
    [[nodiscard]] QString name() const override { return m_name; }
    [[nodiscard]] bool isFile() const override { return true; }
    [[nodiscard]] QString detail(int column) const override { return m_columns.value(column); }
    [[nodiscard]] QString readFailure() const override { return {}; }

private:
    QString m_name;
    QHash<int, QString> m_columns;
};

NewSong songOf(const QHash<int, QString> &columns, int versionMajor)
{
    NewSong song;
    song.write(u"FileName"_s, u"song.mp3"_s);
    ScanReport report{{}};
    fillFromShellColumns(ColumnItem(u"song.mp3"_s, columns), versionMajor, song, report);
    completeBitRate(song);
    return song;
}

QString joined(const NewSong &song)
{
    QStringList values;
    for (const auto &[field, value] : song)
        values += field + u'=' + value.toString();
    return values.join(u'|');
}

} // namespace

TEST(ShellColumns, MapToTheFieldsOfTheirVersion)
{
    QHash<int, QString> columns;
    for (int column = 0; column < 300; ++column)
        columns[column] = QString::number(column);
    EXPECT_EQ(joined(songOf(columns, 5)),
              u"FileName=song.mp3|SongName=10|Artist=16|AlbumName=17|Genre=20|Duration=21|Year=18|Notes=14|"
              "bitRate=022|TrackText=19|TrackNum=19"_s);
    EXPECT_EQ(
        joined(songOf(columns, 6)),
        u"FileName=song.mp3|SongName=21|Artist=13|Composer=220|AlbumName=14|Genre=16|Duration=27|Year=15|"
        "Notes=24|BPM=237|bitRate=028|TrackText=26|TrackNum=26|AlbumArtist=217|Disc=251"_s);
    EXPECT_EQ(joined(songOf({}, 6)),
              u"FileName=song.mp3|SongName=song.mp3|Artist=Unknown|Composer=|AlbumName=|Genre=|"
              "Duration=|Year=|Notes=|BPM=|bitRate=|TrackText=|AlbumArtist=|Disc="_s);
}

TEST(ShellColumns, KeepWhatTheFieldsHold)
{
    const QString longText(300, u'x');
    const std::tuple<int, int, QString, const char16_t *, QString> cases[] = {
        {6, 21, u"  two blanks  "_s, u"SongName", u"two blanks"_s},
        {5, 10, u"  two blanks  "_s, u"SongName", u"  two blanks  "_s},
        {6, 21, QString(254, u'x') + u"  y"_s, u"SongName", QString(254, u'x')},
        {5, 16, u" "_s, u"Artist", u"Unknown"_s},
        {6, 13, longText, u"Artist", longText.left(255)},
        {6, 27, u"00:03:51.7"_s, u"Duration", u"00:03:51"_s},
        {6, 15, u"1976-10-11T00"_s, u"Year", u"1976-10-11"_s},
        {6, 24, longText, u"Notes", longText},
        {6, 26, u"3/12"_s, u"TrackText", u"3/12"_s},
        {6, 26, u"3/12"_s, u"TrackNum", u""_s},
        {6, 26, u"12345678901234"_s, u"TrackNum", u"1234567890"_s},
        {6, 26, u"1e999"_s, u"TrackNum", u""_s},
        {6, 237, u"128.35 BPM"_s, u"BPM", u"128.3"_s},
        {6, 237, u"fast"_s, u"BPM", u""_s},
        {6, 227, u"allegro"_s, u"BPM", u"alleg"_s},
        {6, 28, u"\u200E192kbps"_s, u"bitRate", u"192kbps"_s},
        {5, 22, u"?96kbps"_s, u"bitRate", u"096kbps"_s},
        {6, 28, u"96kbps"_s, u"bitRate", u"096kbps"_s},
        {6, 28, u"99kbps"_s, u"bitRate", u"99kbps"_s},
        {6, 28, u"8 of a long bit rate!"_s, u"bitRate", u"8 of a long bit rate"_s},
    };
    for (const auto &[version, column, text, field, value] : cases) {
        const NewSong song = songOf({{column, text}}, version);
        EXPECT_EQ(song.text(QString::fromUtf16(field)), value)
            << version << ' ' << column << ' ' << text.toStdString();
    }
    EXPECT_EQ(songOf({{237, u"?"_s}, {231, u"x"_s}, {219, u"y"_s}, {204, u"77"_s}, {243, u"88"_s}}, 6)
                  .text(u"BPM"_s),
              u"77"_s)
        << "the first numeric one in the order of trying";
}

TEST(ShellColumns, GiveTheSizeInMegabytes)
{
    const std::pair<const char16_t *, double> cases[] = {
        {u"4.39 MB", 4.39},
        {u"512 KB", 0.5},
        {u"1,234 KB", 1.0 / 1024},
        {u"512 bytes", 512.0 / 1048576},
        {u"1 byte", 1 / 1048576.0},
        {u"2.5 GB", 2.5},
        {u"", 0},
    };
    for (const auto &[text, megabytes] : cases) {
        NewSong song;
        fillSize(ColumnItem({}, {{1, QString::fromUtf16(text)}}), song);
        EXPECT_DOUBLE_EQ(song.value(u"FileSizeNum"_s).toDouble(), megabytes)
            << QString::fromUtf16(text).toStdString();
        EXPECT_EQ(song.text(u"FileSize"_s), QString::fromUtf16(text));
    }
}

TEST(MusicItem, IsKnownByItsTailOrByItsTypeText)
{
    const QTemporaryDir dir;
    const QString folder = dir.path() + u'/';
    for (const char16_t *name : {u"clip.ogg", u"clip.flac", u"both.m4a", u"both.flac"})
        writeFile(folder + QString::fromUtf16(name));
    const std::tuple<const char16_t *, const char16_t *, bool, const char16_t *, const char16_t *> cases[] = {
        {u"a.mp3", u"", false, u"a.mp3", u"MP3"},
        {u"Track.FLAC", u"", false, u"Track.FLAC", u"FLAC"},
        {u"aflac", u"", false, u"aflac", u"FLAC"},
        {u".ogg", u"", false, u".ogg", u"OGG"},
        {u"mp3", u"MP3 audio", false, nullptr, u""},
        {u"a.mp3.txt", u"", false, nullptr, u""},
        {u"a", u"MP3 Format Sound", true, u"a.mp3", u"MP3"},
        {u"a", u"MP4 audio of an mp3 player", true, u"a.mp3", u"MP3"},
        {u"a", u"MP4 Video", true, u"a.m4a", u"M4A"},
        {u"a", u"MPEG-4 Audio", true, u"a.m4a", u"M4A"},
        {u"a", u"Windows Media Audio file", true, u"a.wma", u"WMA"},
        {u"a", u"FLAC sound", true, u"a.flac", u"FLAC"},
        {u"clip", u"Video clip", true, u"clip.ogg", u"OGG"},
        {u"both", u"Video clip", true, u"both.m4a", u"M4A"},
        {u"none", u"Video clip", true, nullptr, u""},
        {u"a.mp3", u"Text", true, nullptr, u""},
        {u"a.mp3", u"MP3 sound", true, u"a.mp3.mp3", u"MP3"},
    };
    for (const auto &[name, type, hidden, fileName, fileType] : cases) {
        const ColumnItem item(QString::fromUtf16(name), {{2, QString::fromUtf16(type)}});
        const auto found = musicItemOf(item, folder, hidden);
        ASSERT_EQ(found.has_value(), fileName != nullptr) << QString::fromUtf16(name).toStdString();
        if (found) {
            EXPECT_EQ(found->FileName, QString::fromUtf16(fileName));
            EXPECT_EQ(found->fileType(), QString::fromUtf16(fileType));
        }
    }
}

} // namespace quaverly::test
