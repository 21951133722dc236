// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/DuplicateQueries.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

// A query may name one that is made behind it: names are only looked up when it runs.
constexpr DuplicateQuery Queries[] = {
    {"qryDuplicateSongs"_L1,
     "SELECT * FROM tblContacts INNER JOIN qtotDupSongNames ON (tblContacts.FileSize = "
     "qtotDupSongNames.AFileSize) AND (tblContacts.SongName = qtotDupSongNames.ASongName) "
     "AND (tblContacts.Artist = qtotDupSongNames.AArtist) ORDER BY tblContacts.Artist, "
     "tblContacts.SongName, tblContacts.FileSize"_L1},
    {"qryShowDuplicatesToBeDeleted"_L1,
     "SELECT qryDuplicateSongs.* FROM qryDuplicateSongs INNER JOIN qtotDupSongNames ON "
     "(qryDuplicateSongs.SongName = qtotDupSongNames.ASongName) AND "
     "(qryDuplicateSongs.Artist = qtotDupSongNames.AArtist) AND "
     "(qryDuplicateSongs.FileSize = qtotDupSongNames.AFileSize)WHERE "
     "(((qryDuplicateSongs.RecordID)<>[FirstRecordID])) ORDER BY "
     "qryDuplicateSongs.Artist, qryDuplicateSongs.SongName, qryDuplicateSongs.FileSize"_L1},
    {"qtotDupSongNames"_L1, "SELECT tblContacts.Artist AS AArtist, tblContacts.SongName AS ASongName, "
                            "tblContacts.FileSize AS AFileSize, First(tblContacts.RecordID) AS FirstRecordID "
                            "From tblContacts GROUP BY tblContacts.Artist, tblContacts.SongName, "
                            "tblContacts.FileSize HAVING (((Count(tblContacts.SongName))>1))"_L1},
    {"qdelDuplicates"_L1, "DELETE DISTINCTROW tblContacts.* FROM tblContacts INNER JOIN "
                          "qryShowDuplicatesToBeDeleted ON tblContacts.RecordID = "
                          "qryShowDuplicatesToBeDeleted.RecordID"_L1},
    {"qryDuplicateSongsAlbum"_L1,
     "SELECT * FROM tblContacts INNER JOIN qtotDupSongNamesAlbum ON "
     "(tblContacts.AlbumName = qtotDupSongNamesAlbum.AAlbum) AND (tblContacts.SongName = "
     "qtotDupSongNamesAlbum.ASongName) AND (tblContacts.Artist = "
     "qtotDupSongNamesAlbum.AArtist) ORDER BY tblContacts.Artist, tblContacts.SongName, "
     "tblContacts.AlbumName"_L1},
    {"qryShowDuplicatesToBeDeletedAlbum"_L1,
     "SELECT qryDuplicateSongsAlbum.* FROM qryDuplicateSongsAlbum INNER JOIN "
     "qtotDupSongNamesAlbum ON (qryDuplicateSongsAlbum.SongName = "
     "qtotDupSongNamesAlbum.ASongName) AND (qryDuplicateSongsAlbum.Artist = "
     "qtotDupSongNamesAlbum.AArtist) AND (qryDuplicateSongsAlbum.AlbumName = "
     "qtotDupSongNamesAlbum.AAlbum)WHERE "
     "(((qryDuplicateSongsAlbum.RecordID)<>[FirstRecordID])) ORDER BY "
     "qryDuplicateSongsAlbum.Artist, qryDuplicateSongsAlbum.SongName, "
     "qryDuplicateSongsAlbum.AlbumName"_L1},
    {"qtotDupSongNamesAlbum"_L1,
     "SELECT tblContacts.Artist AS AArtist, tblContacts.SongName AS ASongName, "
     "tblContacts.AlbumName AS AAlbum, First(tblContacts.RecordID) AS FirstRecordID From "
     "tblContacts GROUP BY tblContacts.Artist, tblContacts.SongName, "
     "tblContacts.AlbumName HAVING (((Count(tblContacts.SongName))>1))"_L1},
    {"qdelDuplicatesAlbum"_L1, "DELETE DISTINCTROW tblContacts.* FROM tblContacts INNER JOIN "
                               "qryShowDuplicatesToBeDeletedAlbum ON tblContacts.RecordID = "
                               "qryShowDuplicatesToBeDeletedAlbum.RecordID"_L1},
};

constexpr std::size_t GroupSize = 4;

bool isMissing(const dao::Database &database, const DuplicateQuery &query)
{
    try {
        return database.QueryDefs(query.name).Name.isEmpty();
    } catch (const dao::DaoError &error) {
        return error.number == dao::ItemNotFound;
    }
}

void create(dao::Database &database, const DuplicateQuery &query)
{
    try {
        database.CreateQueryDef(query.name, query.sql);
    } catch (const dao::DaoError &) {
        // One that is there already, or a catalogue that can only be read: the views say so when used.
    }
}

} // namespace

std::span<const DuplicateQuery> duplicateQueries()
{
    return Queries;
}

bool isDuplicateViewName(const QString &recordSource)
{
    return std::ranges::any_of(Queries, [&](const DuplicateQuery &query) {
        return query.name.startsWith("qry"_L1) && recordSource == query.name;
    });
}

void ensureDuplicateQueries(dao::Database &database)
{
    const std::span all(Queries);
    for (std::size_t first = 0; first < all.size(); first += GroupSize) {
        if (!isMissing(database, all[first]))
            continue;
        for (const DuplicateQuery &query : all.subspan(first, GroupSize))
            create(database, query);
    }
}

} // namespace quaverly
