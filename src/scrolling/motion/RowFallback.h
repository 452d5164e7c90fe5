#pragma once

#include <optional>

#include "scrolling/motion/GrayFrame.h"
#include "scrolling/motion/ScrollingMotionConfig.h"
#include "scrolling/motion/ScrollingMotionEstimate.h"

namespace kestrio {

/// Two frames between which a motion is sought.
struct GrayPair {
    const GrayFrame& previous;
    const GrayFrame& current;
    int frameHeight = 0;  ///< pixels of the frames
};

/// Distances in pixels of the copies, both included.
struct MotionRange {
    int least = 0;
    int most = 0;
};

/// The motions that leave `minOverlapRatio` of a frame in common.
MotionRange motionRange(const GrayPair& frames, double minOverlapRatio,
                        const ScrollingMotionConfig& config);

/// Estimates by comparing rows, for frames with too few features. `previousDeltaY` is the last
/// motion, in pixels of the frames, near which the next one is expected.
ScrollingMotionEstimate estimateByRows(const GrayPair& frames, std::optional<int> previousDeltaY,
                                       double minOverlapRatio, const ScrollingMotionConfig& config);

}  // namespace kestrio
