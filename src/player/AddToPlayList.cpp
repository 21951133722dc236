// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/AddToPlayList.h"

#include "desktop/Desktop.h"
#include "lists/PlayerState.h"
#include "platform/text/Text.h"
#include "player/SongQueue.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** A track of the player's row, which shows name and artist as one text. */
Track trackOfRow(const QString &row, const QString &url)
{
    const SongNames names = namesOfRow(singleQuotes(row));
    Track track;
    track.SongTitle = names.SongName;
    if (!names.Artist.isNull())
        track.ArtistName = names.Artist;
    track.FileName = url;
    track.Notes = u"Added from Player"_s;
    return track;
}

} // namespace

AddToPlayList::AddToPlayList(Desktop &desktop, PlayerState &state, PlayListStore &store)
    : m_desktop(desktop), m_state(state), m_store(store)
{}

SongAdded AddToPlayList::addFromEditor(const dao::Recordset &song)
{
    return m_state.CurrentPlayListName.isEmpty() ? tellNoList() : AddSongToCurrentList(From::NameEdit, song);
}

SongAdded AddToPlayList::tellNoList()
{
    if (m_store.hasLists()) {
        m_desktop.MessageBox(u"You must select a Play List from the drop down list first."_s,
                             u"No Play List selected"_s);
        return SongAdded::ChooseList;
    }
    m_desktop.MessageBox(u"There are no Play Lists.  You must create one first by clicking the PlayLists "
                         "button on the main toolbar."_s,
                         u"No Play Lists Exist"_s);
    return SongAdded::No;
}

bool AddToPlayList::hasFile(From from, const dao::Recordset &song)
{
    const QString saved = from == From::NameEdit ? u"saved "_s : QString();
    const auto refuse = [this, &saved](const QString &field) {
        m_desktop.MessageBox(u"No "_s + saved + field +
                                 u" exists for this record, so not added to Play List."_s,
                             u"NOT added to Play List"_s, Icon::Exclamation);
        return false;
    };
    if (!isGreaterThanBlank(song.text(u"FileName"_s)))
        return refuse(u"File Name"_s);
    if (!isGreaterThanBlank(song.text(u"PathName"_s)))
        return refuse(u"Path Name (folder)"_s);
    return true;
}

SongAdded AddToPlayList::AddSongToCurrentList(From from, const dao::Recordset &song)
{
    if (!hasFile(from, song))
        return SongAdded::No;
    const QString &name = m_state.CurrentPlayListName;
    const auto list = m_store.ListID(name);
    if (!list) {
        m_desktop.MessageBox(u'"' + name + u"\" Play list name not found."_s,
                             u"Sub mnuPopupAddToPlaylist_Click"_s, Icon::Stop);
        return SongAdded::No;
    }
    if (m_store.countTracks(*list) >= MostTracks) {
        m_desktop.MessageBox(u"The current Play List has reached maximum size of 32,000 songs.  Song not "
                             "added to Play List."_s,
                             u"Not added"_s);
        return SongAdded::No;
    }
    m_store.addTrack(*list, trackOfSong(song));
    return SongAdded::Yes;
}

SongAdded AddToPlayList::addFromPlayer(const QString &listName, const QString &song, const QString &url)
{
    if (!m_store.isTaken(listName))
        return tellNoList();
    const auto list = m_store.ListID(listName);
    if (!list) {
        m_desktop.MessageBox(u'"' + listName + u"\" Play List not found."_s, u"Error"_s, Icon::Stop);
        return SongAdded::No;
    }
    if (m_store.countTracks(*list) >= MostTracks) {
        m_desktop.MessageBox(
            u"The Play List has reached maximum size of 32,000 songs.  Song not added to Play List."_s,
            u"Not added"_s);
        return SongAdded::No;
    }
    m_store.addTrack(*list, trackOf(song, url));
    return SongAdded::Yes;
}

Track AddToPlayList::trackOf(const QString &song, const QString &url) const
{
    Track track = trackOfRow(song, url);
    if (const auto record = m_store.songOfFile(url))
        track.ContactRecordID = *record;
    return track;
}

QString AddToPlayList::saveFromPlayer(const SongQueue &queue)
{
    const QString title = u"Save as Play List"_s;
    QString name =
        withoutTrailingBlanks(singleQuotes(m_desktop.InputPrompt(u"Name of the new play list:"_s, title)));
    if (!isGreaterThanBlank(name))
        return {};
    if (m_store.isTaken(name)) {
        m_desktop.MessageBox(u"A Play List already exists with this name.  Please chose another name."_s,
                             u"Name already taken"_s, Icon::Exclamation);
        return {};
    }
    QList<Track> tracks;
    tracks.reserve(queue.count());
    for (int row = 0; row < queue.count(); ++row)
        tracks.append(trackOf(queue.song(row), queue.url(row)));
    m_store.addListWithTracks(name, tracks);
    return name;
}

void AddToPlayList::deleteFromPlayer(const QString &url)
{
    // A list whose own name holds these words is not found, and nothing is deleted.
    const QString name = QString(m_state.CurrentPlayTitle).remove(u"PlayList "_s);
    m_store.deleteFile(m_store.ListID(name).value_or(0), url);
}

} // namespace quaverly
