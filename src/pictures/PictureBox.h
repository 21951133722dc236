// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QWidget>

namespace quaverly {

/** Shows a picture in the middle of itself, as large as it can in its own proportions. */
class PictureBox final : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    /** A null image clears the box. */
    void setPicture(const QImage &picture);
    [[nodiscard]] const QImage &picture() const { return m_picture; }
    /** Stands in an empty box. */
    void setHint(const QString &hint);

    /** The size that the box would like to have. */
    void setWantedSize(QSize size);
    [[nodiscard]] QSize sizeHint() const override { return m_wanted; }

Q_SIGNALS:
    void doubleClicked();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    QImage m_picture;
    QString m_hint;
    QSize m_wanted;
};

} // namespace quaverly
