// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QListView>
#include <QPoint>

#include <optional>

namespace quaverly {

/**
 * The list box of a play list's songs. A song is dragged inside it, or moved by Alt+Up and Alt+Down, and
 * both tell the same two things, with the row concerned; -1 where there is none.
 */
class TrackListView final : public QListView
{
    Q_OBJECT

public:
    explicit TrackListView(QWidget *parent = nullptr);

    /** The selected row; -1 without one. */
    [[nodiscard]] int ListIndex() const;
    void setListIndex(int row);

Q_SIGNALS:
    /** The user went to a row or clicked the selected one again. */
    void rowChosen(int row);
    void deletePressed();

    void beginDrag(int row);
    void dropped(int row);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void startDrag(Qt::DropActions supportedActions) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    /** A text that is cut shows as a whole. */
    bool viewportEvent(QEvent *event) override;

private:
    void moveByKey(int target);
    void drawInsert();
    void endDragging();

    /** Where the pointer is while a song is dragged. */
    std::optional<QPoint> m_dragPoint;
};

} // namespace quaverly
