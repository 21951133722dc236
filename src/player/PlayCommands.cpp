// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/PlayCommands.h"

#include "catalogue/KindsTaken.h"
#include "catalogue/Options.h"
#include "desktop/Desktop.h"
#include "desktop/FileHelpers.h"
#include "desktop/Guard.h"
#include "desktop/MusicFolder.h"
#include "lists/PlayerState.h"
#include "platform/text/Text.h"
#include "player/FileNotFound.h"
#include "player/FolderSongs.h"
#include "player/Player.h"
#include "player/SongColumns.h"
#include "player/TemporaryList.h"
#include "songlist/DataControl.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** From that many songs on the user is asked. */
constexpr qint64 ManySongs = 1000;
/** Where the bar of the please-wait window ends for a walk through folders. */
constexpr double WalkBarTwips = 6300;

SongQueue playable(const DisplayedSongs &displayed)
{
    SongQueue songs;
    const qint64 count = displayed.count();
    songs.reserve(count);
    for (qint64 row = 0; row < count; ++row) {
        const DisplayedSong song = displayed.song(row);
        if (!song.fileName.isEmpty() && FileExists(song.path) && fitsInList(song.path))
            songs.add(songRow(song.songName, song.artist), song.path);
    }
    return songs;
}

QString waitText()
{
    return u"\nPlease wait..."_s;
}

} // namespace

PlayCommands::PlayCommands(PlayParts parts)
    : m_parts(std::move(parts)), m_lists(m_parts.services.catalogue),
      m_addToPlayList(m_parts.services.desktop, m_parts.state, m_lists)
{}

void PlayCommands::run(const QString &title, const std::function<void()> &command)
{
    // A walk through folders lets events run.
    if (m_running)
        return;
    m_running = true;
    const auto done = qScopeGuard([this] { m_running = false; });
    guarded(m_parts.services.desktop, title, command);
}

void PlayCommands::cmdPlay_Click()
{
    run(u"Play"_s, [this] {
        if (!m_parts.displayed.hasRows())
            return;
        const QString pathName = m_parts.displayed.currentText(u"PathName"_s);
        const QString fileName = m_parts.displayed.currentText(u"FileName"_s);
        unloadPlayer();
        if (fileName.isEmpty() || !FileExists(pathName + fileName)) {
            ShowFileNotFound(m_parts.services.desktop, pathName + fileName);
            return;
        }
        PlayRequest request;
        request.cbShuffle = request.cbSkipDups = request.cbNowPlaying = request.cmdDelete = false;
        request.cbPlayNext = request.cbPlayRandom = m_parts.services.options.WindowsVersionMajor >= 6;
        playFile(std::move(request), pathName, fileName);
    });
}

void PlayCommands::unloadPlayer()
{
    m_parts.state.RestartingPlayer = true;
    m_parts.player.unload();
}

void PlayCommands::unloadForFolder()
{
    m_parts.state.RestartingFolderPlayer = true;
    m_parts.player.unload();
}

QString PlayCommands::currentRow() const
{
    return songRow(m_parts.displayed.currentText(u"SongName"_s), m_parts.displayed.currentText(u"Artist"_s));
}

void PlayCommands::playFile(PlayRequest request, const QString &pathName, const QString &fileName)
{
    request.CurrentPlayUrl = pathName + fileName;
    request.CurrentPlayTitle = request.caption = fileName;
    request.songs.add(currentRow(), request.CurrentPlayUrl);
    m_parts.player.play(std::move(request));
}

void PlayCommands::cmdPlayAll_Click()
{
    run(u"Play All Error"_s, [this] { playAll(); });
}

