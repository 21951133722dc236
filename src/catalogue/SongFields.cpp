// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/SongFields.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

using enum dao::FieldType;

// clang-format off
// Name, type, width, column in the grid, its heading, looked at by Find, offered for filters, characters, to the right.
constexpr SongField Fields[] = {
    {"RecordID"_L1, Long, 0, -1, ""_L1, Searched::AsText, false},
    {"Selected"_L1, Text, 1, 0, ""_L1, Searched::No, false, 3},
    {"SongName"_L1, Text, 255, 1, "Song Name"_L1, Searched::AsText, true, 34},
    {"Artist"_L1, Text, 255, 2, "Artist/Performer"_L1, Searched::AsText, true, 28},
    {"ID"_L1, Text, 10, 15, "ID"_L1, Searched::AsText, true, 10},
    {"BPM"_L1, Text, 5, 16, "BPM"_L1, Searched::AsText, true, 7, true},
    {"Composer"_L1, Text, 255, 7, "Composer/Writer"_L1, Searched::AsText, true, 20},
    {"AlbumName"_L1, Text, 255, 4, "Album Name"_L1, Searched::AsText, true, 26},
    {"Genre"_L1, Text, 255, 8, "Genre"_L1, Searched::AsText, true, 16},
    {"Bitrate"_L1, Text, 20, 14, "Bitrate"_L1, Searched::No, true, 11, true},
    {"Duration"_L1, Text, 8, 13, "Duration"_L1, Searched::AsText, true, 11, true},
    {"TrackText"_L1, Text, 10, 5, "Track"_L1, Searched::AsText, true, 8, true},
    {"TrackNum"_L1, Double, 0, -1, ""_L1, Searched::No, false},
    {"FileSize"_L1, Text, 20, 12, "File Size"_L1, Searched::AsText, true, 11, true},
    {"FileSizeNum"_L1, Double, 0, -1, ""_L1, Searched::No, false},
    {"FileType"_L1, Text, 4, 11, "Type"_L1, Searched::No, true, 7},
    {"PathName"_L1, Text, 255, 9, "Path Name"_L1, Searched::AsText, true, 40},
    {"FileName"_L1, Text, 255, 10, "File Name"_L1, Searched::AsText, true, 32},
    {"Rating"_L1, Text, 255, 6, "Rating"_L1, Searched::AsText, true, 10},
    {"Year"_L1, Text, 10, 3, "Year"_L1, Searched::AsText, true, 7, true},
    {"PurchaseDate"_L1, Date, 0, 17, "Purchase Date"_L1, Searched::AsDate, true, 16},
    {"Date2_Desc"_L1, Text, 255, 18, "Date 2 Description"_L1, Searched::No, false, 20},
    {"Date2"_L1, Date, 0, 19, "Date 2"_L1, Searched::AsDate, true, 12},
    {"MiscField1_Desc"_L1, Text, 255, 21, "Misc Field1 Desc"_L1, Searched::No, false},
    {"MiscField1"_L1, Text, 255, 22, "MiscField1"_L1, Searched::AsText, true},
    {"MiscField2_Desc"_L1, Text, 255, 23, "Misc Field2 Desc"_L1, Searched::No, false},
    {"MiscField2"_L1, Text, 255, 24, "MiscField2"_L1, Searched::AsText, true},
    {"MiscField3_Desc"_L1, Text, 255, 25, "Misc Field3 Desc"_L1, Searched::No, false},
    {"MiscField3"_L1, Text, 255, 26, "MiscField3"_L1, Searched::AsText, true},
    {"Code"_L1, Text, 255, -1, ""_L1, Searched::AsText, true},
    {"DateUpdated"_L1, Date, 0, 20, "Date Updated"_L1, Searched::AsDate, true, 21},
    {"Notes"_L1, Memo, 0, 27, "Notes"_L1, Searched::AsText, true, 50},
    {"PicturePath1"_L1, Text, 255, -1, ""_L1, Searched::AsText, false},
    {"PicturePath2"_L1, Text, 255, -1, ""_L1, Searched::AsText, false},
    {"PicturePath3"_L1, Text, 255, -1, ""_L1, Searched::AsText, false},
    {"PicturePath4"_L1, Text, 255, -1, ""_L1, Searched::AsText, false},
    {"PicturePath5"_L1, Text, 255, -1, ""_L1, Searched::AsText, false},
    {"PicturePath6"_L1, Text, 255, -1, ""_L1, Searched::AsText, false},
    {"PicturePath7"_L1, Text, 255, -1, ""_L1, Searched::AsText, false},
    {"PicturePath8"_L1, Text, 255, -1, ""_L1, Searched::AsText, false},
    {"Lyrics"_L1, Memo, 0, -1, ""_L1, Searched::No, false},
    {"Credits"_L1, Memo, 0, -1, ""_L1, Searched::No, false},
    {"AlbumArtist"_L1, Text, 255, 28, "Album Artist"_L1, Searched::AsText, true, 24},
    {"Disc"_L1, Text, 10, 29, "Disc"_L1, Searched::AsText, true, 7, true},
    {"DateAdded"_L1, Date, 0, 30, "Date Added"_L1, Searched::AsDate, true, 21},
};
// clang-format on

constexpr auto ColumnCount =
    std::ranges::count_if(Fields, [](const SongField &field) { return field.gridColumn >= 0; });

constexpr std::array<const SongField *, ColumnCount> Columns = [] {
    std::array<const SongField *, ColumnCount> columns{};
    for (const SongField &field : Fields) {
        if (field.gridColumn >= 0)
            columns[static_cast<std::size_t>(field.gridColumn)] = &field;
    }
    return columns;
}();

} // namespace

std::span<const SongField> songFields()
{
    return Fields;
}

std::span<const SongField> laterFields()
{
    return std::span(
        std::ranges::find_if(Fields, [](const SongField &field) { return field.gridColumn >= FirstColumns; }),
        std::end(Fields));
}

std::span<const SongField *const> gridColumns()
{
    return Columns;
}

const SongField *songField(QStringView name)
{
    const auto *const found = std::ranges::find_if(
        Fields, [&](const SongField &field) { return name.compare(field.name, Qt::CaseInsensitive) == 0; });
    return found == std::end(Fields) ? nullptr : found;
}

} // namespace quaverly
