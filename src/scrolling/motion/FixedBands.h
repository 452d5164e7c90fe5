#pragma once

#include <vector>

#include "scrolling/motion/Features.h"

namespace kestrio {

/// Heights of what stays at the top and the bottom while the rest moves.
struct FixedBands {
    int top = 0;
    int bottom = 0;

    bool operator==(const FixedBands&) const = default;
};

/// Bands by features that stayed where they were, in pixels of the frame. A band needs several of
/// them, spread over the width: one icon in a corner makes none.
FixedBands fixedBandFromFeatures(const std::vector<FeatureMatch>& stationary,
                                 const std::vector<Feature>& current, const GrayFrame& frame,
                                 const ScrollingMotionConfig& config);

/// Bands by rows that match the previous frame at their own place and not where `dy` would have
/// moved them from; `dy` and the result in pixels of the copies. Flat rows are no evidence.
FixedBands fixedBandFromPixels(const GrayFrame& previous, const GrayFrame& current, int dy);

}  // namespace kestrio
