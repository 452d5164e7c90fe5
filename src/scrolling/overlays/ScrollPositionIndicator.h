#pragma once

#include <QRectF>

namespace kestrio {

/// A narrow bar that shows which part of something long is seen. Content counts in any one unit,
/// the bar in points.
struct ScrollPositionIndicator {
    double contentHeight = 0;
    double visibleHeight = 0;
    double scrollOffset = 0;  ///< content above what is seen
    double minIndicatorHeight = 20;
    double indicatorWidth = 4;
    double cornerRadius = 2;
    double trackPadding = 2;  ///< between the track's edge and the thumb

    bool operator==(const ScrollPositionIndicator&) const = default;

    /// The thumb in a track of this height whose origin is its top left. Empty where all of the
    /// content is seen, or none.
    QRectF thumb(double trackHeight) const;
    /// Of the track.
    double width() const { return indicatorWidth + 2 * trackPadding; }
};

}  // namespace kestrio
