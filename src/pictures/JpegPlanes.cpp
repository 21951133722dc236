// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/JpegPlanes.h"

#include <QImage>

#include <algorithm>
#include <cstring>

namespace quaverly {

namespace {

constexpr int Side = 8;

int dividedUp(int value, int by)
{
    return (value + by - 1) / by;
}

/** The rows from which one row of every plane's blocks is made, at full rate and converted. */
class Strip final
{
public:
    Strip(int rows, std::size_t width) : m_width(width)
    {
        for (auto &component : m_rows)
            component.resize(static_cast<std::size_t>(rows) * width);
    }

    [[nodiscard]] const quint8 *row(std::size_t component, int row) const
    {
        return m_rows[component].data() + static_cast<std::size_t>(row) * m_width;
    }
    [[nodiscard]] std::size_t width() const { return m_width; }

    void convert(int row, const QRgb *pixels, std::size_t count)
    {
        const std::size_t start = static_cast<std::size_t>(row) * m_width;
        quint8 *const y = m_rows[0].data() + start;
        quint8 *const cb = m_rows[1].data() + start;
        quint8 *const cr = m_rows[2].data() + start;
        // The weights of the JFIF standard, in 65536ths.
        for (std::size_t i = 0; i < count; ++i) {
            const int red = static_cast<int>(pixels[i] >> 16 & 0xFF);
            const int green = static_cast<int>(pixels[i] >> 8 & 0xFF);
            const int blue = static_cast<int>(pixels[i] & 0xFF);
            y[i] = static_cast<quint8>((19595 * red + 38470 * green + 7471 * blue + 32768) >> 16);
            cb[i] = static_cast<quint8>((-11059 * red - 21709 * green + 32768 * blue + 8421375) >> 16);
            cr[i] = static_cast<quint8>((32768 * red - 27439 * green - 5329 * blue + 8421375) >> 16);
        }
        for (quint8 *plane : {y, cb, cr})
            std::memset(plane + count, plane[count - 1], m_width - count);
    }

private:
    std::size_t m_width;
    std::array<std::vector<quint8>, Components> m_rows;
};

/** Half rate in both directions. */
void halve(const quint8 *upper, const quint8 *lower, std::size_t count, quint8 *out)
{
    // The remainder goes up and down in turn, so that the picture gets no lighter.
    for (std::size_t i = 0; i < count; ++i) {
        const unsigned bias = 1U + (i & 1U);
        out[i] = static_cast<quint8>(
            (upper[2 * i] + upper[2 * i + 1] + lower[2 * i] + lower[2 * i + 1] + bias) >> 2);
    }
}

/** The mean of the samples from which an output sample is made, at any rate. */
quint8 mean(const Strip &strip, std::size_t component, std::size_t left, std::size_t right, int top,
            int bottom)
{
    unsigned sum = 0;
    for (int row = top; row < bottom; ++row)
        for (std::size_t x = left; x < right; ++x)
            sum += strip.row(component, row)[x];
    const auto count = static_cast<unsigned>(right - left) * static_cast<unsigned>(bottom - top);
    return static_cast<quint8>((sum + count / 2) / count);
}

/** One row of a plane from the strip: the @p row th of those that the plane takes from it. */
void sampleRow(const Strip &strip, std::size_t component, SamplingFactors most, SamplingFactors factors,
               int row, quint8 *out)
{
    const int top = row * most.vertical / factors.vertical;
    const int bottom = std::max(top + 1, (row + 1) * most.vertical / factors.vertical);
    if (most.horizontal == factors.horizontal && bottom == top + 1) {
        std::memcpy(out, strip.row(component, top), strip.width());
        return;
    }
    if (most.horizontal == 2 * factors.horizontal && bottom == top + 2) {
        halve(strip.row(component, top), strip.row(component, top + 1), strip.width() / 2, out);
        return;
    }
    const auto whole = static_cast<std::size_t>(most.horizontal);
    const auto part = static_cast<std::size_t>(factors.horizontal);
    for (std::size_t group = 0; group < strip.width() / whole; ++group) {
        for (std::size_t i = 0; i < part; ++i) {
            const std::size_t left = group * whole + i * whole / part;
            const std::size_t right = group * whole + (i + 1) * whole / part;
            *out++ = mean(strip, component, left, right, top, bottom);
        }
    }
}

SamplingFactors largest(const ComponentFactors &factors)
{
    SamplingFactors most;
    for (const SamplingFactors each : factors) {
        most.horizontal = std::max(most.horizontal, each.horizontal);
        most.vertical = std::max(most.vertical, each.vertical);
    }
    return most;
}

JpegPlanes emptyPlanes(int width, int height, const ComponentFactors &factors, SamplingFactors most)
{
    JpegPlanes result{.width = width,
                      .height = height,
                      .groupsAcross = dividedUp(width, Side * most.horizontal),
                      .groupsDown = dividedUp(height, Side * most.vertical),
                      .planes = {}};
    for (std::size_t i = 0; i < Components; ++i) {
        JpegPlane &plane = result.planes[i];
        plane.factors = factors[i];
        plane.blocksAcross = dividedUp(dividedUp(width * factors[i].horizontal, most.horizontal), Side);
        plane.blocksDown = dividedUp(dividedUp(height * factors[i].vertical, most.vertical), Side);
        const int columns = result.groupsAcross * factors[i].horizontal * Side;
        const int lines = result.groupsDown * factors[i].vertical * Side;
        plane.stride = static_cast<std::size_t>(columns);
        plane.samples.resize(plane.stride * static_cast<std::size_t>(lines));
    }
    return result;
}

} // namespace

JpegPlanes samplePlanes(const QImage &image, int width, int height, const ComponentFactors &factors)
{
    const SamplingFactors most = largest(factors);
    JpegPlanes result = emptyPlanes(width, height, factors, most);
    const QImage pixels = image.convertToFormat(QImage::Format_RGB32);
    const auto count = static_cast<std::size_t>(std::min(width, pixels.width()));
    Strip strip(most.vertical, static_cast<std::size_t>(result.groupsAcross * most.horizontal * Side));
    const int lastRow = std::min(height, pixels.height()) - 1;
    for (int stripRow = 0; stripRow < result.groupsDown * Side; ++stripRow) {
        for (int row = 0; row < most.vertical; ++row) {
            // Blocks beyond the picture's edge repeat its last row: a sharp edge there would ring inside.
            const int source = std::min(stripRow * most.vertical + row, lastRow);
            strip.convert(row, reinterpret_cast<const QRgb *>(pixels.constScanLine(source)), count);
        }
        for (std::size_t i = 0; i < Components; ++i) {
            JpegPlane &plane = result.planes[i];
            for (int row = 0; row < plane.factors.vertical; ++row) {
                const int line = stripRow * plane.factors.vertical + row;
                sampleRow(strip, i, most, plane.factors, row,
                          plane.samples.data() + static_cast<std::size_t>(line) * plane.stride);
            }
        }
    }
    return result;
}

} // namespace quaverly
