// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/OptionCommands.h"
#include "desktop/Guard.h"
#include "main/HelpSite.h"
#include "main/LetterPlacement.h"
#include "main/MainDialogs.h"
#include "main/StateLine.h"
#include "songlist/ListCommands.h"
#include "songlist/Locate.h"
#include "songlist/MainScreen.h"

#include <QMainWindow>
#include <QTimer>

#include <memory>

namespace Ui {
class NameList;
}

namespace quaverly {

class AddCommands;
class CatalogueCommands;
class ColumnMoves;
class Commands;
class EmptyState;
class GridHandlers;
class MusicLoader;
class PlayCommands;
class Player;
class ScanForms;
class Session;
class SongPopup;

/** The main screen: title, menus, tool buttons, sort box, Locate, grid and description box, each wired to
 * the class that owns it. */
class NameList final : public QMainWindow, public MainScreen, public OptionsScreen
{
    Q_OBJECT

public:
    /**
     * @p unloaded runs when the screen was closed; it may delete the screen later. The references outlive
     * the screen. @throws dao::DaoError.
     */
    NameList(Session &session, CatalogueCommands &catalogueCommands, Player &player,
             std::function<void()> unloaded);
    ~NameList() override;

    void show(const MainLook &look) override;
    using QWidget::show;
    void set_txtLocate(const QString &text) override;
    void set_txtName(const QString &text) override;
    [[nodiscard]] QString cmbSort() const override;
    void set_cmbSort(const QString &label) override;
    void cmbSort_Click() override;
    void cmdSortArtist_Click() override;
    void cmdSortSong_Click() override;
    void ShowAllMenu_Click() override;
    [[nodiscard]] QString firstColumnField() const override;
    [[nodiscard]] int gridRow() const override;
    void scrollGrid(int columns, int rows) override;
    void clearGridMarkArmed() override;
    void focusGrid() override;
    void setScreenEnabled(bool enabled) override;
    [[nodiscard]] int openScreens() const override;
    void unloadPics3() override;
    void unloadPlayForm() override;

    [[nodiscard]] QString mnuOptionWindowSize() const override;
    void set_mnuOptionWindowSize(const QString &caption) override;
    [[nodiscard]] QString mnuOptionFileRename() const override;
    void set_mnuOptionFileRename(const QString &caption) override;
    [[nodiscard]] quint32 BackColor() const override { return m_backColor; }
    void set_BackColor(quint32 color) override;
    void applyLook(const ModeLook &look) override;
    void enableModes(bool tabletMode, bool desktopMode) override;

    [[nodiscard]] MusicLoader &loader() { return *m_loader; }

    /** Brings the window to the front, from a minimised state too. */
    void raiseScreen();

protected:
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void build();
    void buildPlayCommands();
    void buildCommands();
    void showNotice(const QString &text, int milliseconds);
    void wire();
    void wireLocate();
    void addIcons();
    void Form_Load();
    void Form_Activate();
    void Form_Unload();
    void unbind();
    void showEmptyState();
    void showCurrentSong();

    void cmdDelete_Click();
    void mnuPopupShowFile_Click();
    void GridEditMenu_Click();
    void FileExit_Click();
    void txtLocate_KeyUp(int key);
    void txtLocate_KeyPress(int key);
    void txtLocate_Click();
    void lblAlphabet_Click(int index);

    GuardedHandler handle;
    std::unique_ptr<Ui::NameList> m_ui;
    Session &m_session;
    CatalogueCommands &m_catalogueCommands;
    Player &m_player;
    std::function<void()> m_unloaded;
    OptionCommands m_optionCommands;
    ListCommands m_listCommands;
    Locate m_locate;
    HelpSite m_helpSite;
    std::unique_ptr<ScanForms> m_scanForms;
    std::unique_ptr<MusicLoader> m_loader;
    std::unique_ptr<AddCommands> m_addCommands;
    std::unique_ptr<PlayCommands> m_playCommands;
    std::unique_ptr<Commands> m_commands;
    std::unique_ptr<ColumnMoves> m_columns;
    std::unique_ptr<GridHandlers> m_gridHandlers;
    LetterPlacement m_letters;
    StateLine m_stateLine;
    MainDialogs m_dialogs;
    SongPopup *m_popup = nullptr;
    QTimer m_noticeTimer;
    EmptyState *m_emptyState = nullptr;
    quint32 m_backColor = OriginalBackColor;
    bool m_firstActivation = true;
    bool m_activating = false;
    bool m_unloadedAlready = false;
};

} // namespace quaverly
