#pragma once

#include <optional>

#include "scrolling/motion/ExactBands.h"
#include "scrolling/stitch/ScrollingStitchOutcome.h"
#include "scrolling/stitch/StitchFrame.h"

namespace kestrio {

/// The frames that a new one is compared with. Both show the content at the same place.
struct JudgedFrames {
    const StitchFrame& reference;  ///< the last one that was joined
    const StitchFrame& last;       ///< the newest one that showed the same
    const StitchFrame& current;
};

/// What is known of the capture so far.
struct MotionHistory {
    std::optional<int> previousDeltaY;  ///< the last motion, in pixels of the frames
    bool isSteady = false;              ///< the motion before it was the same
    bool isExact = false;               ///< frames have agreed bit for bit
    bool isConsecutive = true;          ///< no frame has been refused since the reference
};

/// The motion of a frame and how it is known.
struct JudgedMotion {
    enum class Kind { moved, still, duplicate, refused };

    Kind kind = Kind::refused;
    int deltaY = 0;  ///< exact to the pixel where moved
    int horizontalOffset = 0;
    double confidence = 0;
    /// What stays at the top and the bottom, in pixels of the frames, where moved.
    FixedBands bands = {};
    /// What is known beyond them, where the frames agree bit for bit.
    ExactBands exactBands = {};
    /// Where the frames agree bit for bit: the seam must not lie above this row.
    bool isExact = false;
    ScrollingStitchDisposition disposition =
        ScrollingStitchDisposition::matchFailed;  ///< where refused
    StitchObstacle obstacle = StitchObstacle::none;
};

/// Decides how far a frame has moved: the estimator says it to a pixel of its small copies, and the
/// rows at full resolution say it exactly, confirm it, or contradict it.
class MotionJudge {
  public:
    /// `duplicateSimilarity` is the similarity from which frames count as the same at a glance.
    MotionJudge(ScrollingMotionEstimator estimator, double minOverlapRatio,
                double duplicateSimilarity);

    const ScrollingMotionEstimator& estimator() const { return estimator_; }

    JudgedMotion judge(const JudgedFrames& frames, const MotionHistory& history) const;

  private:
    ScrollingMotionEstimator estimator_;
    double minOverlapRatio_;
    double duplicateSimilarity_;
};

}  // namespace kestrio
