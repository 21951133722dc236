// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlists/PlayListTracks.h"

#include "desktop/PreviewQuestion.h"
#include "platform/text/Text.h"
#include "player/SongColumns.h"
#include "playlists/TrackPreview.h"
#include "songlist/DataControl.h"
#include "songlist/ListTexts.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

QString columnsOfTracks()
{
    return u"RecordID, SongName, Artist, AlbumName, TrackText, PathName, FileName, Duration, Year, Rating"_s;
}

} // namespace

QString countStatement(const QString &recordSource)
{
    const QString source = conditionOf(recordSource);
    const qsizetype from = source.indexOf("From"_L1, 0, Qt::CaseInsensitive);
    return u"Select Count(*) as RowCount "_s + (from < 0 ? u"From "_s + source : source.sliced(from));
}

PlayListTracks::PlayListTracks(PlayListTracksParts parts) : m_parts(parts)
{}

bool PlayListTracks::LoadDetailListbox(qint64 listId)
{
    m_listId = listId;
    m_rows.load(m_parts.lists.shownTracks(listId, MostRows));
    return m_rows.songs() > 0;
}

bool PlayListTracks::isThere(const PlayListName &list)
{
    if (m_parts.lists.exists(list.ListID))
        return true;
    m_parts.services.desktop.MessageBox(u'"' + list.ListName + u"\" Play list name not found."_s,
                                        u"Not added"_s, Icon::Stop);
    return false;
}

bool PlayListTracks::addCurrentSong(const PlayListName &list)
{
    if (!isThere(list) || !m_parts.displayed.hasRows())
        return false;
    m_parts.lists.addTrack(list.ListID, trackOfSong(m_parts.displayed.Recordset()));
    return true;
}

qint64 PlayListTracks::countDisplayed() const
{
    const auto rows = m_parts.services.catalogue.CatalogueDb->OpenRecordset(
        countStatement(m_parts.displayed.RecordSource()), dao::RecordsetType::Snapshot);
    return rows->value(u"RowCount"_s).toLongLong();
}

bool PlayListTracks::mayAdd(qint64 songs, const std::function<Preview &()> &preview)
{
    const QString count = QString::number(songs);
    // What the list holds already does not count.
    if (songs > MostTracks) {
        m_parts.services.desktop.MessageBox(
            u"You cannot add more than 32,000 songs to a single Play List.  You are "
            "trying to add "_s +
                count + u" songs."_s,
            QString::fromUtf16(ProductName));
        return false;
    }
    return isConfirmed(
        m_parts.services.desktop,
        {u"This will add every song displayed on the main screen (the Grid) to the current Play List.  "
         "Songs will be added in the current Grid sort order.  Number of songs about to be added to "
         "Play List: "_s +
             count + u".\r\n\r\nAre you sure?"_s,
         u"Confirm Adding All *"_s + count + u"* Songs To Play List"_s},
        preview);
}

QList<Track> PlayListTracks::displayedTracks() const
{
    const auto rows = m_parts.services.catalogue.CatalogueDb->OpenRecordset(
        withColumns(m_parts.displayed.RecordSource(), columnsOfTracks()), dao::RecordsetType::Snapshot);
    QList<Track> tracks;
    tracks.reserve(rows->RecordCount());
    for (; !rows->atEOF(); rows->MoveNext())
        tracks.append(trackOfSong(*rows));
    return tracks;
}

std::optional<qint64> PlayListTracks::addAllSongs(const PlayListName &list)
{
    qint64 songs = 0;
    {
        const Hourglass hourglass(m_parts.services.desktop);
        songs = countDisplayed();
    }
    std::unique_ptr<TrackPreview> preview;
    if (!mayAdd(songs,
                [&]() -> Preview & {
                    preview = std::make_unique<TrackPreview>(
                        SongPreview::Ground{*m_parts.services.catalogue.CatalogueDb, m_parts.displayed},
                        list.ListName, displayedTracks());
                    return *preview;
                }) ||
        !isGreaterThanBlank(list.ListName) || !isThere(list))
        return std::nullopt;
    const Hourglass hourglass(m_parts.services.desktop);
    const QList<Track> tracks = preview ? preview->tickedTracks() : displayedTracks();
    m_parts.lists.addTracks(list.ListID, tracks);
    return tracks.size();
}

OrderKept PlayListTracks::ReOrderTracksAfterDrag()
{
    std::optional<qsizetype> missing;
    try {
        missing = m_parts.lists.reorder(m_listId, m_rows.keys());
    } catch (const dao::DaoError &error) {
        m_parts.services.desktop.MessageBox(u"Error number:"_s + QString::number(error.number) + u".  "_s +
                                                error.description,
                                            u"Error"_s, Icon::Stop);
        return OrderKept::No;
    }
    if (!missing)
        return OrderKept::Yes;
    // The player, which stays usable beside the screen, deletes songs of lists too.
    m_parts.services.desktop.MessageBox(
        u"In ReOrderTracksAfterDrag routine.  Match not found on Track Title: "_s +
            m_rows.text(static_cast<int>(*missing)),
        QString::fromUtf16(ProductName));
    return OrderKept::WithOtherSongs;
}

} // namespace quaverly
