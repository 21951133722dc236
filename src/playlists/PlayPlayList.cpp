// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlists/PlayPlayList.h"

#include "desktop/Desktop.h"
#include "desktop/FileHelpers.h"
#include "lists/PlayerState.h"
#include "player/Player.h"
#include "player/TemporaryList.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

SongQueue playable(const QList<FiledTrack> &tracks)
{
    SongQueue songs;
    songs.reserve(tracks.size());
    for (const FiledTrack &track : tracks) {
        if (FileExists(track.FileName) && fitsInList(track.FileName))
            songs.add(songRow(track.SongTitle, track.ArtistName), track.FileName);
    }
    return songs;
}

void tellNothingToPlay(Desktop &desktop, const QString &text)
{
    desktop.MessageBox(text, u"No music files found for these songs"_s, Icon::Exclamation);
}

} // namespace

void playPlayList(const PlayPlayListParts &parts, const PlayListName &list)
{
    parts.player.unload();
    const QList<FiledTrack> tracks = parts.lists.tracksWithFile(list.ListID);
    if (tracks.isEmpty()) {
        tellNothingToPlay(parts.services.desktop,
                          u"No music files were associated with any of the songs in this Play "
                          "List, so there is nothing to play."_s);
        return;
    }
    PlayRequest request;
    {
        const Hourglass hourglass(parts.services.desktop);
        request.songs = playable(tracks);
        if (!request.songs.isEmpty())
            writeTemporaryList(parts.services.catalogue.DatabaseFolder, request.songs.urls());
    }
    if (request.songs.isEmpty()) {
        tellNothingToPlay(parts.services.desktop,
                          u"No music files found for the songs in this Play List.  They may have changed "
                          "folder locations or been deleted from this machine."_s);
        return;
    }
    request.CurrentPlayUrl = temporaryList(parts.services.catalogue.DatabaseFolder);
    if (!FileExists(request.CurrentPlayUrl)) {
        parts.services.desktop.MessageBox(u"File "_s + request.CurrentPlayUrl +
                                              u" cannot be found to play."_s,
                                          u"File not found"_s, Icon::Stop);
        return;
    }
    request.caption = captionOfPlayList(list.ListName);
    // The player takes the list's name from this when it deletes a song.
    request.CurrentPlayTitle = titleOfPlayList(list.ListName);
    request.songs.setListIndex(0);
    request.showsCount = true;
    parts.unload();
    parts.player.play(std::move(request));
}

} // namespace quaverly
