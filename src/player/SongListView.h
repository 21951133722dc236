// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QListView>

namespace quaverly {

/** A list box: tells when the user, by mouse or key, goes to a row or chooses the selected one again. The
 * space bar is left to the screen around it. */
class SongListView final : public QListView
{
    Q_OBJECT

public:
    explicit SongListView(QWidget *parent = nullptr);

Q_SIGNALS:
    void rowChosen(int row);
    /** Wherever it was dropped. */
    void dragEnded();

protected:
    /** The arrow keys walk here, whatever they do in the window around. */
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void startDrag(Qt::DropActions actions) override;
    /** A text that is cut shows as a whole. */
    bool viewportEvent(QEvent *event) override;

private:
    [[nodiscard]] bool isCut(const QModelIndex &index) const;
};

/** Height of a row of songs in pixels, for a finger or for a mouse. */
[[nodiscard]] int songRowHeight(const QWidget &screen, bool forFingers);

} // namespace quaverly
