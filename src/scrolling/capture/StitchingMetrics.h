#pragma once

#include <variant>

#include <QString>

namespace kestrio {

// What a finished capture may say about itself.

struct EstimatedOverlap {
    int frameIndex = 0;
    double estimatedHeight = 0;
};
struct LowConfidenceMatch {
    int frameIndex = 0;
    double confidence = 0;
};
struct BrightnessDifference {
    int frameIndex = 0;
    double delta = 0;
};
struct PerformanceWarning {
    QString metric;
    double actual = 0;
    double target = 0;
};

using StitchingWarning =
    std::variant<EstimatedOverlap, LowConfidenceMatch, BrightnessDifference, PerformanceWarning>;

/// Times in seconds.
struct StitchingMetrics {
    double overlapDetectionTime = 0;
    double layoutCalculationTime = 0;
    double renderingTime = 0;
    double totalTime = 0;
    int frameCount = 0;
    int estimatedOverlapCount = 0;
};

}  // namespace kestrio
