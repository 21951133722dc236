// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/PlayerRules.h"

#include "platform/media/Media.h"

namespace quaverly {

namespace {

StateFollow follow(const StateChange &change)
{
    StateFollow steps;
    steps.play = change.checks.cbSkipDups && change.playState == media::Stopped;
    steps.advance = change.NewState == media::MediaEnded && change.ListIndex < change.songs - 1;
    steps.skipDuplicates = steps.advance && change.checks.cbSkipDups;
    return steps;
}

/** The row beside the selected one that the control went to. */
int neighbour(const ItemChange &change, const SongQueue &queue)
{
    const int here = queue.ListIndex();
    if (isSameText(queue.url(here), change.Url))
        return here;
    if (here + 1 < queue.count() && isSameText(queue.url(here + 1), change.Url))
        return here + 1;
    const int before = here == 0 ? here : here - 1;
    if (isSameText(queue.url(before), change.Url))
        return before;
    // Further away it went over songs that it could not play.
    const int found = queue.rowOf(change.Url);
    return found >= 0 ? found : before;
}

int rowInOrder(const ItemChange &change, const SongQueue &queue)
{
    const bool moves = change.playState == media::Playing || change.playState == media::Transitioning ||
                       change.playState == media::Ready;
    if (moves) {
        return change.itemName == QStringView(TemporaryListItem) ? queue.ListIndex()
                                                                 : neighbour(change, queue);
    }
    // "Previous" from the first song wraps.
    const int last = queue.count() - 1;
    return queue.ListIndex() == 0 && isSameText(queue.url(last), change.Url) ? last : queue.ListIndex();
}

} // namespace

bool isOneFile(const QString &url)
{
    return !url.contains(QString::fromUtf16(TemporaryListItem), Qt::CaseInsensitive);
}

StateDecision decideStateChange(const StateChange &change)
{
    const PlayerChecks &checks = change.checks;
    const bool nowChecked = checks.cbPlayRandom || checks.cbPlayNext;
    const bool atEnd = change.playState == media::Stopped || change.playState == media::MediaEnded;
    if (change.NewState == media::Ready && nowChecked)
        return {StateStep::Play};
    if (checks.cbLoop && change.songs == 1 && atEnd)
        return {StateStep::Play};
    if (change.NewState == media::MediaEnded && isOneFile(change.CurrentPlayUrl)) {
        if (nowChecked)
            return {checks.cbPlayRandom ? StateStep::PlayRandom : StateStep::PlayNext};
        return {change.endsProgram ? StateStep::EndProgram : StateStep::Unload};
    }
    return {StateStep::Follow, follow(change)};
}

DuplicateSkip skipDuplicates(const SongQueue &queue)
{
    DuplicateSkip skip{0, queue.ListIndex()};
    const int last = queue.count() - 1;
    while (skip.row > 0 && skip.row < last && isSameText(queue.song(skip.row), queue.song(skip.row - 1))) {
        ++skip.nexts;
        ++skip.row;
        if (skip.row == last) {
            ++skip.nexts;
            skip.row = 0;
        }
    }
    return skip;
}

int decideItemChange(const ItemChange &change, const SongQueue &queue)
{
    const int here = queue.ListIndex();
    const bool isFirst = isSameText(queue.url(0), change.Url);
    if (isFirst && ((change.playState == media::Ready && here != 0) || here == -1))
        return 0;
    // "Previous" on the last song is no wrap.
    if (change.cbLoop && queue.isLastSelected() && change.playState == media::Transitioning &&
        (isFirst || queue.rowOf(change.Url) == -1))
        return 0;
    if (here == -1)
        return -1;
    if (change.cbShuffle)
        return isSameText(queue.url(here), change.Url) ? here : queue.rowOf(change.Url);
    return rowInOrder(change, queue);
}

} // namespace quaverly
