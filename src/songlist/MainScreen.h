// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quaverly {

/** Commands and controls of the main screen that others enable and disable. */
enum class MainControl {
    cmdAdd,
    cmdEdit,
    cmdDelete,
    cmdExit,
    cmdPlay,
    cmdPlayAll,
    cmdShowArtistSongs,
    cmdShowSelected,
    cmdFilter,
    cmdFind,
    cmbSort,
    cmdSortSong,
    cmdSortArtist,
    AddMenu,
    FindEditMenu,
    File,
    lblFilterMsg,
};

/**
 * What other screens and the displayed set may ask of the main screen. Captions are state: they are
 * read back, so each has a getter.
 */
class MainScreen
{
public:
    virtual ~MainScreen() = default;

    virtual void setEnabled(MainControl control, bool enabled) = 0;
    virtual void setVisible(MainControl control, bool visible) = 0;
    [[nodiscard]] virtual bool isVisible(MainControl control) const = 0;

    virtual void set_lblCategory(const QString &caption) = 0;
    [[nodiscard]] virtual QString lblCategory() const = 0;
    virtual void set_lblFilterMsg(const QString &caption) = 0;
    [[nodiscard]] virtual QString lblFilterMsg() const = 0;
    virtual void set_lblSelectedCount(const QString &caption) = 0;
    virtual void set_cmdShowArtistSongs(const QString &caption) = 0;
    [[nodiscard]] virtual QString cmdShowArtistSongs() const = 0;
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
