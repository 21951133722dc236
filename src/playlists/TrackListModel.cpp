// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlists/TrackListModel.h"

#include "playlists/TrackRows.h"

#include <QMimeData>
#include <QSize>

#include <memory>

namespace quaverly {

TrackListModel::TrackListModel(TrackRows &rows, QObject *parent) : QAbstractListModel(parent), m_rows(rows)
{}

int TrackListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows.ListCount();
}

QVariant TrackListModel::data(const QModelIndex &index, int role) const
{
    // Copying with no row selected asks for a row that isn't there.
    if (!index.isValid())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return m_rows.text(index.row());
    case Qt::SizeHintRole:
        return QSize(0, m_rowHeight);
    default:
        return {};
    }
}

Qt::ItemFlags TrackListModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractListModel::flags(index) | Qt::ItemIsDropEnabled;
    return m_rows.isSong(index.row()) ? flags | Qt::ItemIsDragEnabled : flags;
}

QStringList TrackListModel::mimeTypes() const
{
    return {QString::fromUtf16(DraggedSong)};
}

QMimeData *TrackListModel::mimeData(const QModelIndexList &indexes) const
{
    auto song = std::make_unique<QMimeData>();
    if (!indexes.isEmpty())
        song->setData(mimeTypes().first(), QByteArray::number(indexes.first().row()));
    return song.release();
}

void TrackListModel::reset()
{
    beginResetModel();
    endResetModel();
}

void TrackListModel::textChanged(int row)
{
    Q_EMIT dataChanged(index(row), index(row));
}

void TrackListModel::MoveListBoxItem(int selected, int target)
{
    const auto place = m_rows.placeAfterMove(selected, target);
    if (!place || *place == selected)
        return;
    beginMoveRows({}, selected, selected, {}, target);
    m_rows.MoveListBoxItem(selected, target);
    endMoveRows();
}

} // namespace quaverly
