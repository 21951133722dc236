// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/AdtsFrames.h"

#include <array>
#include <cmath>

namespace shell {

namespace {

constexpr qsizetype HeaderSize = 7;
constexpr qsizetype Piece = 64 * 1024;
constexpr qint64 LongestJunk = 256 * 1024;
constexpr qint64 MostCounted = 32 << 20;
constexpr int SamplesPerBlock = 1024;

constexpr std::array SampleRates{96000, 88200, 64000, 48000, 44100, 32000, 24000,
                                 22050, 16000, 12000, 11025, 8000,  7350};

struct Frame
{
    int bytes = 0;
    int samples = 0;
    int sampleRate = 0;
};

std::optional<Frame> frameAt(QByteArrayView bytes, qsizetype at)
{
    if (at < 0 || at + HeaderSize > bytes.size())
        return {};
    const auto byte = [&](qsizetype i) { return int(static_cast<uchar>(bytes[at + i])); };
    const auto rate = static_cast<size_t>(byte(2) >> 2 & 0x0F);
    if (byte(0) != 0xFF || (byte(1) & 0xF6) != 0xF0 || rate >= SampleRates.size())
        return {};
    const int length = (byte(3) & 0x03) << 11 | byte(4) << 3 | byte(5) >> 5;
    if (length < HeaderSize)
        return {};
    return Frame{length, ((byte(6) & 0x03) + 1) * SamplesPerBlock, SampleRates[rate]};
}

/** Two frames in a row, or one that ends with the file: a lone sync word may be chance. */
std::optional<qint64> firstFrame(SongStream &stream, qint64 start)
{
    const QByteArray bytes = stream.bytesAt(start, LongestJunk);
    for (qsizetype at = 0; at + HeaderSize <= bytes.size(); ++at) {
        const auto frame = frameAt(bytes, at);
        if (!frame)
            continue;
        const qsizetype next = at + frame->bytes;
        if (start + next == stream.size() || frameAt(bytes, next))
            return start + at;
    }
    return {};
}

} // namespace

std::optional<AdtsSound> countAdtsFrames(SongStream &stream, qint64 start)
{
    const auto first = firstFrame(stream, start);
    if (!first)
        return {};
    qint64 bytes = 0;
    double seconds = 0;
    QByteArray piece;
    qint64 pieceStart = 0;
    while (bytes < MostCounted) {
        const qint64 offset = *first + bytes;
        if (offset + HeaderSize > pieceStart + piece.size()) {
            piece = stream.bytesAt(offset, Piece);
            pieceStart = offset;
        }
        const auto frame = frameAt(piece, offset - pieceStart);
        if (!frame)
            break;
        bytes += frame->bytes;
        seconds += double(frame->samples) / frame->sampleRate;
    }
    const double rate = double(bytes) * 8 / 1000 / seconds;
    if (bytes >= MostCounted)
        seconds *= double(stream.size() - *first) / double(bytes);
    return AdtsSound{static_cast<qint64>(seconds * 1000), static_cast<qint64>(std::llround(rate))};
}

} // namespace shell
