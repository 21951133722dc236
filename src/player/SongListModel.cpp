// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/SongListModel.h"

#include "desktop/Icons.h"
#include "player/SongQueue.h"

#include <QColor>
#include <QFont>
#include <QSize>

using namespace Qt::StringLiterals;

namespace quaverly {

SongListModel::SongListModel(SongQueue &queue, List list, QObject *parent)
    : QAbstractListModel(parent), m_queue(queue), m_list(list)
{}

int SongListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_queue.count();
}

QVariant SongListModel::data(const QModelIndex &index, int role) const
{
    // Copying with no row selected asks for a row that isn't there.
    if (!index.isValid())
        return {};
    const int row = index.row();
    const bool plays = row == m_queue.ListIndex() && m_list == List::Songs;
    switch (role) {
    case Qt::DisplayRole:
        return m_list == List::Songs ? m_queue.song(row) : m_queue.url(row);
    case Qt::FontRole: {
        QFont font;
        font.setBold(plays);
        return font;
    }
    case Qt::DecorationRole:
        // The others keep its room free.
        return plays ? QVariant(icon(u"play"_s)) : QVariant(QColor(Qt::transparent));
    case Qt::SizeHintRole:
        return QSize(0, m_rowHeight);
    default:
        return {};
    }
}

void SongListModel::insert(int row, const QString &song, const QString &url)
{
    beginInsertRows({}, row, row);
    m_queue.insert(row, song, url);
    endInsertRows();
}

void SongListModel::remove(int row)
{
    beginRemoveRows({}, row, row);
    m_queue.remove(row);
    endRemoveRows();
}

void SongListModel::move(int from, int to)
{
    // The place is counted with the row still where it was.
    if (from == to || !beginMoveRows({}, from, from, {}, to > from ? to + 1 : to))
        return;
    m_queue.move(from, to);
    endMoveRows();
}

Qt::ItemFlags SongListModel::flags(const QModelIndex &index) const
{
    // Between the songs is where one can be dropped.
    return index.isValid() ? QAbstractListModel::flags(index) | Qt::ItemIsDragEnabled : Qt::ItemIsDropEnabled;
}

bool SongListModel::moveRows(const QModelIndex & /*source*/, int from, int count,
                             const QModelIndex & /*target*/, int to)
{
    if (count != 1)
        return false;
    Q_EMIT moveWanted(from, to > from ? to - 1 : to);
    return true;
}

void SongListModel::reset()
{
    beginResetModel();
    endResetModel();
}

void SongListModel::selectionMoved(int from, int to)
{
    for (const int row : {from, to}) {
        if (row >= 0 && row < rowCount())
            Q_EMIT dataChanged(index(row), index(row));
    }
}

} // namespace quaverly