void PlayCommands::playAll()
{
    const Hourglass hourglass(m_parts.services.desktop);
    const DisplayedSongs displayed(*m_parts.services.catalogue.CatalogueDb, m_parts.displayed.RecordSource());
    if (!mayPlay(displayed.count()))
        return;
    unloadPlayer();
    PlayRequest request;
    {
        // The question has taken the pointer back.
        const Hourglass loading(m_parts.services.desktop);
        const auto working =
            m_parts.services.desktop.ShowWorkingForm(u"Loading songs into Player..."_s, waitText(), false);
        m_parts.services.desktop.letEventsRun();
        request.songs = playable(displayed);
        writeList(request.songs);
    }
    if (request.songs.isEmpty()) {
        m_parts.services.desktop.resetPointer();
        m_parts.services.desktop.MessageBox(
            u"No music files found for the displayed songs.  They may have changed "
            "folder locations or been deleted from this machine."_s,
            u"No music files found for these songs"_s, Icon::Exclamation);
        unloadPlayer();
        return;
    }
    request.CurrentPlayTitle = request.caption = u"All Songs"_s;
    request.cmdDelete = false;
    playList(std::move(request));
}

bool PlayCommands::mayPlay(qint64 songs)
{
    const QString inList = u"There are "_s + QString::number(songs) + u" songs in the current list."_s;
    if (songs > MostTracks) {
        m_parts.services.desktop.resetPointer();
        m_parts.services.desktop.MessageBox(
            inList + u"  The maximum number of songs you can put in a Play List is 32000."_s,
            u"Too many songs to play"_s, Icon::Exclamation);
        return false;
    }
    if (songs < ManySongs)
        return songs > 0;
    m_parts.services.desktop.resetPointer();
    return m_parts.services.desktop.MessageBox(
               inList + u"\r\n\r\nAre you sure you want to play all of them?"_s, u"Play All Confirmation"_s,
               Icon::Information, Buttons::YesNo, Answer::No) == Answer::Yes;
}

void PlayCommands::writeList(const SongQueue &songs)
{
    if (!songs.isEmpty())
        writeTemporaryList(m_parts.services.catalogue.DatabaseFolder, songs.urls());
}

void PlayCommands::playList(PlayRequest request)
{
    request.CurrentPlayUrl = temporaryList(m_parts.services.catalogue.DatabaseFolder);
    request.showsCount = true;
    m_parts.player.play(std::move(request));
}

QString PlayCommands::askForFolder(const QString &title)
{
    if (m_parts.LastMusicFolder.isEmpty())
        m_parts.LastMusicFolder = musicFolder();
    return m_parts.services.desktop.BrowseForFolder(u"Select a Folder"_s, title, m_parts.LastMusicFolder);
}

void PlayCommands::mnuPlayFolder_Click()
{
    run(u"Play Folder Error"_s, [this] { playFolder(); });
}

void PlayCommands::playFolder()
{
    const QString folder = askForFolder(u"Play a Folder of Music Files"_s);
    if (folder.isEmpty())
        return;
    m_parts.LastMusicFolder = folder;
    const Hourglass hourglass(m_parts.services.desktop);
    unloadForFolder();
    PlayRequest request;
    {
        const auto working =
            m_parts.services.desktop.ShowWorkingForm(u"Loading songs into Player..."_s, waitText(), false);
        m_parts.services.desktop.letEventsRun();
        addFolder(folder, FolderRules::OneFolder, request.songs);
        writeList(request.songs);
    }
    if (request.songs.isEmpty()) {
        tellNoSongsInFolder();
        return;
    }
    // A folder is no play list that something could be deleted from.
    request.cmdDelete = false;
    // The screen is up before the title becomes the folder.
    request.caption = u"All Songs in Folder"_s;
    request.CurrentPlayTitle = folder;
    playList(std::move(request));
}

void PlayCommands::mnuPlayFolderAndSubfolders_Click()
{
    run(u"Play Folder Error"_s, [this] { playFolderAndSubfolders(); });
}

