// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/QueueEdit.h"

#include "platform/media/Media.h"
#include "player/SongListModel.h"
#include "player/SongQueue.h"

namespace quaverly {

QueueEdit::QueueEdit(SongQueue &queue, SongListModel &songs, media::MediaPlayer &media)
    : m_queue(queue), m_songs(songs), m_media(media)
{}

void QueueEdit::add(const SongQueue &added, bool next)
{
    int at = next && m_queue.hasSelection() ? m_queue.ListIndex() + 1 : m_queue.count();
    for (int i = 0; i < added.count(); ++i, ++at) {
        m_media.currentPlaylist().insertItem(at, added.url(i));
        m_songs.insert(at, added.song(i), added.url(i));
    }
}

void QueueEdit::remove(int row)
{
    if (row < 0 || row >= m_queue.count() || m_queue.count() == 1)
        return;
    const bool plays = m_media.controls().currentItem().index == row;
    const int instead = row + 1 < m_queue.count() ? row + 1 : row - 1;
    if (plays)
        m_media.controls().setCurrentItem(m_media.currentPlaylist().Item(instead));
    m_media.currentPlaylist().removeItem(row);
    m_songs.remove(row);
    if (plays)
        m_queue.setListIndex(instead > row ? row : instead);
}

void QueueEdit::move(int from, int to)
{
    if (from < 0 || from >= m_queue.count() || to < 0 || to >= m_queue.count())
        return;
    m_media.currentPlaylist().moveItem(from, to);
    m_songs.move(from, to);
}

} // namespace quaverly
