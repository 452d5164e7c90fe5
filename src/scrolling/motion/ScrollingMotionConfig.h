#pragma once

namespace kestrio {

/// Measures of the motion estimator. Distances are pixels of the gray copy unless said otherwise.
struct ScrollingMotionConfig {
    int maximumAnalysisWidth = 840;
    int fastThreshold = 18;   ///< difference in brightness that makes a corner
    int detectionStride = 2;  ///< step of the search for corners in x and y
    int featureCellSize = 48;
    int featuresPerCell = 8;
    int maximumFeatures = 900;
    int briefRadius = 12;                ///< of a descriptor's patch
    int maximumDescriptorDistance = 78;  ///< bits of 256
    double descriptorRatio = 0.78;       ///< largest quotient of best and second-best distance
    int minimumFeatureMatches = 10;      ///< with fewer, rows are compared instead
    int displacementTolerance = 3;
    int horizontalTolerance = 4;
    int maximumHorizontalOffset = 9;
    int minimumMovingInliers = 8;
    double minimumMovingCoverage = 0.08;  ///< share of a grid of 6 by 6 cells
    double minimumFeatureConfidence = 0.52;
    double minimumPhotometricConfidence = 0.66;
    int minimumMotionPixels = 2;  ///< pixels of the frame
    int pixelFallbackRows = 14;
    int pixelFallbackColumns = 64;

    bool operator==(const ScrollingMotionConfig&) const = default;
};

}  // namespace kestrio
