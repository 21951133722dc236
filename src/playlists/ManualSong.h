// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "lists/PlayListStore.h"

namespace quaverly {

class Desktop;

/** A track as the user types it: a song that is not catalogued, or new texts for one of the list. Every
 * operation may throw dao::DaoError. */
class ManualSong final
{
public:
    /** Both outlive it. */
    ManualSong(Desktop &desktop, PlayListStore &lists);

    /** As they are kept: double quotes of the title made single, trailing blanks cut where they mean
     * nothing. */
    [[nodiscard]] static TrackTexts kept(TrackTexts typed);

    /** False when the user was told what is missing. */
    [[nodiscard]] bool add(qint64 listId, const TrackTexts &song);
    /** The same, or that the track with that key is gone. */
    [[nodiscard]] bool edit(qint64 listId, qint64 key, const TrackTexts &song);
    /** Warns of a file that isn't there; nothing more comes of that. */
    void checkFile(const QString &fileName);
    /** The music file chosen in the file dialog, which starts beside @p fileName. */
    [[nodiscard]] std::optional<QString> browse(const QString &fileName);

private:
    Desktop &m_desktop;
    PlayListStore &m_lists;
};

} // namespace quaverly
