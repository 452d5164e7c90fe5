#pragma once

#include "imaging/filters/ConvolvedRows.h"
#include "imaging/filters/PixelRegion.h"

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

/// The convolved cells of a TentGrid of this step that the pixels of `region` are made of.
PixelRegion splineCells(const PixelRegion& region, int step, const QRect& allCells);

/// Convolves the cells of a TentGrid of this step and enlarges them back to its pixels by uniform
/// cubic B-splines. Writes the pixels of `region` and reads the splineCells() under them with the
/// cells that the kernel reaches around these.
void enlargeBySplines(const Plane<Fixed>& cells, const GaussianKernel& kernel, int step,
                      const PixelRegion& region, const ByteTarget& target);

}  // namespace kestrio
