// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "songlist/DisplayedSet.h"
#include "songlist/MainScreen.h"

#include <QPoint>

namespace quaverly::test {

/**
 * A main screen without widgets. It keeps what it is told and does what the real one does on its own:
 * the sort box sorts, the two sort buttons exchange the principal columns, and the look
 * follows the current row. Without a displayed set it only keeps and counts.
 */
class FakeMainScreen : public MainScreen, public DataListener
{
public:
    explicit FakeMainScreen(DisplayedSet *set = nullptr);
    ~FakeMainScreen() override;
    FakeMainScreen(const FakeMainScreen &) = delete;
    FakeMainScreen &operator=(const FakeMainScreen &) = delete;

    [[nodiscard]] bool isEnabled(MainControl control) const { return m_look.enabled.testFlag(control); }
    [[nodiscard]] bool isVisible(MainControl control) const { return m_look.shown.testFlag(control); }
    [[nodiscard]] QString lblCategory() const { return m_look.lblCategory; }
    [[nodiscard]] QString lblFilterMsg() const { return m_look.lblFilterMsg; }
    [[nodiscard]] QString cmdShowArtistSongs() const { return m_look.cmdShowArtistSongs; }

    QList<QPoint> scrolls;
    int row = 0;
    int screens = 1;
    int showAlls = 0;
    int gridFocuses = 0;
    int pics3Unloads = 0;
    int playFormUnloads = 0;

    void show(const MainLook &look) override { m_look = look; }
    void set_txtLocate(const QString & /*text*/) override {}
    void set_txtName(const QString & /*text*/) override {}
    [[nodiscard]] QString cmbSort() const override { return m_cmbSort; }
    void set_cmbSort(const QString &label) override;
    void cmbSort_Click() override { m_set->applySort(m_cmbSort); }
    void cmdSortArtist_Click() override;
    void cmdSortSong_Click() override;
    void ShowAllMenu_Click() override;
    [[nodiscard]] QString firstColumnField() const override { return m_firstColumn; }
    [[nodiscard]] int gridRow() const override { return row; }
    void scrollGrid(int columns, int rows) override { scrolls.append({columns, rows}); }
    void clearGridMarkArmed() override {}
    void focusGrid() override { ++gridFocuses; }
    void setScreenEnabled(bool /*enabled*/) override {}
    [[nodiscard]] int openScreens() const override { return screens; }
    void unloadPics3() override { ++pics3Unloads; }
    void unloadPlayForm() override { ++playFormUnloads; }

    void setRebuilt() override { rowChanged(); }
    void rowChanged() override { m_set->showLook(); }

private:
    DisplayedSet *m_set;
    MainLook m_look;
    QString m_cmbSort;
    QString m_firstColumn = QStringLiteral("SongName");
};

} // namespace quaverly::test
