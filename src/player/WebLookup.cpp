// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/WebLookup.h"

#include "desktop/Desktop.h"
#include "player/WebSearch.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

QString plainQuery()
{
    return u"newwindow=1&q="_s;
}

} // namespace

void WebLookup::open(const QString &query, const QString &words) const
{
    static_cast<void>(m_desktop.OpenUrl(searchAddress(m_store, query, words)));
}

void WebLookup::cmdWebLookup_Click(const LookupSong &song) const
{
    open(plainQuery(), searchWords(song.artist) + u'+' + searchWords(song.songName));
}

void WebLookup::mnuWebLookupLyrics_Click(const LookupSong &song) const
{
    open(plainQuery(), u"song+lyrics+for+"_s + searchWords(song.songName) + u'+' + searchWords(song.artist));
}

void WebLookup::mnuWebLookupImages_Click(const LookupSong &song) const
{
    const bool hasAlbum = !song.album.trimmed().isEmpty();
    open(u"newwindow=1&site=imghp&tbm=isch&source=hp&q="_s,
         u"album+art+"_s + searchWords(song.artist) + u'+' +
             searchWords(hasAlbum ? song.album : song.songName));
}

void WebLookup::mnuWebLookupCoverVersions_Click(const LookupSong &song) const
{
    open(plainQuery(), u"cover+song+"_s + searchWords(song.songName));
}

} // namespace quaverly
