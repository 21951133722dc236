// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quaverly {

/** What the list shows. */
enum class ListKind {
    AllSongs,
    Category,
    /** What a filter lets through, within the category if one is in force. */
    Filter,
    /** What Find Any Text found. */
    Find,
    Artist,
    /** For the length of the way back from an artist's songs. */
    Returning,
    PlayList,
    InvalidFiles,
    /** Of a check of the catalogue. */
    Findings,
    SelectedOnly,
    HidingSelected,
    Duplicates,
    /** What nothing above the list tells of: a category or an artist was left, or its songs are deleted. */
    Unnamed,
};

/** The category in force. */
struct ShownCategory
{
    /** 0 without one. */
    qint64 number = 0;
    /** As it stands above the list; invalid files are shown within a category without its name. */
    QString name{};

    bool operator==(const ShownCategory &) const = default;
};

/** What the list shows and what may be done with it. Above the list this is told in words (lookOf). */
struct ListView
{
    ListKind kind = ListKind::AllSongs;
    ShownCategory category{};
    /** What was found, the play list's name, the title of the duplicates or what a check says. */
    QString text{};
    /** By the button. What a kind says nothing about stays as it was before. */
    bool mayAdd = true;
    /** The list may be sorted, searched and narrowed. A stored query's rows may not, nor what is shown
     * next, until it is all songs or a category. */
    bool mayCompose = true;
    /** The artist button leads back to where the artist's songs, or what became of them, were chosen. */
    bool leadsBack = false;
    /** A list of marked songs may show some that no longer are. */
    bool areMarksChanged = false;

    bool operator==(const ListView &) const = default;
};

/** @p next, of which kind, category and text are set, with what it takes over from @p before. */
[[nodiscard]] ListView viewAfter(const ListView &before, ListView next);

} // namespace quaverly
