#pragma once

#include <memory>

#include "imaging/filters/ConvolvedRows.h"
#include "imaging/filters/PixelRegion.h"

namespace kestrio {

/// A plane shrunk by a power of two: cell j of each axis is the average under a tent that spans the
/// `step` pixels before and after pixel j * step - 1, its own included. Cells run from -1 to
/// length / step + 2, which covers all pixels and two cells beyond the edges; the first and the
/// last cell see nothing but what lies beyond the edge, so extending the grid by them is exact.
class TentGrid {
  public:
    /// `step` is a power of two from 2 to largestStep. Only the cells of `needed` (counted as
    /// cells() stores them) are made, from only those pixels that lie under them; the others hold
    /// anything.
    TentGrid(const Plane<std::uint8_t>& plane, int step, const PixelRegion& needed);

    /// All cells as cells() stores them, from (0, 0) on.
    static QRect allCells(const Plane<std::uint8_t>& plane, int step);

    static constexpr int largestStep = 4096;

    /// The variance that shrinking adds to what it blurs, in squared cells.
    static double addedVariance(int step);

    int step() const { return step_; }
    /// The cells, cell -1 being the plane's first. Valid while this object lives.
    Plane<Fixed> cells() const;

  private:
    int step_;
    QRect all_;
    int channels_;
    /// Memory that nobody touches costs nothing, so cells that are not needed are left unwritten.
    std::unique_ptr<Fixed[]> cells_;
};

}  // namespace kestrio
