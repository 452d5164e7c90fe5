#pragma once

#include <cstddef>
#include <vector>

#include "imaging/filters/BlurRows.h"
#include "imaging/filters/GaussianTaps.h"

namespace kestrio {

/// What lies beyond a plane's edges.
enum class Edge { extended, zero };

/// Rows of interleaved channels.
template <typename Sample>
struct Plane {
    const Sample* samples;
    /// From row to row, in samples.
    std::ptrdiff_t stride;
    /// In pixels of `channels` samples each.
    int width, height, channels;
    Edge edge;

    int rowSamples() const { return width * channels; }
};

/// The Gaussian of each axis. Taps with a tail ask for extended edges and for a reach of at least
/// the plane's length less 1, so that a tail only ever meets the edge.
struct GaussianKernel {
    GaussianTaps horizontal;
    GaussianTaps vertical;
};

/// Columns of a plane convolved with a Gaussian, row by row downwards: each row is convolved along
/// itself once and kept while rows below need it.
template <typename Sample>
class ConvolvedRows {
  public:
    /// The columns from `left` on, `width` of them; next() begins with row `firstRow`. Plane
    /// samples and kernel outlive this object.
    ConvolvedRows(const Plane<Sample>& plane, const GaussianKernel& kernel, int left, int width,
                  int firstRow);

    /// The next row, width * channels samples; valid until the next call.
    const Fixed* next();

  private:
    const Fixed* keptRow(int y) const;
    void loadRow(int y);
    void padRow(const Sample* row);
    void convolvePadded(Fixed* row);

    const Plane<Sample> plane_;
    const GaussianKernel& kernel_;
    const int left_;
    const int width_;
    const int keptRows_;
    int row_;
    int nextLoaded_;
    /// The row being convolved, with the pixels that the kernel reaches on both sides.
    std::vector<Fixed> padded_;
    std::vector<Fixed> ends_;
    std::vector<Fixed> kept_;
    std::vector<Fixed> nothing_;
    std::vector<Fixed> sums_;
    std::vector<RowPair> pairs_;
};

extern template class ConvolvedRows<std::uint8_t>;
extern template class ConvolvedRows<Fixed>;

}  // namespace kestrio
