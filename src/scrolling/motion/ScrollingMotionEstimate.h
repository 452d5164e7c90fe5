#pragma once

namespace kestrio {

enum class ScrollingMotionKind { moved, stationary, failed, rejected, horizontal };

/// What an estimate rests on.
enum class ScrollingMotionMethod { features, pixels, identical, none };

/// How far the content of a frame moved since the frame before. Distances are pixels of the frames.
struct ScrollingMotionEstimate {
    ScrollingMotionKind kind = ScrollingMotionKind::rejected;
    ScrollingMotionMethod method = ScrollingMotionMethod::none;
    int deltaY = 0;  ///< upwards, as content moves that is scrolled down
    int horizontalOffset = 0;
    int overlapHeight = 0;  ///< rows that both frames show
    double confidence = 0;  ///< 0 to 1
    int matchCount = 0;     ///< mutual matches of features
    int inlierCount = 0;    ///< matches that agree with the motion, or with standing still
    int topFixedHeight = 0;
    int bottomFixedHeight = 0;

    bool operator==(const ScrollingMotionEstimate&) const = default;
};

}  // namespace kestrio
