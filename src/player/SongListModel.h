// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractListModel>

namespace quaverly {

class SongQueue;

/** One of a queue's two lists. It holds nothing itself; the selected row is marked as the one that plays. */
class SongListModel final : public QAbstractListModel
{
    Q_OBJECT

public:
    enum class List { Songs, Urls };

    /** @p queue outlives the model. */
    SongListModel(const SongQueue &queue, List list, QObject *parent);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

    /** Of every row, in pixels. */
    void setRowHeight(int height) { m_rowHeight = height; }

    /** The queue holds other songs. */
    void reset();
    /** The queue's ListIndex is another one. */
    void selectionMoved(int from, int to);

private:
    const SongQueue &m_queue;
    List m_list;
    int m_rowHeight = 0;
};

} // namespace quaverly
