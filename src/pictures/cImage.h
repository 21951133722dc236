// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>

class QPainter;

namespace quaverly {

/** A bitmap in memory. Its operations replace it; without a bitmap they do nothing. */
class cImage final
{
public:
    [[nodiscard]] int Width() const { return m_bitmap.width(); }
    [[nodiscard]] int Height() const { return m_bitmap.height(); }
    /** Bits of a pixel: 1, 8, 16, 24 or 32; 0 without a bitmap. */
    [[nodiscard]] int BitCount() const { return m_bitmap.depth(); }
    /** What others read the pixels from. */
    [[nodiscard]] const QImage &hDC() const { return m_bitmap; }
    /** The first row; null without a bitmap. */
    [[nodiscard]] const uchar *DIBitsPtr() const { return m_bitmap.constBits(); }
    /** A multiple of 4. */
    [[nodiscard]] qsizetype BytesPerScanLine() const { return m_bitmap.bytesPerLine(); }

    /** A black bitmap; false, and none, for another bit count or a size that there is no memory for. */
    bool Create(int width, int height, int bitCount = 32);
    /** The picture at its own size, in 32 bits; what shows through it is white. */
    void CopyStdPicture(const QImage &picture);
    /** A part of another bitmap, in 32 bits. */
    void CopyHDC(const QImage &source, const QRect &part);
    /** A part of another bitmap with its palette. */
    void CopyPalletHDC(const QImage &source, const QRect &part);
    void PaintHDC(QPainter &target, const QRect &place) const;

    void Greyscale();
    void Resample(int width, int height);
    void Mirror(bool horizontally, bool vertically);
    /** Clockwise; the corners that this opens are white. */
    void Rotate(double degrees);

private:
    QImage m_bitmap;
};

} // namespace quaverly
