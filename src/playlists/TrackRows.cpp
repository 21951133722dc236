// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlists/TrackRows.h"

#include "lists/PlayListStore.h"
#include "player/SongQueue.h"

namespace quaverly {

void TrackRows::load(const QList<ShownTrack> &tracks)
{
    m_rows.clear();
    m_rows.reserve(tracks.size() + 1);
    for (const ShownTrack &track : tracks)
        m_rows.append({songRow(track.SongTitle, track.ArtistName), track.key});
    m_rows.append(TrackRow());
}

QList<qint64> TrackRows::keys() const
{
    QList<qint64> keys;
    keys.reserve(songs());
    for (int row = 0; row < songs(); ++row)
        keys.append(key(row));
    return keys;
}

std::optional<int> TrackRows::placeAfterMove(int selected, int target) const
{
    if (!isSong(selected) || target < 0 || target >= ListCount())
        return std::nullopt;
    return target > selected ? target - 1 : target;
}

void TrackRows::MoveListBoxItem(int selected, int target)
{
    if (const auto place = placeAfterMove(selected, target))
        m_rows.move(selected, *place);
}

} // namespace quaverly
