// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "songlist/MainLook.h"

#include <QString>

namespace quaverly {

/** What other screens and the displayed set may ask of the main screen. */
class MainScreen
{
public:
    virtual ~MainScreen() = default;

    virtual void show(const MainLook &look) = 0;
    virtual void set_txtLocate(const QString &text) = 0;
    virtual void set_txtName(const QString &text) = 0;

    /** Text of the sort box; setting it applies the sort, as choosing it does. */
    [[nodiscard]] virtual QString cmbSort() const = 0;
    virtual void set_cmbSort(const QString &label) = 0;
    virtual void cmbSort_Click() = 0;
    virtual void cmdSortArtist_Click() = 0;
    virtual void cmdSortSong_Click() = 0;
    virtual void ShowAllMenu_Click() = 0;

    /** Field of the grid's column 1, and the current row's place among the visible rows. */
    [[nodiscard]] virtual QString firstColumnField() const = 0;
    [[nodiscard]] virtual int gridRow() const = 0;
    virtual void scrollGrid(int columns, int rows) = 0;
    virtual void clearGridMarkArmed() = 0;
    virtual void focusGrid() = 0;

    /** The whole screen, for the length of a scan. */
    virtual void setScreenEnabled(bool enabled) = 0;
    /** Number of open screens, this one included. */
    [[nodiscard]] virtual int openScreens() const = 0;
    virtual void unloadPics3() = 0;
    virtual void unloadPlayForm() = 0;
};

} // namespace quaverly
