#pragma once

#include <QPointF>
#include <span>
#include <vector>

namespace kestrio {

/// A smooth line through the points of a stroke, as a polyline of short segments: cubic pieces
/// whose directions at a point halve the turn there. A piece leaves the straight line between its
/// points by at most about `slack` (units of the points), which is what thinning a stroke took
/// away, so long straight parts stay straight and corners sharp. Points that are not finite and
/// repetitions are left out.
std::vector<QPointF> smoothStroke(std::span<const QPointF> points, double slack);

}  // namespace kestrio
