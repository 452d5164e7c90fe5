#pragma once

#include <QRectF>
#include <QRegion>
#include <vector>

namespace kestrio {

/// How a ring round a region is measured, in points.
struct RingMeasures {
    /// Between the region and the ring. Windows stand on whole pixels: at a scale such as 1.5 one
    /// is moved by up to half a pixel, which must not bring it into the region.
    int clearance = 1;
    double lineWidth = 3;
    /// Between what is left free and the line: room for its rounded corners.
    int inset = 1;
    int outside = 0;    ///< room beyond the line
    double corner = 5;  ///< radius of the line's middle
};

/// Where a ring round a region of the screen lies, in points of the desktop. No point of it lies in
/// the region.
struct RegionRing {
    QRectF line;                ///< the middle of the line
    std::vector<QRect> strips;  ///< what is left of the ring within the display, in rectangles that
                                ///< do not overlap; none where the region fills the display
    QRegion shape;              ///< of the strips, all points that the line touches
};

/// `display` holds the region; the ring is cut off at its edges.
RegionRing ringAround(const QRectF& region, const QRectF& display, const RingMeasures& measures);

}  // namespace kestrio
