// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlists/TrackRows.h"

#include "player/PlayListStore.h"
#include "player/SongQueue.h"

namespace quaverly {

void TrackRows::load(const QList<ShownTrack> &tracks)
{
    m_rows.clear();
    m_rows.reserve(tracks.size() + 1);
    for (const ShownTrack &track : tracks)
        m_rows.append({songRow(track.SongTitle, track.ArtistName), track.ListTrackID});
    m_rows.append(TrackRow());
}

int TrackRows::rowOf(const QString &text) const
{
    for (int row = 0; row < songs(); ++row) {
        if (isSameText(m_rows.at(row).text, text))
            return row;
    }
    return -1;
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

QList<qint64> TrackRows::numbersToFirstWithoutArtist() const
{
    const QString mark = QString::fromUtf16(ArtistMark);
    QList<qint64> numbers;
    for (int row = 0; row < songs() && m_rows.at(row).text.contains(mark); ++row)
        numbers.append(m_rows.at(row).ItemData);
    return numbers;
}

} // namespace quaverly
