// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace quaverly {

class Desktop;
class MainScreen;
class MusicLoader;
struct IntakeState;
struct PlayerState;

/** The commands of the main screen that add music files. None of them runs beside the player or a scan. */
class AddCommands final
{
public:
    /** @p showScanDriveForm opens the screen that scans a whole drive. All references outlive this object. */
    AddCommands(Desktop &desktop, MainScreen &mainScreen, PlayerState &player, IntakeState &state,
                MusicLoader &loader, std::function<void()> showScanDriveForm);

    void AddMusicFolder_Click();
    void AddOneMusicFile_Click();
    void ScanFiles_Click();
    /** Folders and files that were dropped on the main screen; asked about first. */
    void addDropped(const QStringList &paths);

private:
    void run(const QString &title, const std::function<void()> &command);
    [[nodiscard]] bool mayAdd();
    void addMusicFolder();
    void addOneMusicFile();
    void load(const QString &folder, const QStringList &files);

    Desktop &m_desktop;
    MainScreen &m_mainScreen;
    PlayerState &m_player;
    IntakeState &m_state;
    MusicLoader &m_loader;
    std::function<void()> m_showScanDriveForm;
};

} // namespace quaverly
