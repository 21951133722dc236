// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/SongListView.h"

#include "desktop/ScreenLook.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int RoomForIcon = 32;
/** What a row adds to its text. */
constexpr int RowPadding = 8;

} // namespace

SongListView::SongListView(QWidget *parent) : QListView(parent)
{
    connect(this, &QAbstractItemView::clicked, this,
            [this](const QModelIndex &index) { Q_EMIT rowChosen(index.row()); });
}

bool SongListView::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto *press = static_cast<QKeyEvent *>(event);
        const bool arrow = press->key() == Qt::Key_Up || press->key() == Qt::Key_Down;
        if (arrow && (press->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier) {
            event->accept();
            return true;
        }
    }
    return QListView::event(event);
}

void SongListView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Space) {
        event->ignore();
        return;
    }
    const QModelIndex before = currentIndex();
    QListView::keyPressEvent(event);
    const bool again = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (currentIndex().isValid() && (again || currentIndex() != before))
        Q_EMIT rowChosen(currentIndex().row());
}

void SongListView::startDrag(Qt::DropActions actions)
{
    QListView::startDrag(actions);
    Q_EMIT dragEnded();
}

bool SongListView::isCut(const QModelIndex &index) const
{
    QFont bold = font();
    bold.setBold(true);
    return QFontMetrics(bold).horizontalAdvance(index.data().toString()) > viewport()->width() - RoomForIcon;
}

bool SongListView::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        if (const QModelIndex index = indexAt(help->pos()); index.isValid() && isCut(index)) {
            QToolTip::showText(help->globalPos(),
                               u"<p>"_s + index.data().toString().toHtmlEscaped() + u"</p>"_s, this);
            return true;
        }
    }
    return QListView::viewportEvent(event);
}

int songRowHeight(const QWidget &screen, bool forFingers)
{
    return forFingers ? FingerHeight : screen.fontMetrics().height() + RowPadding;
}

} // namespace quaverly
