#include "scrolling/overlays/ScrollPositionIndicator.h"

#include <algorithm>

namespace kestrio {

QRectF ScrollPositionIndicator::thumb(double trackHeight) const {
    const double room = trackHeight - 2 * trackPadding;
    if (room <= 0 || visibleHeight <= 0 || contentHeight <= visibleHeight) return {};
    const double share = visibleHeight / contentHeight;
    const double height = std::min(std::max(room * share, minIndicatorHeight), room);
    const double way = std::clamp(scrollOffset / (contentHeight - visibleHeight), 0.0, 1.0);
    return {trackPadding, trackPadding + (room - height) * way, indicatorWidth, height};
}

}  // namespace kestrio
