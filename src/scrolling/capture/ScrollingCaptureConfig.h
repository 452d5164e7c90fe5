#pragma once

#include <chrono>

namespace kestrio {

/// How pages are scrolled and looked at in automatic mode.
struct AutoScrollConfig {
    double scrollStepRatio = 0.52;  ///< of the region's height, in a first scroll
    std::chrono::milliseconds stabilizationTimeout{500};
    std::chrono::milliseconds stabilizationCheckInterval{50};
    double identicalFrameThreshold = 0.98;  ///< similarity of pictures that stand still
    int maxScrollSteps = 100;
    std::chrono::milliseconds interStepDelay{150};
};

struct ScrollingCaptureConfig {
    double minOverlapRatio = 0.2;
    bool enableBlending = true;
    int maxFrameCount = 100;
    AutoScrollConfig autoScroll;
};

}  // namespace kestrio
