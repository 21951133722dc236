// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "player/SongQueue.h"

/**
 * What the player's screen does when the media control reports something: functions from what is the case to
 * what is to be done.
 */
namespace quaverly {

/** Name of the list file that several songs are played from, without its folder. */
inline constexpr char16_t TemporaryListName[] = u"QVPlayList.m3u";
/** The item's name while the control has not read that file. */
inline constexpr char16_t TemporaryListItem[] = u"QVPlayList";

/** The check boxes that the rules look at. */
struct PlayerChecks
{
    bool cbPlayNext = false;
    bool cbPlayRandom = false;
    bool cbLoop = false;
    bool cbShuffle = false;
    bool cbSkipDups = false;
};

/** What decides about a change of the play state; states are media::PlayState's numbers. */
struct StateChange
{
    int NewState = 0;
    int playState = 0;
    QString CurrentPlayUrl{};
    PlayerChecks checks{};
    int songs = 0;
    int ListIndex = -1;
    /** No other screen is open, and no play command is about to open the player anew. */
    bool endsProgram = false;
};

enum class StateStep {
    /** Start what the control has ready. */
    Play,
    EndProgram,
    Unload,
    PlayRandom,
    PlayNext,
    /** The control walks its list by itself: only the selection follows, as told by StateFollow. */
    Follow,
};

/** The parts of StateStep::Follow, in their order. */
struct StateFollow
{
    bool play = false;
    /** Select the row that follows, and then pass over duplicates if so checked. */
    bool advance = false;
    bool skipDuplicates = false;

    bool operator==(const StateFollow &) const = default;
};

struct StateDecision
{
    StateStep step = StateStep::Follow;
    StateFollow follow{};

    bool operator==(const StateDecision &) const = default;
};

/** @p url is no list file: one song plays at a time. */
[[nodiscard]] bool isOneFile(const QString &url);

[[nodiscard]] StateDecision decideStateChange(const StateChange &change);

/** Where passing over songs that equal the row before them leads. */
struct DuplicateSkip
{
    /** How often the control goes on to the next item. */
    int nexts = 0;
    /** The row to select in the end. */
    int row = -1;

    bool operator==(const DuplicateSkip &) const = default;
};

/** From the selected row. The last row is never passed over; to reach it by skipping leads to the first. */
[[nodiscard]] DuplicateSkip skipDuplicates(const SongQueue &queue);

/** What decides which row is selected when the control has another item. */
struct ItemChange
{
    int playState = 0;
    /** Path of what the control plays. */
    QString Url{};
    /** Name of the control's current item. */
    QString itemName{};
    bool cbLoop = false;
    bool cbShuffle = false;
};

/** The row to select, the selected one where it stays; -1 for none. */
[[nodiscard]] int decideItemChange(const ItemChange &change, const SongQueue &queue);

} // namespace quaverly
