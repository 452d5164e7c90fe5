#pragma once

#include <QImage>
#include <QRectF>
#include <optional>
#include <vector>

namespace kestrio {

struct ScrollingFrameMetadata {
    int sequenceNumber = 0;
    double presentationTimeSeconds = 0;                ///< of a monotonic clock
    std::optional<QRectF> contentRect = std::nullopt;  ///< points of the desktop
    double scaleFactor = 1;                            ///< pixels a point
    std::vector<QRect> dirtyRects = {};  ///< pixels of the frame that changed since the one before
    bool hasDirtyRectMetadata = false;
};

/// A frame on its way to the engine.
struct ScrollingSourceFrame {
    QImage image;
    ScrollingFrameMetadata metadata;
};

}  // namespace kestrio
