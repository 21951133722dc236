// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class QWidget;

namespace quaverly {

class MediaBar;
class SongListView;

/**
 * The keys of a window that plays, wherever its focus is but in a text: Space plays and pauses, Left and
 * Right seek 5 seconds and with Ctrl 60, Ctrl+Up and Ctrl+Down set the volume. Up and Down choose songs and
 * never walk over the buttons.
 */
class PlayerKeys final : public QObject
{
    Q_OBJECT

public:
    /** All of it outlives the keys. @p songs is null in a window without a list. */
    PlayerKeys(QWidget &window, MediaBar &bar, SongListView *songs);

protected:
    /** A box that drops down keeps its own Up and Down. */
    bool eventFilter(QObject *watched, QEvent *event) override;
};

} // namespace quaverly