void PlayCommands::playFolderAndSubfolders()
{
    const QString root = askForFolder(u"Play a Folder (including subfolders) of Music Files"_s);
    if (root.isEmpty())
        return;
    const Hourglass hourglass(m_parts.services.desktop);
    unloadForFolder();
    PlayRequest request;
    {
        const auto working = m_parts.services.desktop.ShowWorkingForm(u"Adding Songs to Player..."_s,
                                                                      u"Please wait..."_s, true);
        m_parts.services.desktop.letEventsRun();
        const QStringList folders = m_parts.gatherFolders(EnsureBackslash(root));
        for (qsizetype i = 0; i < folders.size(); ++i) {
            if (working->bar() < FullBarTwips)
                working->setBar(
                    qRound(static_cast<double>(i + 1) / static_cast<double>(folders.size()) * WalkBarTwips));
            addFolder(folders.at(i), FolderRules::WithSubfolders, request.songs);
        }
        writeList(request.songs);
    }
    if (request.songs.isEmpty()) {
        tellNoSongsInFolder();
        return;
    }
    request.songs.setListIndex(0);
    request.cmdDelete = false;
    request.caption = request.CurrentPlayTitle = root;
    playList(std::move(request));
}

void PlayCommands::addFolder(const QString &folder, FolderRules rules, SongQueue &songs)
{
    addFolderSongs(m_parts.shell, EnsureBackslash(folder), rules,
                   m_parts.services.options.WindowsVersionMajor, kindsLeftOut(m_parts.services.optionsStore),
                   songs);
}

void PlayCommands::tellNoSongsInFolder()
{
    m_parts.services.desktop.resetPointer();
    m_parts.services.desktop.MessageBox(u"No music files found in this folder."_s,
                                        u"No songs found to play"_s, Icon::Exclamation);
    unloadForFolder();
}

void PlayCommands::playFromEditor(const EditedSong &song, const EditorScreens &screens)
{
    run(u"Error"_s, [&] {
        if (!song.isStored || !isGreaterThanBlank(song.FileName) ||
            !FileExists(song.PathName + song.FileName)) {
            ShowFileNotFound(m_parts.services.desktop, m_parts.displayed.currentText(u"PathName"_s) +
                                                           m_parts.displayed.currentText(u"FileName"_s));
            return;
        }
        unloadPlayer();
        screens.hideNameEdit();
        PlayRequest request;
        request.cbShuffle = request.cbSkipDups = false;
        playFile(std::move(request), song.PathName, song.FileName);
        m_parts.state.PlayedFromEditor = true;
        screens.hideNameList();
        screens.showNameEdit();
        m_parts.services.desktop.letEventsRun();
    });
}

void PlayCommands::mnuPopupAddToPlaylist_Click()
{
    run(u"Sub mnuPopupAddToPlaylist_Click"_s, [this] { addToPlayList(); });
}

void PlayCommands::mnuPopupPlayNext_Click()
{
    run(u"Play Next"_s, [this] { addToQueue(true); });
}

void PlayCommands::mnuPopupAddToQueue_Click()
{
    run(u"Add to Queue"_s, [this] { addToQueue(false); });
}

void PlayCommands::addToQueue(bool next)
{
    if (!m_parts.displayed.hasRows())
        return;
    const QString fileName = m_parts.displayed.currentText(u"FileName"_s);
    const QString path = m_parts.displayed.currentText(u"PathName"_s) + fileName;
    if (fileName.isEmpty() || !FileExists(path)) {
        ShowFileNotFound(m_parts.services.desktop, path);
        return;
    }
    PlayRequest request;
    request.songs.add(currentRow(), path);
    if (m_parts.player.addToQueue(request.songs, next))
        return;
    writeList(request.songs);
    request.CurrentPlayTitle = request.caption = u"Queue"_s;
    request.cmdDelete = false;
    playList(std::move(request));
}

void PlayCommands::addToPlayList()
{
    if (m_parts.state.CurrentPlayListName.isEmpty()) {
        PlayerState &state = m_parts.state;
        state.AddingFromGrid = true;
        m_parts.showPlayLists([&state] { state.AddingFromGrid = false; });
        return;
    }
    if (!m_parts.displayed.hasRows())
        return;
    if (m_addToPlayList.AddSongToCurrentList(AddToPlayList::From::NameList, m_parts.displayed.Recordset()) ==
        SongAdded::Yes)
        m_parts.showSongAdded();
}

} // namespace quaverly
