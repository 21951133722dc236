// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pictures/JpegPlanes.h"
#include "pictures/JpegTables.h"

#include <QByteArray>
#include <QByteArrayView>

namespace quaverly {

/** The bytes of a JPEG file: markers, and the bits between them. */
class JpegStream final
{
public:
    void byte(int value);
    void word(int value);
    void bytes(QByteArrayView bytes);
    /** Start of image, end of image, and the like: a marker without a content. */
    void marker(int code);
    /** A marker and the length of what follows it, @p contentLength bytes. */
    void marker(int code, int contentLength);

    /** The quantised coefficients of a block; @p previousDc is its component's. */
    void block(const std::array<qint16, BlockSize> &coefficients, int &previousDc, const HuffmanCodes &dc,
               const HuffmanCodes &ac);
    /** Fills the last byte after the last block of a scan. */
    void endScan();

    [[nodiscard]] QByteArray take();

private:
    void bits(unsigned value, unsigned count);
    void value(int number, unsigned size);
    void code(HuffmanCodes::Code code) { bits(code.bits, code.length); }
    void entropyByte(unsigned value);

    std::vector<quint8> m_bytes;
    quint64 m_pending = 0;
    unsigned m_pendingCount = 0;
};

} // namespace quaverly
