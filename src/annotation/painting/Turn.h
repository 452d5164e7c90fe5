#pragma once

#include <QPainter>
#include <cmath>

namespace kestrio {

/// Turns what is painted next clockwise about a point; nothing for a turn that is not finite.
inline void turnAround(QPainter& painter, const QPointF& center, double degrees) {
    if (!std::isfinite(degrees)) return;
    painter.translate(center);
    painter.rotate(std::fmod(degrees, 360.0));
    painter.translate(-center);
}

}  // namespace kestrio
