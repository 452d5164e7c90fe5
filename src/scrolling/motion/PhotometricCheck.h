#pragma once

#include "scrolling/motion/FixedBands.h"

namespace kestrio {

/// How well the overlap of two frames agrees block by block.
struct PhotometricCheck {
    double confidence = 0;    ///< 0 to 1
    double error = 255;       ///< mean difference of the four fifths that agree best
    double matchedRatio = 0;  ///< share of blocks that agree
};

/// Compares the frames under a motion of `dy`, outside the fixed bands; all in pixels of the
/// copies. Blocks with texture count, all blocks where none has any.
PhotometricCheck photometricCheck(const GrayFrame& previous, const GrayFrame& current, int dy,
                                  FixedBands bands);

}  // namespace kestrio
