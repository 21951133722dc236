// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlists/ManualSong.h"

#include "desktop/Desktop.h"
#include "desktop/FileHelpers.h"
#include "platform/shell/MusicKinds.h"
#include "platform/text/Text.h"

using namespace Qt::StringLiterals;

namespace quaverly {

ManualSong::ManualSong(Desktop &desktop, PlayListStore &lists) : m_desktop(desktop), m_lists(lists)
{}

TrackTexts ManualSong::kept(TrackTexts typed)
{
    typed.SongTitle = withoutTrailingBlanks(singleQuotes(typed.SongTitle));
    typed.ArtistName = withoutTrailingBlanks(typed.ArtistName);
    // A file's name may end in a blank.
    if (!FileExists(typed.FileName))
        typed.FileName = withoutTrailingBlanks(typed.FileName);
    return typed;
}

bool ManualSong::add(qint64 listId, const TrackTexts &song)
{
    if (!isGreaterThanBlank(song.SongTitle) || !isGreaterThanBlank(song.FileName)) {
        m_desktop.MessageBox(u"You must enter both a Song Name and a File Name for this new song."_s,
                             u"Name not specified"_s, Icon::Exclamation);
        return false;
    }
    Track track;
    track.SongTitle = song.SongTitle;
    track.ArtistName = song.ArtistName;
    track.FileName = song.FileName;
    track.Notes = song.Notes + u"  *added manually, when song was not cataloged in database*"_s;
    m_lists.addTrack(listId, track);
    return true;
}

bool ManualSong::edit(qint64 listId, qint64 key, const TrackTexts &song)
{
    if (!isGreaterThanBlank(song.SongTitle)) {
        m_desktop.MessageBox(u"The song name cannot be blank."_s, u"Name not specified"_s, Icon::Exclamation);
        return false;
    }
    if (m_lists.editTrack(listId, key, song))
        return true;
    m_desktop.MessageBox(u"This song has been removed from the Play List, so nothing was changed."_s,
                         u"Not changed"_s, Icon::Exclamation);
    return false;
}

void ManualSong::checkFile(const QString &fileName)
{
    if (isGreaterThanBlank(fileName) && !FileExists(fileName))
        m_desktop.MessageBox(u"Warning!  The file name \""_s + fileName + u"\" does not exist!"_s,
                             u"File not found"_s, Icon::Exclamation);
}

std::optional<QString> ManualSong::browse(const QString &fileName)
{
    const QString folder = folderOf(fileName);
    return m_desktop.ShowOpenDialog({u"Select a music file"_s,
                                     shell::musicFileFilter(false),
                                     FolderExists(folder) ? folder : QString(),
                                     {}});
}

} // namespace quaverly
