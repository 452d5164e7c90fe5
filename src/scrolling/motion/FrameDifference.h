#pragma once

#include "scrolling/motion/GrayFrame.h"

namespace kestrio {

/// Samples that comparisons of rows take.
struct RowSampling {
    int rows = 14;
    int columns = 64;
};

/// What a difference is where nothing can be compared.
inline constexpr double greatestDifference = 255;

/// The mean difference in brightness, 0 to 255, of `a` from row `offset` on and `b` from its top.
double meanFrameDifference(const GrayFrame& a, const GrayFrame& b, int offset, int sampledColumns);

/// The same by a few rows, of which the quarter that differs most does not count: it may show
/// something that moves by itself.
double trimmedRowDifference(const GrayFrame& a, const GrayFrame& b, int offset,
                            RowSampling sampling);

/// The mean of the smallest `share` of the values, at least of one; `values` is not empty.
double trimmedMean(std::vector<double> values, double share);

}  // namespace kestrio
