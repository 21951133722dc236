// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Services.h"
#include "player/AddToPlayList.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace shell {
class Shell;
}

namespace quaverly {

class DataControl;
class Player;
class SongQueue;
enum class FolderRules;
struct PlayRequest;
struct PlayerState;

/** What the play commands work with. All of it outlives them. */
struct PlayParts
{
    Services services;
    Player &player;
    PlayerState &state;
    DataControl &displayed;
    shell::Shell &shell;
    /** The folder chosen last in a folder dialog. */
    QString &LastMusicFolder;
    /** The folder and all below it, breadth first, each with its trailing separator. */
    std::function<QStringList(const QString &root)> gatherFolders;
    /** Opens the play lists screen, to add the current row's song, and calls back when it is closed. */
    std::function<void(std::function<void()> closed)> showPlayLists;
    /** Shows for 0.8 seconds that a song was added to a list. */
    std::function<void()> showSongAdded;
};

/** The record that the editor shows, by its boxes. */
struct EditedSong
{
    QString PathName;
    QString FileName;
    /** False while a new record is being typed. */
    bool isStored = false;
};

/** The screens around a song that is played from the editor. */
struct EditorScreens
{
    std::function<void()> hideNameEdit;
    std::function<void()> hideNameList;
    std::function<void()> showNameEdit;
};

/**
 * The commands of the main screen and of the editor that start music. Each closes an open player first, also
 * one that then finds nothing to play. A command that is chosen while another one works is passed over.
 */
class PlayCommands final
{
public:
    explicit PlayCommands(PlayParts parts);

    /** Also mnuPlayCurrentSong and mnuPopupPlay. */
    void cmdPlay_Click();
    /** Also mnuPlayAllSongs. */
    void cmdPlayAll_Click();
    void mnuPlayFolder_Click();
    void mnuPlayFolderAndSubfolders_Click();
    /** The editor's cmdPlay. */
    void playFromEditor(const EditedSong &song, const EditorScreens &screens);

    void mnuPopupAddToPlaylist_Click();
    /** The current song behind the one that plays, or at the end; without a player it is played. */
    void mnuPopupPlayNext_Click();
    void mnuPopupAddToQueue_Click();

private:
    void run(const QString &title, const std::function<void()> &command);
    void unloadPlayer();
    void unloadForFolder();
    [[nodiscard]] QString currentRow() const;
    void playFile(PlayRequest request, const QString &pathName, const QString &fileName);
    void playAll();
    [[nodiscard]] bool mayPlay(qint64 songs);
    [[nodiscard]] QString askForFolder(const QString &title);
    void playFolder();
    void playFolderAndSubfolders();
    void addFolder(const QString &folder, FolderRules rules, SongQueue &songs);
    /** The list file, unless there is nothing to play. */
    void writeList(const SongQueue &songs);
    void playList(PlayRequest request);
    void tellNoSongsInFolder();
    void addToPlayList();
    void addToQueue(bool next);

    PlayParts m_parts;
    PlayListStore m_lists;
    AddToPlayList m_addToPlayList;
    bool m_running = false;
};

} // namespace quaverly
