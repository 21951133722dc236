// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/cImage.h"

#include <QPainter>
#include <QTransform>

namespace quaverly {

namespace {

QImage::Format formatOf(int bitCount)
{
    switch (bitCount) {
    case 1:
        return QImage::Format_Mono;
    case 8:
        return QImage::Format_Indexed8;
    case 16:
        return QImage::Format_RGB16;
    case 24:
        return QImage::Format_RGB888;
    case 32:
        return QImage::Format_RGB32;
    default:
        return QImage::Format_Invalid;
    }
}

/** On white where it is transparent. */
QImage opaque(const QImage &picture)
{
    if (!picture.hasAlphaChannel())
        return picture.convertToFormat(QImage::Format_RGB32);
    QImage result(picture.size(), QImage::Format_RGB32);
    result.fill(Qt::white);
    QPainter(&result).drawImage(QRect(QPoint(), picture.size()), picture);
    return result;
}

} // namespace

bool cImage::Create(int width, int height, int bitCount)
{
    m_bitmap = QImage(width, height, formatOf(bitCount));
    if (m_bitmap.isNull())
        return false;
    if (bitCount <= 8)
        m_bitmap.setColorTable({qRgb(0, 0, 0), qRgb(255, 255, 255)});
    m_bitmap.fill(0);
    return true;
}

void cImage::CopyStdPicture(const QImage &picture)
{
    m_bitmap = opaque(picture);
}

void cImage::CopyHDC(const QImage &source, const QRect &part)
{
    m_bitmap = opaque(source.copy(part));
}

void cImage::CopyPalletHDC(const QImage &source, const QRect &part)
{
    m_bitmap = source.copy(part);
}

void cImage::PaintHDC(QPainter &target, const QRect &place) const
{
    target.drawImage(place, m_bitmap);
}

void cImage::Greyscale()
{
    m_bitmap = m_bitmap.convertToFormat(QImage::Format_Grayscale8).convertToFormat(QImage::Format_RGB32);
}

void cImage::Resample(int width, int height)
{
    m_bitmap = m_bitmap.scaled(width, height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                   .convertToFormat(QImage::Format_RGB32);
}

void cImage::Mirror(bool horizontally, bool vertically)
{
    m_bitmap.mirror(horizontally, vertically);
}

void cImage::Rotate(double degrees)
{
    m_bitmap = opaque(m_bitmap.transformed(QTransform().rotate(degrees), Qt::SmoothTransformation));
}

} // namespace quaverly
