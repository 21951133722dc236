// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractListModel>

namespace quaverly {

class TrackRows;

/** What a dragged song is on its way; nothing but a list box of songs takes it. */
inline constexpr char16_t DraggedSong[] = u"application/x-quaverly-song-of-list";

/** The rows of lbDetail. It holds nothing itself, and only what is in sight is asked for. */
class TrackListModel final : public QAbstractListModel
{
    Q_OBJECT

public:
    /** @p rows outlives the model. */
    TrackListModel(TrackRows &rows, QObject *parent);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    /** Songs can be dragged, and dropped on every row. */
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;
    [[nodiscard]] QStringList mimeTypes() const override;
    [[nodiscard]] QMimeData *mimeData(const QModelIndexList &indexes) const override;
    [[nodiscard]] Qt::DropActions supportedDropActions() const override { return Qt::MoveAction; }

    /** Of every row, in pixels. */
    void setRowHeight(int height) { m_rowHeight = height; }

    /** The rows are other ones. */
    void reset();
    void textChanged(int row);
    /** See TrackRows; the views keep their selected song. */
    void MoveListBoxItem(int selected, int target);

private:
    TrackRows &m_rows;
    int m_rowHeight = 0;
};

} // namespace quaverly
