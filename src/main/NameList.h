// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "songlist/MainScreen.h"

#include <QMainWindow>

#include <functional>
#include <memory>

class QLabel;
class QPushButton;

namespace Ui {
class NameList;
}

namespace quaverly {

class AddCommands;
class MusicLoader;
class ScanForms;
class Session;

/** The main screen: title, menus, sort box, grid and description box, each wired to the class that owns it.
 */
class NameList final : public QMainWindow, public MainScreen
{
    Q_OBJECT

public:
    /** @p unloaded runs when the screen was closed; it may delete the screen. @throws dao::DaoError. */
    NameList(Session &session, std::function<void()> unloaded);
    ~NameList() override;

    void setEnabled(MainControl control, bool enabled) override;
    void setVisible(MainControl control, bool visible) override;
    [[nodiscard]] bool isVisible(MainControl control) const override;
    using QWidget::isVisible;
    using QWidget::setEnabled;
    using QWidget::setVisible;

    void set_lblCategory(const QString &caption) override;
    [[nodiscard]] QString lblCategory() const override;
    void set_lblFilterMsg(const QString &caption) override;
    void set_lblSelectedCount(const QString &caption) override;
    void set_cmdShowArtistSongs(const QString &caption) override;
    [[nodiscard]] QString cmdShowArtistSongs() const override;
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

    [[nodiscard]] MusicLoader &loader() { return *m_loader; }

    /** Brings the window to the front, from a minimised state too. */
    void raiseScreen();

protected:
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void wire();
    void Form_Load();
    void Form_Activate();
    void Form_Unload();
    void applyBackColor(quint32 colour);
    void applyFont();
    void placeWindow();
    void showEmptyState();
    void showCurrentSong();
    void emptyMessage();

    void cmdShowArtistSongs_Click();
    void DisplayRecCntMenu_Click();
    void AboutBox_Click();

    [[nodiscard]] QWidget *controlOf(MainControl control) const;
    /** Runs a handler; whatever it throws is shown under the program's title. */
    void handle(const std::function<void()> &handler);

    std::unique_ptr<Ui::NameList> m_ui;
    Session &m_session;
    std::function<void()> m_unloaded;
    std::unique_ptr<ScanForms> m_scanForms;
    std::unique_ptr<MusicLoader> m_loader;
    std::unique_ptr<AddCommands> m_addCommands;
    QLabel *m_emptyText = nullptr;
    QPushButton *m_emptyButton = nullptr;
    bool m_firstActivation = true;
    bool m_activating = false;
    bool m_unloadedAlready = false;
};

} // namespace quaverly
