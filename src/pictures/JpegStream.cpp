// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/JpegStream.h"

#include <bit>
#include <cstdlib>

namespace quaverly {

namespace {

constexpr int MarkerByte = 0xFF;
constexpr quint8 EndOfBlock = 0x00;
constexpr quint8 SixteenZeros = 0xF0;
constexpr unsigned LongestRun = 15;

} // namespace

void JpegStream::byte(int value)
{
    m_bytes.push_back(static_cast<quint8>(value));
}

void JpegStream::word(int value)
{
    byte(value >> 8);
    byte(value);
}

void JpegStream::bytes(QByteArrayView bytes)
{
    m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end());
}

void JpegStream::marker(int code)
{
    byte(MarkerByte);
    byte(code);
}

void JpegStream::marker(int code, int contentLength)
{
    marker(code);
    word(contentLength + 2);
}

void JpegStream::entropyByte(unsigned value)
{
    byte(static_cast<int>(value));
    // Within a scan such a byte is no marker: a zero behind it says so.
    if ((value & 0xFFU) == MarkerByte)
        byte(0);
}

void JpegStream::bits(unsigned value, unsigned count)
{
    // Four bytes at once: most of an encoder's time goes by here.
    constexpr unsigned Word = 32;
    m_pending = m_pending << count | value;
    m_pendingCount += count;
    if (m_pendingCount < Word)
        return;
    m_pendingCount -= Word;
    const auto word = static_cast<quint32>(m_pending >> m_pendingCount);
    for (unsigned shift = Word; shift > 0; shift -= 8)
        entropyByte(word >> (shift - 8) & 0xFFU);
}

void JpegStream::value(int number, unsigned size)
{
    // Negative numbers are written less one, so that their first bit tells them.
    const int written = number < 0 ? number - 1 : number;
    bits(static_cast<unsigned>(written) & ((1U << size) - 1U), size);
}

void JpegStream::block(const std::array<qint16, BlockSize> &coefficients, int &previousDc,
                       const HuffmanCodes &dc, const HuffmanCodes &ac)
{
    const auto sizeOf = [](int number) { return unsigned(std::bit_width(unsigned(std::abs(number)))); };
    const int difference = coefficients[0] - previousDc;
    previousDc = coefficients[0];
    const unsigned dcSize = sizeOf(difference);
    code(dc.code(static_cast<quint8>(dcSize)));
    value(difference, dcSize);

    unsigned zeros = 0;
    for (std::size_t i = 1; i < coefficients.size(); ++i) {
        const int number = coefficients[i];
        if (number == 0) {
            ++zeros;
            continue;
        }
        for (; zeros > LongestRun; zeros -= LongestRun + 1)
            code(ac.code(SixteenZeros));
        const unsigned size = sizeOf(number);
        code(ac.code(static_cast<quint8>(zeros << 4 | size)));
        value(number, size);
        zeros = 0;
    }
    if (zeros > 0)
        code(ac.code(EndOfBlock));
}

void JpegStream::endScan()
{
    // The last byte is filled up with ones, which begin no code.
    const unsigned missing = (8 - m_pendingCount % 8) % 8;
    bits((1U << missing) - 1U, missing);
    for (; m_pendingCount > 0; m_pendingCount -= 8)
        entropyByte(static_cast<unsigned>(m_pending >> (m_pendingCount - 8)) & 0xFFU);
    m_pending = 0;
}

QByteArray JpegStream::take()
{
    QByteArray taken(reinterpret_cast<const char *>(m_bytes.data()), static_cast<qsizetype>(m_bytes.size()));
    m_bytes.clear();
    return taken;
}

} // namespace quaverly
