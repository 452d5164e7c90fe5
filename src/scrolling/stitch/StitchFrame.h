#pragma once

#include <memory>

#include "imaging/filters/FrameSimilarity.h"
#include "scrolling/motion/RowSignature.h"
#include "scrolling/motion/ScrollingMotionEstimator.h"

namespace kestrio {

/// A frame with everything that comparisons need, found out once.
struct StitchFrame {
    StitchFrame(QImage image, const ScrollingMotionConfig& config)
        : analysed(std::move(image), config),
          thumbnail(frameThumbnail(analysed.image())),
          signature(analysed.image()) {}

    const QImage& image() const { return analysed.image(); }

    AnalysedFrame analysed;
    FrameThumbnail thumbnail;
    RowSignature signature;
};

using StitchFramePtr = std::shared_ptr<const StitchFrame>;

}  // namespace kestrio
