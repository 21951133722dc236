// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/ShellColumns.h"

#include "intake/NewSong.h"
#include "intake/ScanReport.h"
#include "platform/shell/MusicKinds.h"
#include "platform/shell/Shell.h"
#include "platform/text/Blanks.h"
#include "platform/text/Text.h"

#include <array>
#include <limits>
#include <span>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr qsizetype BitRateLength = 20;
constexpr int AllCharacters = std::numeric_limits<int>::max();

enum class Rule { Plain, SongName, TrimmedSongName, Artist, BPM, BitRate, TrackNum };

struct Column
{
    QStringView field;
    int shell::DetailColumns::*column;
    int kept;
    Rule rule = Rule::Plain;
};

constexpr std::array OldColumns{
    Column{u"SongName", &shell::DetailColumns::title, 255, Rule::SongName},
    Column{u"Artist", &shell::DetailColumns::artist, 255, Rule::Artist},
    Column{u"AlbumName", &shell::DetailColumns::album, 255},
    Column{u"Genre", &shell::DetailColumns::genre, 255},
    Column{u"Duration", &shell::DetailColumns::duration, 8},
    Column{u"Year", &shell::DetailColumns::year, 10},
    Column{u"Notes", &shell::DetailColumns::comment, 255},
    Column{u"bitRate", &shell::DetailColumns::bitRate, BitRateLength, Rule::BitRate},
    Column{u"TrackText", &shell::DetailColumns::track, 10},
    Column{u"TrackNum", &shell::DetailColumns::track, 10, Rule::TrackNum},
};

constexpr std::array NewColumns{
    Column{u"SongName", &shell::DetailColumns::title, 255, Rule::TrimmedSongName},
    Column{u"Artist", &shell::DetailColumns::artist, 255, Rule::Artist},
    Column{u"Composer", &shell::DetailColumns::composer, 255},
    Column{u"AlbumName", &shell::DetailColumns::album, 255},
    Column{u"Genre", &shell::DetailColumns::genre, 255},
    Column{u"Duration", &shell::DetailColumns::duration, 8},
    Column{u"Year", &shell::DetailColumns::year, 10},
    Column{u"Notes", &shell::DetailColumns::comment, AllCharacters},
    Column{u"BPM", &shell::DetailColumns::beats, 5, Rule::BPM},
    Column{u"bitRate", &shell::DetailColumns::bitRate, BitRateLength, Rule::BitRate},
    Column{u"TrackText", &shell::DetailColumns::track, 10},
    Column{u"TrackNum", &shell::DetailColumns::track, 10, Rule::TrackNum},
    Column{u"AlbumArtist", &shell::DetailColumns::albumArtist, 255},
    Column{u"Disc", &shell::DetailColumns::disc, 10},
};

/** Where other versions of the system keep the beats per minute, in the order of trying. */
constexpr std::array OtherBpmColumns{231, 219, 204, 243, 235, 227};

bool isNumericColumn(const QString &text)
{
    return !text.isEmpty() && IsNumeric(text);
}

void fillBpm(const shell::Item &item, const QString &field, int number, int kept, NewSong &song)
{
    QString bpm = keepCharacters(item.detail(number), kept);
    for (auto other = OtherBpmColumns.begin(); other != OtherBpmColumns.end() && !isNumericColumn(bpm);
         ++other)
        bpm = keepCharacters(item.detail(*other), kept);
    song.write(field, bpm);
}

/** The shell puts an invisible mark in front, which a code page without it turns into "?". */
QString withoutMark(const QString &bitRate)
{
    if (bitRate.isEmpty())
        return bitRate;
    const QChar first = bitRate.front();
    return first == u'?' || first.category() == QChar::Other_Format ? bitRate.mid(1) : bitRate;
}

std::span<const Column> columnsOf(int versionMajor)
{
    if (versionMajor <= shell::LastVersionWithOldColumns)
        return OldColumns;
    return NewColumns;
}

void fillColumn(const shell::Item &item, const Column &column, int number, NewSong &song)
{
    const QString field = QString::fromRawData(column.field.data(), column.field.size());
    if (column.rule == Rule::BPM)
        return fillBpm(item, field, number, column.kept, song);

    const QString whole = item.detail(number);
    const QString text = keepCharacters(whole, column.kept);
    switch (column.rule) {
    case Rule::SongName:
        song.write(field, text);
        song.completeSongName();
        break;
    case Rule::TrimmedSongName:
        song.write(field, trimBlanks(text));
        song.completeSongName();
        break;
    case Rule::Artist:
        song.write(field, text);
        song.completeArtist();
        break;
    case Rule::BitRate:
        song.write(field, withoutMark(text));
        break;
    case Rule::TrackNum:
        if (isNumericColumn(whole))
            song.write(field, QVariant(numberOf(text)));
        break;
    default:
        song.write(field, text);
    }
}

} // namespace

void fillSize(const shell::Item &item, NewSong &song)
{
    const QString size = keepCharacters(item.detail(shell::SizeColumn), 20);
    song.write(u"FileSize"_s, size);
    double megabytes = Val(size);
    // Any other unit stands as it is.
    if (size.contains("KB"_L1, Qt::CaseInsensitive))
        megabytes /= 1024;
    else if (size.contains("BYTE"_L1, Qt::CaseInsensitive))
        megabytes /= 1024.0 * 1024.0;
    song.write(u"FileSizeNum"_s, QVariant(megabytes));
}

void fillFromShellColumns(const shell::Item &item, int versionMajor, NewSong &song, ScanReport &report)
{
    const shell::DetailColumns &numbers = shell::detailColumns(versionMajor);
    for (const Column &column : columnsOf(versionMajor))
        report.attempt([&] { fillColumn(item, column, numbers.*column.column, song); });
}

void completeFromShellColumns(const shell::Item &item, int versionMajor, NewSong &song, ScanReport &report)
{
    const shell::DetailColumns &numbers = shell::detailColumns(versionMajor);
    for (const Column &column : columnsOf(versionMajor)) {
        const int number = numbers.*column.column;
        if (isGreaterThanBlank(item.detail(number)))
            report.attempt([&] { fillColumn(item, column, number, song); });
    }
}

void completeBitRate(NewSong &song)
{
    const QString field = u"bitRate"_s;
    if (song.value(field).isNull())
        song.write(field, QString());
    const QString bitRate = song.text(field);
    // A text that fills the field has no room for the "0" and stays as it is.
    if (!bitRate.isEmpty() && bitRate.size() < BitRateLength && Val(bitRate) < 99)
        song.write(field, QString(u'0' + bitRate));
}

} // namespace quaverly
