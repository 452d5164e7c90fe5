#pragma once

#include "imaging/filters/ConvolvedRows.h"

namespace kestrio {

/// Bytes to be written, with the channels of the cells that they come from.
struct ByteTarget {
    std::uint8_t* bytes;
    /// From row to row, in bytes.
    std::ptrdiff_t stride;
    /// In pixels.
    int width, height, channels;
};

/// The variance that enlarging adds to what it blurs, in squared cells.
inline constexpr double splineVariance = 1.0 / 3;

/// Convolves the cells of a TentGrid of this step and enlarges them back to its pixels by uniform
/// cubic B-splines.
void enlargeBySplines(const Plane<Fixed>& cells, const GaussianKernel& kernel, int step,
                      const ByteTarget& target);

}  // namespace kestrio
