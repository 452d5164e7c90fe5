#pragma once

#include <optional>
#include <vector>

#include "scrolling/motion/Features.h"

namespace kestrio {

/// Matches that agree on one motion, in pixels of the gray copy.
struct MotionCluster {
    int dx = 0, dy = 0;
    int inlierCount = 0;
    double coverage = 0;  ///< share of a grid of 6 by 6 cells in which they lie
};

/// The largest and widest spread group of matches that agree; nothing where none is large enough.
std::optional<MotionCluster> voteMotion(const std::vector<FeatureMatch>& matches, QSize frame,
                                        const ScrollingMotionConfig& config);

}  // namespace kestrio
