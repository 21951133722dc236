// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/PictureBox.h"

#include <QMouseEvent>
#include <QPainter>

namespace quaverly {

void PictureBox::setPicture(const QImage &picture)
{
    m_picture = picture;
    update();
}

void PictureBox::setHint(const QString &hint)
{
    m_hint = hint;
    update();
}

void PictureBox::setWantedSize(QSize size)
{
    m_wanted = size;
    updateGeometry();
}

void PictureBox::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    if (m_picture.isNull()) {
        painter.fillRect(rect(), palette().base());
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
        // Not the palette's own colour for hints, which some dark palettes leave black.
        QColor hint = palette().color(QPalette::Text);
        hint.setAlphaF(0.6F);
        painter.setPen(hint);
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, m_hint);
        return;
    }
    QRect place(QPoint(), m_picture.size().scaled(size(), Qt::KeepAspectRatio));
    place.moveCenter(rect().center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    // Reduced here, where every pixel of the picture counts; a painter looks at four at most.
    const QSize pixels = place.size() * devicePixelRatioF();
    if (pixels.width() < m_picture.width() && !pixels.isEmpty())
        painter.drawImage(place, m_picture.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    else
        painter.drawImage(place, m_picture);
}

void PictureBox::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        Q_EMIT doubleClicked();
}

} // namespace quaverly
