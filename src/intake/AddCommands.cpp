// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/AddCommands.h"

#include "desktop/Desktop.h"
#include "desktop/FileHelpers.h"
#include "desktop/Guard.h"
#include "desktop/MusicFolder.h"
#include "intake/IntakeState.h"
#include "intake/MusicLoader.h"
#include "lists/PlayerState.h"
#include "platform/shell/MusicKinds.h"
#include "songlist/MainScreen.h"

#include <QMap>

#include <utility>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

FileQuestion musicFileQuestion(const QString &startFolder)
{
    return {u"Select a music file"_s, shell::musicFileFilter(true), startFolder, {}};
}

QString droppedQuestion(const QStringList &folders, const QMap<QString, QStringList> &files)
{
    qsizetype fileCount = 0;
    for (const QStringList &names : files)
        fileCount += names.size();
    QStringList parts;
    if (folders.size() == 1)
        parts.append(u"the folder %1 including subfolders"_s.arg(folders.front()));
    else if (!folders.isEmpty())
        parts.append(u"%1 folders including subfolders"_s.arg(folders.size()));
    if (fileCount == 1)
        parts.append(u"the file %1"_s.arg(files.first().front()));
    else if (fileCount > 1)
        parts.append(u"%1 music files"_s.arg(fileCount));
    return u"Add %1 to the database?"_s.arg(parts.join(u" and "_s));
}

} // namespace

AddCommands::AddCommands(Desktop &desktop, MainScreen &mainScreen, PlayerState &player, IntakeState &state,
                         MusicLoader &loader, std::function<void()> showScanDriveForm)
    : m_desktop(desktop), m_mainScreen(mainScreen), m_player(player), m_state(state), m_loader(loader),
      m_showScanDriveForm(std::move(showScanDriveForm))
{}

void AddCommands::AddMusicFolder_Click()
{
    run(u"Add a Folder of Music Files"_s, [this] { addMusicFolder(); });
}

void AddCommands::AddOneMusicFile_Click()
{
    run(u"Add One Music File"_s, [this] { addOneMusicFile(); });
}

void AddCommands::ScanFiles_Click()
{
    run(u"Add All Music Files (Scan Entire Drive)"_s, [this] {
        m_mainScreen.unloadPics3();
        m_state.CancelScan = false;
        m_showScanDriveForm();
    });
}

void AddCommands::run(const QString &title, const std::function<void()> &command)
{
    guarded(m_desktop, title, [&] {
        if (mayAdd())
            quietly(command);
    });
}

bool AddCommands::mayAdd()
{
    if (m_player.PlayerOpen) {
        m_desktop.MessageBox(u"Cannot Add records while playing songs. End the Player first."_s,
                             u"Add not allowed"_s, Icon::Information);
        return false;
    }
    // A cancelled scan lets events run before it is gone.
    return !m_loader.isRunning();
}

void AddCommands::addMusicFolder()
{
    m_mainScreen.unloadPics3();
    if (m_state.LastMusicFolder.isEmpty())
        m_state.LastMusicFolder = musicFolder();
    const QString folder = m_desktop.BrowseForFolder(u"Add a Folder of Music Files including subfolders"_s,
                                                     u"Select a Folder"_s, m_state.LastMusicFolder);
    if (folder.isEmpty())
        return;
    if (m_mainScreen.openScreens() > 1) {
        m_player.RestartingFolderPlayer = true;
        m_mainScreen.unloadPlayForm();
    }
    load(EnsureBackslash(folder), {});
}

void AddCommands::addOneMusicFile()
{
    if (m_state.LastMusicFolder.isEmpty())
        m_state.LastMusicFolder = musicFolder();
    const auto chosen = m_desktop.ShowOpenDialog(musicFileQuestion(EnsureBackslash(m_state.LastMusicFolder)));
    if (!chosen)
        return;
    if (!FileExists(*chosen)) {
        m_desktop.MessageBox(u"The file name you selected cannot be added to Quaverly, likely because it "
                             "contains invalid characters in the file name.\n"
                             "Rename this file on your computer first."_s,
                             u"File not added"_s, Icon::Exclamation);
        return;
    }
    load(folderOf(*chosen), {fileNameOf(*chosen)});
}

void AddCommands::addDropped(const QStringList &paths)
{
    QStringList folders;
    QMap<QString, QStringList> files;
    for (const QString &path : paths) {
        if (FolderExists(path))
            folders.append(EnsureBackslash(path));
        else if (FileExists(path) && shell::musicKindByTail(path) != nullptr)
            files[folderOf(path)].append(fileNameOf(path));
    }
    if (folders.isEmpty() && files.isEmpty())
        return;
    run(u"Add Music"_s, [&] {
        if (m_desktop.MessageBox(droppedQuestion(folders, files), u"Add Music"_s, Icon::Question,
                                 Buttons::YesNo) != Answer::Yes)
            return;
        m_mainScreen.unloadPics3();
        for (const QString &folder : std::as_const(folders))
            load(folder, {});
        for (auto it = files.cbegin(); it != files.cend(); ++it)
            load(it.key(), it.value());
    });
}

void AddCommands::load(const QString &folder, const QStringList &files)
{
    m_state.CancelScan = false;
    m_loader.LoadMusicFiles(folder, files);
    m_mainScreen.focusGrid();
}

} // namespace quaverly
