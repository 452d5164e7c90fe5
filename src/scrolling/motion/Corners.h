#pragma once

#include <vector>

#include "scrolling/motion/GrayFrame.h"
#include "scrolling/motion/ScrollingMotionConfig.h"

namespace kestrio {

struct Corner {
    int x = 0, y = 0;
    int score = 0;

    bool operator==(const Corner&) const = default;
};

/// The score of a pixel as a corner, 0 for other pixels: nine neighbours in a row, on a circle of
/// radius 3, are all brighter or all darker by more than `threshold`. The pixel is at least 3
/// pixels from each side. (Rosten and Drummond, Machine Learning for High-Speed Corner Detection,
/// 2006.)
int cornerScore(const GrayFrame& frame, int x, int y, int threshold);

/// The strongest corners, spread over the cells of a grid.
std::vector<Corner> findCorners(const GrayFrame& frame, const ScrollingMotionConfig& config);

}  // namespace kestrio
