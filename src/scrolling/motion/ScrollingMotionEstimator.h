#pragma once

#include <QImage>
#include <memory>
#include <optional>

#include "scrolling/motion/Features.h"
#include "scrolling/motion/ScrollingMotionConfig.h"
#include "scrolling/motion/ScrollingMotionEstimate.h"

namespace kestrio {

/// A frame with what the estimator has found out about it, so that a frame that is compared twice
/// is analysed once. Not for two threads at once.
class AnalysedFrame {
  public:
    AnalysedFrame(QImage frame, const ScrollingMotionConfig& config);

    const QImage& image() const { return image_; }
    const GrayFrame& gray() const { return gray_; }
    /// Found at the first call.
    const std::vector<Feature>& features() const;

  private:
    QImage image_;
    ScrollingMotionConfig config_;
    GrayFrame gray_;
    mutable std::optional<std::vector<Feature>> features_;
};

/// Tells how far the content moved up from one frame of a region to the next, and how tall the
/// bands are that stay at its top and bottom. Features of small gray copies decide; where they are
/// too few, rows are compared. Keeps nothing between two calls.
class ScrollingMotionEstimator {
  public:
    using Config = ScrollingMotionConfig;

    explicit ScrollingMotionEstimator(Config config = {}) : config_(config) {}

    const Config& config() const { return config_; }

    /// Frames are in one of Image's formats. `previousDeltaY` is the last motion in pixels of the
    /// frames, and `minOverlapRatio` the share of a frame that both must show, 0.05 to 0.95.
    ScrollingMotionEstimate estimate(const QImage& previous, const QImage& current,
                                     std::optional<int> previousDeltaY,
                                     double minOverlapRatio) const;
    ScrollingMotionEstimate estimate(const AnalysedFrame& previous, const AnalysedFrame& current,
                                     std::optional<int> previousDeltaY,
                                     double minOverlapRatio) const;

  private:
    Config config_;
};

}  // namespace kestrio
