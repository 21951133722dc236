// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "songlist/ListView.h"

#include <QFlags>

/** What the main screen offers and says above the list: a function from what is the case. */
namespace quaverly {

/** Commands and controls of the main screen that depend on the list. */
enum class MainControl {
    cmdAdd = 1 << 0,
    cmdEdit = 1 << 1,
    cmdDelete = 1 << 2,
    cmdExit = 1 << 3,
    cmdPlay = 1 << 4,
    cmdPlayAll = 1 << 5,
    cmdShowArtistSongs = 1 << 6,
    cmdShowSelected = 1 << 7,
    cmdFilter = 1 << 8,
    cmdFind = 1 << 9,
    cmbSort = 1 << 10,
    cmdSortSong = 1 << 11,
    cmdSortArtist = 1 << 12,
    AddMenu = 1 << 13,
    FindEditMenu = 1 << 14,
    File = 1 << 15,
    lblFilterMsg = 1 << 16,
};
Q_DECLARE_FLAGS(MainControls, MainControl)
Q_DECLARE_OPERATORS_FOR_FLAGS(MainControls)

inline constexpr MainControls AllMainControls = MainControls((1 << 17) - 1);

/** What counts beside the view. */
struct ListFacts
{
    bool hasRows = false;
    /** Of the current row; blank without one. */
    QString artist{};
    /** Songs that are marked. */
    int SelectedCount = 0;
    /** The editor is open on a new record. */
    bool isAdding = false;
    /** What Find is looking for just now. */
    QString soughtText{};
};

/** Only the artist button, cmdShowSelected and lblFilterMsg are hidden at times. */
struct MainLook
{
    QString lblCategory{};
    QString lblFilterMsg{};
    QString cmdShowArtistSongs{};
    MainControls enabled = AllMainControls;
    MainControls shown = AllMainControls;

    bool operator==(const MainLook &) const = default;
};

[[nodiscard]] MainLook lookOf(const ListView &view, const ListFacts &facts);

} // namespace quaverly
