// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/NextSong.h"

#include "desktop/FileHelpers.h"
#include "player/SongColumns.h"
#include "songlist/ListTexts.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace quaverly {

qint64 randomRow(double random, qint64 rows)
{
    // Ties go to the even number.
    return std::llrint(std::nearbyint(random * static_cast<double>(rows - 1)));
}

NextSong::NextSong(Catalogue &catalogue, QString displayedSetSql, std::function<double()> random)
    : m_catalogue(catalogue), m_displayedSetSql(std::move(displayedSetSql)), m_random(std::move(random))
{}

std::optional<NextSongFile> NextSong::find(NextMode mode, const QString &currentUrl)
{
    open();
    dao::Recordset &songs = *m_nextSongRecordset;
    if (songs.isEmpty())
        return std::nullopt;
    if (mode == NextMode::Random)
        songs.setAbsolutePosition(randomRow(m_random(), songs.RecordCount()));
    else if (!moveBehind(currentUrl))
        return std::nullopt;
    return NextSongFile{songs.text(u"PathName"_s), songs.text(u"FileName"_s), songs.text(u"SongName"_s),
                        songs.text(u"Artist"_s)};
}

void NextSong::open()
{
    if (m_nextSongRecordset)
        return;
    m_nextSongRecordset = m_catalogue.CatalogueDb->OpenRecordset(
        withColumns(m_displayedSetSql, u"FileName, PathName, SongName, Artist"_s),
        dao::RecordsetType::Snapshot);
}

bool NextSong::moveBehind(const QString &url)
{
    dao::Recordset &songs = *m_nextSongRecordset;
    const QString folder = folderOf(url);
    const QString name = fileNameOf(url);
    const QString criteria = u"PathName="_s + quoted(folder) + u" And FileName="_s + quoted(name);
    // The store is blind to case, the file system is not.
    const auto isExact = [&] {
        return songs.text(u"PathName"_s) == folder && songs.text(u"FileName"_s) == name;
    };
    songs.FindFirst(criteria);
    while (!songs.NoMatch() && !isExact())
        songs.FindNext(criteria);
    if (songs.NoMatch())
        return false;
    songs.MoveNext();
    return !songs.atEOF();
}

} // namespace quaverly
