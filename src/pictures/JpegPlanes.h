// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <array>
#include <vector>

class QImage;

namespace quaverly {

/** How often a component is sampled in each direction, from 1 to 4. */
struct SamplingFactors
{
    int horizontal = 1;
    int vertical = 1;
};

inline constexpr std::size_t Components = 3;
using ComponentFactors = std::array<SamplingFactors, Components>;

/** The samples of one component, filled up to whole groups of blocks with those of the edge. */
struct JpegPlane
{
    SamplingFactors factors;
    /** In blocks, without what fills the last group. */
    int blocksAcross = 0;
    int blocksDown = 0;
    std::size_t stride = 0;
    std::vector<quint8> samples;
};

/** A picture's luminance and its two colours, and how many groups of blocks each of them makes. */
struct JpegPlanes
{
    int width = 0;
    int height = 0;
    int groupsAcross = 0;
    int groupsDown = 0;
    std::array<JpegPlane, Components> planes;
};

/** Reads @p width by @p height pixels from the top left corner; beyond the edge its last pixels are repeated.
 */
[[nodiscard]] JpegPlanes samplePlanes(const QImage &image, int width, int height,
                                      const ComponentFactors &factors);

} // namespace quaverly
