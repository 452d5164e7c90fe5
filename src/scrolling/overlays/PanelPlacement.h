#pragma once

#include "platform/Displays.h"

#include <QSize>

namespace kestrio {

/// Where a panel stands that must not cover `region`, in points of the desktop: on the region's
/// display at its right, left, below or above, the first that has room between panels and docks;
/// else on another display, as near to the region as it gets. None where there is no such place.
std::optional<QRect> panelPlace(const QRectF& region, const std::vector<Display>& displays,
                                QSize panel);

/// The display on which most of the region lies; null where none is connected.
const Display* displayOfRegion(const std::vector<Display>& displays, const QRectF& region);

}  // namespace kestrio
