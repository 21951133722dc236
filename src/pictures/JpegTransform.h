// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pictures/JpegTables.h"

namespace quaverly {

/**
 * The forward cosine transform and quantisation of 8x8 blocks with one table. It is the fast transform of
 * Arai, Agui and Nakajima, whose scale factors are part of the quantisation.
 */
class BlockTransform final
{
public:
    explicit BlockTransform(const QuantizationTable &table);

    /**
     * @p samples is the block's first sample in a plane whose rows are @p stride apart. @p coefficients
     * come out in a file's order.
     */
    void run(const quint8 *samples, std::size_t stride, std::array<qint16, BlockSize> &coefficients) const;

private:
    /** By column, then by row: the transform leaves its result turned over the diagonal. */
    std::array<float, BlockSize> m_divisors = {};
};

} // namespace quaverly
