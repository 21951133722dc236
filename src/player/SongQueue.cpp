// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/SongQueue.h"

namespace quaverly {

QString songRow(const QString &songName, const QString &artist)
{
    return artist.isEmpty() ? songName : songName + QString::fromUtf16(ArtistMark) + artist;
}

SongNames namesOfRow(const QString &row)
{
    const QString mark = QString::fromUtf16(ArtistMark);
    const qsizetype place = row.indexOf(mark);
    return place < 0 ? SongNames{row, {}} : SongNames{row.first(place), row.sliced(place + mark.size())};
}

bool isSameText(const QString &left, const QString &right)
{
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

void SongQueue::add(const QString &row, const QString &url)
{
    m_songs.append(row);
    m_urls.append(url);
}

void SongQueue::reserve(qsizetype songs)
{
    m_songs.reserve(m_songs.size() + songs);
    m_urls.reserve(m_urls.size() + songs);
}

void SongQueue::clear()
{
    m_songs.clear();
    m_urls.clear();
    m_listIndex = -1;
}

void SongQueue::insert(int row, const QString &song, const QString &url)
{
    m_songs.insert(row, song);
    m_urls.insert(row, url);
    m_listIndex += row <= m_listIndex ? 1 : 0;
}

void SongQueue::remove(int row)
{
    m_songs.removeAt(row);
    m_urls.removeAt(row);
    m_listIndex = row == m_listIndex ? -1 : m_listIndex - (row < m_listIndex ? 1 : 0);
}

void SongQueue::move(int from, int to)
{
    const bool selected = from == m_listIndex;
    m_songs.move(from, to);
    m_urls.move(from, to);
    if (selected)
        m_listIndex = to;
    else if (m_listIndex >= 0)
        m_listIndex +=
            (from < m_listIndex ? -1 : 0) + (to <= m_listIndex - (from < m_listIndex ? 1 : 0) ? 1 : 0);
}

int SongQueue::rowOf(const QString &url) const
{
    for (int row = 0; row < count(); ++row) {
        if (isSameText(m_urls.at(row), url))
            return row;
    }
    return -1;
}

SongNames SongQueue::namesOf(const QString &url) const
{
    const int row = isSameText(this->url(m_listIndex), url) ? m_listIndex : rowOf(url);
    return song(row) == url ? SongNames() : namesOfRow(song(row));
}

void SongQueue::setListIndex(int row)
{
    if (row >= -1 && row < count())
        m_listIndex = row;
}

} // namespace quaverly
