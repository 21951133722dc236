// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/SortOrders.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

// clang-format off
// Fields that a play list's rows have too bear the table's name.
constexpr SortOrder Orders[] = {
    {"Album Name"_L1, " Order By tblContacts!AlbumName, tblContacts!TrackNum"_L1, "AlbumName"_L1},
    {"Artist"_L1, " Order By Artist, SongName"_L1, "Artist"_L1},
    {"Bitrate"_L1, " Order By Bitrate"_L1, "Bitrate"_L1},
    {"BPM"_L1, " Order By BPM"_L1, "BPM"_L1},
    {"Code"_L1, " Order By Code"_L1, "Code"_L1},
    {"Composer"_L1, " Order By Composer, SongName"_L1, "Composer"_L1},
    {"Date 2"_L1, " Order By Date2"_L1, "Date2"_L1},
    {"Date Updated"_L1, " Order By DateUpdated DESC"_L1, "DateUpdated"_L1},
    {"Duration"_L1, " Order By tblContacts!Duration"_L1, "Duration"_L1},
    {"File Name"_L1, " Order By tblContacts!FileName"_L1, "FileName"_L1},
    {"File Size"_L1, " Order By FileSizeNum"_L1, "FileSizeNum"_L1},
    {"Genre"_L1, " Order By Genre, Artist, SongName"_L1, "Genre"_L1},
    {"ID"_L1, " Order By ID"_L1, "ID"_L1},
    {"Misc Field1"_L1, " Order By MiscField1"_L1, "MiscField1"_L1},
    {"Misc Field2"_L1, " Order By MiscField2"_L1, "MiscField2"_L1},
    {"Misc Field3"_L1, " Order By MiscField3"_L1, "MiscField3"_L1},
    {"Path Name"_L1, " Order By PathName, tblContacts!FileName"_L1, "PathName"_L1},
    {"Purchase Date"_L1, " Order By PurchaseDate"_L1, "PurchaseDate"_L1},
    {"Rating"_L1, " Order By tblContacts!Rating, SongName"_L1, "Rating"_L1},
    {"Song Name"_L1, " Order By SongName, Artist"_L1, "SongName"_L1},
    {"Track"_L1, " Order By TrackNum"_L1, "TrackNum"_L1},
    {"Type"_L1, " Order By FileType"_L1, "FileType"_L1},
    {"Year"_L1, " Order By tblContacts!Year, Artist, SongName"_L1, "Year"_L1},
    {"Album Artist"_L1, " Order By AlbumArtist, tblContacts!AlbumName, Disc, tblContacts!TrackNum"_L1, "AlbumArtist"_L1},
    {"Disc"_L1, " Order By Disc, tblContacts!TrackNum"_L1, "Disc"_L1},
    {"Date Added"_L1, " Order By DateAdded DESC"_L1, "DateAdded"_L1},
};
// clang-format on

} // namespace

std::span<const SortOrder> sortOrders()
{
    return Orders;
}

const SortOrder &sortOrder(QStringView label)
{
    const auto *const found =
        std::ranges::find_if(Orders, [&](const SortOrder &order) { return label == order.label; });
    return found == std::end(Orders) ? sortOrder(QString(DefaultSortLabel)) : *found;
}

} // namespace quaverly
