// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractListModel>

namespace quaverly {

class SongQueue;

/**
 * One of a queue's two lists. It holds nothing itself; the selected row is marked as the one that plays. A
 * row can be dragged to another place.
 */
class SongListModel final : public QAbstractListModel
{
    Q_OBJECT

public:
    enum class List { Songs, Urls };

    /** @p queue outlives the model. */
    SongListModel(SongQueue &queue, List list, QObject *parent);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

    /** Of every row, in pixels. */
    void setRowHeight(int height) { m_rowHeight = height; }

    // Changes of the queue that views follow row by row.
    void insert(int row, const QString &song, const QString &url);
    void remove(int row);
    /** @p to: the song's row when it has moved. */
    void move(int from, int to);

    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;
    [[nodiscard]] Qt::DropActions supportedDropActions() const override { return Qt::MoveAction; }
    /** A drag wants it: told by moveWanted(), carried out by whoever plays the songs. */
    bool moveRows(const QModelIndex &source, int from, int count, const QModelIndex &target, int to) override;

    /** The queue holds other songs. */
    void reset();
    /** The queue's ListIndex is another one. */
    void selectionMoved(int from, int to);

Q_SIGNALS:
    void moveWanted(int from, int to);

private:
    SongQueue &m_queue;
    List m_list;
    int m_rowHeight = 0;
};

} // namespace quaverly
