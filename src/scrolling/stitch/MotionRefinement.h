#pragma once

#include <QImage>

#include "scrolling/motion/FixedBands.h"
#include "scrolling/motion/RowFallback.h"

namespace kestrio {

/// Of the motions of `range`, in pixels of the frames, the one under which the rows between the
/// fixed bands differ least.
int likeliestMotion(const QImage& previous, const QImage& current, MotionRange range,
                    FixedBands bands);

}  // namespace kestrio
