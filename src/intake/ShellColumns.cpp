// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/ShellColumns.h"

#include "intake/NewSong.h"
#include "intake/ScanReport.h"
#include "platform/shell/Shell.h"
#include "platform/text/Blanks.h"
#include "platform/text/Text.h"

#include <array>
#include <limits>
#include <span>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int SizeColumn = 1;
constexpr qsizetype BitRateLength = 20;
constexpr int AllCharacters = std::numeric_limits<int>::max();

enum class Rule { Plain, SongName, TrimmedSongName, Artist, BPM, BitRate, TrackNum };

struct Column
{
    QStringView field;
    int column;
    int kept;
    Rule rule = Rule::Plain;
};

constexpr std::array OldColumns{
    Column{u"SongName", 10, 255, Rule::SongName},
    Column{u"Artist", 16, 255, Rule::Artist},
    Column{u"AlbumName", 17, 255},
    Column{u"Genre", 20, 255},
    Column{u"Duration", 21, 8},
    Column{u"Year", 18, 10},
    Column{u"Notes", 14, 255},
    Column{u"bitRate", 22, BitRateLength, Rule::BitRate},
    Column{u"TrackText", 19, 10},
    Column{u"TrackNum", 19, 10, Rule::TrackNum},
};

constexpr std::array NewColumns{
    Column{u"SongName", 21, 255, Rule::TrimmedSongName},
    Column{u"Artist", 13, 255, Rule::Artist},
    Column{u"Composer", 220, 255},
    Column{u"AlbumName", 14, 255},
    Column{u"Genre", 16, 255},
    Column{u"Duration", 27, 8},
    Column{u"Year", 15, 10},
    Column{u"Notes", 24, AllCharacters},
    Column{u"BPM", 237, 5, Rule::BPM},
    Column{u"bitRate", 28, BitRateLength, Rule::BitRate},
    Column{u"TrackText", 26, 10},
    Column{u"TrackNum", 26, 10, Rule::TrackNum},
};

/** Where other versions of the system keep the beats per minute, in the order of trying. */
constexpr std::array OtherBpmColumns{231, 219, 204, 243, 235, 227};

bool isNumericColumn(const QString &text)
{
    return !text.isEmpty() && IsNumeric(text);
}

void fillBpm(const shell::Item &item, const QString &field, const Column &column, NewSong &song)
{
    QString bpm = keepCharacters(item.detail(column.column), column.kept);
    for (auto other = OtherBpmColumns.begin(); other != OtherBpmColumns.end() && !isNumericColumn(bpm);
         ++other)
        bpm = keepCharacters(item.detail(*other), column.kept);
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

void fillColumn(const shell::Item &item, const Column &column, NewSong &song)
{
    const QString field = QString::fromRawData(column.field.data(), column.field.size());
    if (column.rule == Rule::BPM)
        return fillBpm(item, field, column, song);

    const QString whole = item.detail(column.column);
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
    const QString size = keepCharacters(item.detail(SizeColumn), 20);
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
    const std::span<const Column> columns = versionMajor <= LastVersionWithOldColumns
                                                ? std::span<const Column>(OldColumns)
                                                : std::span<const Column>(NewColumns);
    for (const Column &column : columns)
        report.attempt([&] { fillColumn(item, column, song); });
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
