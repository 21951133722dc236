// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlists/TrackPreview.h"

using namespace Qt::StringLiterals;

namespace quaverly {

TrackPreview::TrackPreview(const Ground &ground, const QString &list, const QList<Track> &tracks,
                           const QStringList &notFound)
    : SongPreview(ground), m_tracks(tracks)
{
    std::vector<PlannedChange> plans;
    plans.reserve(static_cast<std::size_t>(notFound.size() + tracks.size()));
    for (const QString &name : notFound)
        plans.push_back({.record = name, .after = u"No song of this name and artist was found."_s});
    for (const Track &track : tracks)
        plans.push_back({.song = track.ContactRecordID.toLongLong(), .field = u"Play list"_s, .after = list});
    setPlan(u"Add to play list \"%1\": %2"_s.arg(list, countedSongs(tracks.size())), std::move(plans),
            static_cast<std::size_t>(notFound.size()));
}

QList<Track> TrackPreview::tickedTracks() const
{
    QList<Track> all;
    for (int row = obstructed(); row < count(); ++row) {
        if (isTicked(row))
            all.append(m_tracks[row - obstructed()]);
    }
    return all;
}

} // namespace quaverly
