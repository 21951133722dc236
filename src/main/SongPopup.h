// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMenu>

namespace quaverly {

/** The menu of the current song, at the right button or the menu key. */
class SongPopup final : public QMenu
{
    Q_OBJECT

public:
    /** @p addToPlayList is one of the entries: its caption names the list. */
    SongPopup(const QList<QAction *> &entries, QAction *addToPlayList, QWidget *parent);

    /** @p currentList may be empty: no play list is chosen. */
    void show(QPoint place, const QString &currentList);

private:
    QAction *m_addToPlayList;
};

} // namespace quaverly
