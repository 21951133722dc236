// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace media {
class MediaPlayer;
}

namespace quaverly {

class SongListModel;
class SongQueue;

/** Changes what a player will play, its list and what is shown of it alike, while the running song goes on.
 */
class QueueEdit final
{
public:
    /** All of it outlives the edit. @p queue is the one that @p songs shows. */
    QueueEdit(SongQueue &queue, SongListModel &songs, media::MediaPlayer &media);

    /** Behind the song that plays, or at the end. */
    void add(const SongQueue &added, bool next);
    /** The running song's place is taken by the one behind it, or before it at the end; the only one stays.
     */
    void remove(int row);
    /** @p to: the song's row when it has moved; passed over outside the list. */
    void move(int from, int to);

private:
    SongQueue &m_queue;
    SongListModel &m_songs;
    media::MediaPlayer &m_media;
};

} // namespace quaverly
