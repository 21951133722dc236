// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/JpegTransform.h"

#include <cmath>
#include <numbers>

namespace quaverly {

namespace {

constexpr std::size_t Side = 8;

using Block = std::array<float, BlockSize>;

/** Transforms all eight columns at once, which a compiler turns into vector instructions. */
void transformColumns(Block &block)
{
    constexpr float C4 = 0.707106781F;
    constexpr float C6 = 0.382683433F;
    constexpr float C2MinusC6 = 0.541196100F;
    constexpr float C2PlusC6 = 1.306562965F;
    float *const d = block.data();
    for (std::size_t i = 0; i < Side; ++i) {
        const float sum07 = d[i] + d[i + 56];
        const float difference07 = d[i] - d[i + 56];
        const float sum16 = d[i + 8] + d[i + 48];
        const float difference16 = d[i + 8] - d[i + 48];
        const float sum25 = d[i + 16] + d[i + 40];
        const float difference25 = d[i + 16] - d[i + 40];
        const float sum34 = d[i + 24] + d[i + 32];
        const float difference34 = d[i + 24] - d[i + 32];

        const float even0 = sum07 + sum34;
        const float even3 = sum07 - sum34;
        const float even1 = sum16 + sum25;
        const float even2 = sum16 - sum25;
        const float turned = (even2 + even3) * C4;
        d[i] = even0 + even1;
        d[i + 32] = even0 - even1;
        d[i + 16] = even3 + turned;
        d[i + 48] = even3 - turned;

        const float odd0 = difference34 + difference25;
        const float odd1 = difference25 + difference16;
        const float odd2 = difference16 + difference07;
        const float common = (odd0 - odd2) * C6;
        const float low = C2MinusC6 * odd0 + common;
        const float high = C2PlusC6 * odd2 + common;
        const float middle = odd1 * C4;
        const float plus = difference07 + middle;
        const float minus = difference07 - middle;
        d[i + 40] = minus + low;
        d[i + 24] = minus - low;
        d[i + 8] = plus + high;
        d[i + 56] = plus - high;
    }
}

void transpose(const Block &from, Block &to)
{
    for (std::size_t row = 0; row < Side; ++row)
        for (std::size_t column = 0; column < Side; ++column)
            to[column * Side + row] = from[row * Side + column];
}

} // namespace

BlockTransform::BlockTransform(const QuantizationTable &table)
{
    std::array<double, Side> factors = {};
    for (std::size_t k = 0; k < Side; ++k)
        factors[k] = k == 0 ? 1.0 : std::numbers::sqrt2 * std::cos(double(k) * std::numbers::pi / 16.0);
    for (std::size_t row = 0; row < Side; ++row) {
        for (std::size_t column = 0; column < Side; ++column) {
            const double entry = table.entry(static_cast<int>(row * Side + column));
            m_divisors[column * Side + row] =
                static_cast<float>(1.0 / (entry * factors[row] * factors[column] * 8.0));
        }
    }
}

void BlockTransform::run(const quint8 *samples, std::size_t stride,
                         std::array<qint16, BlockSize> &coefficients) const
{
    constexpr float Middle = 128.0F;
    // Adding it makes every value positive, so that cutting off rounds to the nearest.
    constexpr float Raise = 16384.5F;
    constexpr int Raised = 16384;
    Block columns;
    for (std::size_t row = 0; row < Side; ++row)
        for (std::size_t column = 0; column < Side; ++column)
            columns[row * Side + column] = static_cast<float>(samples[row * stride + column]) - Middle;
    transformColumns(columns);
    Block rows;
    transpose(columns, rows);
    transformColumns(rows);

    std::array<qint16, BlockSize> turned;
    for (std::size_t i = 0; i < BlockSize; ++i)
        turned[i] = static_cast<qint16>(static_cast<int>(rows[i] * m_divisors[i] + Raise) - Raised);
    for (std::size_t i = 0; i < BlockSize; ++i) {
        const unsigned place = ZigZag[i];
        coefficients[i] = turned[(place % Side) * Side + place / Side];
    }
}

} // namespace quaverly
