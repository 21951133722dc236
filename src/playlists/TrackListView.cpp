// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlists/TrackListView.h"

#include "playlists/TrackListModel.h"

#include <QDropEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int InsertMarkPixels = 2;
constexpr int TextMargins = 8;

bool isSong(const QDropEvent &event)
{
    return event.mimeData()->hasFormat(QString::fromUtf16(DraggedSong));
}

} // namespace

TrackListView::TrackListView(QWidget *parent) : QListView(parent)
{
    setDragEnabled(true);
    setAcceptDrops(true);
    setDragDropMode(QAbstractItemView::InternalMove);
    setDropIndicatorShown(false);
    connect(this, &QAbstractItemView::clicked, this,
            [this](const QModelIndex &index) { Q_EMIT rowChosen(index.row()); });
}

int TrackListView::ListIndex() const
{
    const QModelIndexList selected = selectedIndexes();
    return selected.isEmpty() ? -1 : selected.first().row();
}

void TrackListView::setListIndex(int row)
{
    const QModelIndex index = model()->index(row, 0);
    if (!index.isValid())
        return;
    setCurrentIndex(index);
    scrollTo(index);
}

void TrackListView::keyPressEvent(QKeyEvent *event)
{
    const int row = ListIndex();
    if (event->modifiers() == Qt::AltModifier && event->key() == Qt::Key_Up)
        return moveByKey(row - 1);
    if (event->modifiers() == Qt::AltModifier && event->key() == Qt::Key_Down)
        return moveByKey(row + 2);
    if (event->key() == Qt::Key_Delete) {
        Q_EMIT deletePressed();
        return;
    }
    QListView::keyPressEvent(event);
    if (ListIndex() >= 0 && ListIndex() != row)
        Q_EMIT rowChosen(ListIndex());
}

void TrackListView::moveByKey(int target)
{
    const int row = ListIndex();
    if (row < 0 || target < 0 || target >= model()->rowCount())
        return;
    Q_EMIT beginDrag(row);
    Q_EMIT dropped(target);
    scrollTo(currentIndex());
}

void TrackListView::startDrag(Qt::DropActions supportedActions)
{
    Q_EMIT beginDrag(ListIndex());
    QListView::startDrag(supportedActions);
    endDragging();
}

void TrackListView::dragEnterEvent(QDragEnterEvent *event)
{
    event->setAccepted(isSong(*event));
}

void TrackListView::dragMoveEvent(QDragMoveEvent *event)
{
    if (!isSong(*event)) {
        event->ignore();
        return;
    }
    // The place that it notes is where it scrolls from.
    QListView::dragMoveEvent(event);
    event->acceptProposedAction();
    m_dragPoint = event->position().toPoint();
    const QRect middle = viewport()->rect().adjusted(0, autoScrollMargin(), 0, -autoScrollMargin());
    if (!middle.contains(*m_dragPoint))
        startAutoScroll();
    viewport()->update();
}

void TrackListView::dragLeaveEvent(QDragLeaveEvent *event)
{
    endDragging();
    event->accept();
}

void TrackListView::dropEvent(QDropEvent *event)
{
    if (!isSong(*event)) {
        event->ignore();
        return;
    }
    event->acceptProposedAction();
    endDragging();
    Q_EMIT dropped(indexAt(event->position().toPoint()).row());
}

void TrackListView::endDragging()
{
    stopAutoScroll();
    setState(NoState);
    m_dragPoint.reset();
    viewport()->update();
}

void TrackListView::paintEvent(QPaintEvent *event)
{
    QListView::paintEvent(event);
    if (m_dragPoint)
        drawInsert();
}

void TrackListView::drawInsert()
{
    const QModelIndex index = indexAt(*m_dragPoint);
    if (!index.isValid())
        return;
    QPainter painter(viewport());
    const QRect row = visualRect(index);
    const QRect mark(row.left(), std::max(row.top() - InsertMarkPixels / 2, 0), row.width(),
                     InsertMarkPixels);
    painter.fillRect(mark, palette().color(QPalette::Highlight));
}

bool TrackListView::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        const QModelIndex index = indexAt(help->pos());
        const QString text = index.data().toString();
        if (index.isValid() && fontMetrics().horizontalAdvance(text) > viewport()->width() - TextMargins) {
            QToolTip::showText(help->globalPos(), u"<p>"_s + text.toHtmlEscaped() + u"</p>"_s, this);
            return true;
        }
    }
    return QListView::viewportEvent(event);
}

} // namespace quaverly
