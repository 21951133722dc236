// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "lists/PlayListStore.h"
#include "songlist/SongPreview.h"

namespace quaverly {

/** Songs that are to be added to a play list, behind the names that no song was found for. */
class TrackPreview final : public SongPreview
{
public:
    TrackPreview(const Ground &ground, const QString &list, const QList<Track> &tracks,
                 const QStringList &notFound = {});

    /** In their order. */
    [[nodiscard]] QList<Track> tickedTracks() const;

private:
    QList<Track> m_tracks;
};

} // namespace quaverly
