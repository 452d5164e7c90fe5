#pragma once

#include <vector>

#include "imaging/filters/BlurRows.h"

namespace kestrio {

/// One half of a sampled Gaussian; all weights, the other half's and both tails included, sum to 1.
struct GaussianTaps {
    /// The weight of the centre, and of each sample before and after it.
    Weight centre = 0;
    std::vector<Weight> sides;
    /// What remains on each side beyond `sides`.
    Weight tail = 0;

    int reach() const { return static_cast<int>(sides.size()); }
};

/// The taps of a Gaussian of standard deviation `sigma` samples (above 0). They end where their
/// weight no longer shows, or after `longestReach` samples with the rest in `tail`.
GaussianTaps gaussianTaps(double sigma, int longestReach);

}  // namespace kestrio
