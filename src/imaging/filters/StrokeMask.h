#pragma once

#include <QPointF>
#include <span>

#include "imaging/filters/Mask.h"

namespace kestrio {

/// The antialiased coverage of a polyline drawn with a round pen, `width` pixels across, over
/// `bounds`; all in pixels from the top left, pixel (x, y) being the square from (x, y) to (x + 1,
/// y + 1). A pixel is covered by how far its middle lies inside the nearest segment's outline, so
/// crossings and joints add nothing. A single point makes a dot; points must be finite.
///
/// Qt strokes a path by building its outline and filling that; this costs a fraction of it, since
/// rows inside the pen are filled without any geometry.
Mask strokeMask(std::span<const QPointF> points, double width, QRect bounds);

}  // namespace kestrio
