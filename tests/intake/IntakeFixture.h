// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Catalogue.h"
#include "catalogue/CatalogueSchema.h"
#include "intake/AddCommands.h"
#include "intake/IntakeState.h"
#include "intake/MusicLoader.h"
#include "intake/ScanForms.h"
#include "platform/shell/Shell.h"
#include "songlist/MainScreen.h"
#include "songlist/PlayerState.h"
#include "support/QtPrinters.h"
#include "support/ScriptedDesktop.h"

#include <QTemporaryDir>
#include <QWidget>

#include <gtest/gtest.h>

namespace quaverly::test {

/** The main screen as the intake sees it: a window that can be disabled, and counts of what was asked. */
class IntakeMainScreen final : public MainScreen
{
public:
    void setEnabled(MainControl /*control*/, bool /*enabled*/) override {}
    void setVisible(MainControl control, bool visible) override { visibility[control] = visible; }
    [[nodiscard]] bool isVisible(MainControl control) const override { return visibility.at(control); }
    void set_lblCategory(const QString & /*caption*/) override {}
    [[nodiscard]] QString lblCategory() const override { return {}; }
    void set_lblFilterMsg(const QString & /*caption*/) override {}
    void set_lblSelectedCount(const QString & /*caption*/) override {}
    void set_cmdShowArtistSongs(const QString &caption) override { artistCaption = caption; }
    [[nodiscard]] QString cmdShowArtistSongs() const override { return artistCaption; }
    void set_txtLocate(const QString & /*text*/) override {}
    void set_txtName(const QString & /*text*/) override {}
    [[nodiscard]] QString cmbSort() const override { return {}; }
    void set_cmbSort(const QString & /*label*/) override {}
    void cmbSort_Click() override {}
    void cmdSortArtist_Click() override {}
    void cmdSortSong_Click() override {}
    void ShowAllMenu_Click() override { ++showAlls; }
    [[nodiscard]] QString firstColumnField() const override { return {}; }
    [[nodiscard]] int gridRow() const override { return 0; }
    void scrollGrid(int /*columns*/, int /*rows*/) override {}
    void clearGridMarkArmed() override {}
    void focusGrid() override { ++gridFocuses; }
    void setScreenEnabled(bool enabled) override { window.setEnabled(enabled); }
    [[nodiscard]] int openScreens() const override { return screens; }
    void unloadPics3() override { ++pics3Unloads; }
    void unloadPlayForm() override { ++playFormUnloads; }

    QWidget window;
    std::map<MainControl, bool> visibility;
    QString artistCaption;
    int showAlls = 0;
    int gridFocuses = 0;
    int screens = 1;
    int pics3Unloads = 0;
    int playFormUnloads = 0;
};

/** An empty catalogue, a music folder beside it, and the whole intake over both. */
class IntakeTest : public ::testing::Test
{
protected:
    IntakeTest();
    ~IntakeTest() override;

    /** Full path of a name in the music folder; a folder's name ends in the separator. */
    [[nodiscard]] QString music(const QString &name = {}) const
    {
        return m_dir.filePath(QStringLiteral("music/")) + name;
    }
    /** Writes a file into the music folder, its folders too. */
    void write(const QString &name, const QByteArray &bytes) const;
    void restartShell(const shell::ShellTraits &traits);
    /** Scans the whole music folder and returns the closing message. */
    QString scan(const QString &oneFile = {});

    /** A field of all songs in the reopened catalogue, joined by "|", in the order of adding. */
    [[nodiscard]] QString stored(const QString &field);
    /** A field of the song with that file name. */
    [[nodiscard]] QVariant stored(const QString &field, const QString &fileName);
    [[nodiscard]] QString report() const;

    [[nodiscard]] QWidget *folderForm() const;
    [[nodiscard]] QWidget *driveForm() const;

    QTemporaryDir m_dir;
    dao::DBEngine m_engine{catalogueSchema()};
    Catalogue m_catalogue;
    ScriptedDesktop m_desktop;
    IntakeMainScreen m_mainScreen;
    IntakeState m_state;
    PlayerState m_player;
    std::unique_ptr<shell::Shell> m_shell;
    std::unique_ptr<ScanForms> m_forms;
    std::unique_ptr<MusicLoader> m_loader;
    std::unique_ptr<AddCommands> m_commands;
    /** What the clock says, once a call; the last one stays. */
    QList<double> m_seconds{0};
    std::optional<QString> m_currentArtist;
};

} // namespace quaverly::test
