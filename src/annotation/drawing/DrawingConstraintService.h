#pragma once

#include <QPointF>
#include <QRectF>

namespace kestrio {

/// Holds what is being drawn to regular directions and shapes. Image points, y growing downwards.
struct DrawingConstraintService {
    /// The end turned about the start to the nearest multiple of 45 degrees, at its distance. A
    /// distance of up to one point leaves it as it is.
    static QPointF constrainTo45Degrees(const QPointF& start, const QPointF& end);
    /// The square with one corner at the start that reaches as far as the farther axis of the end,
    /// to the side where the end lies.
    static QRectF squareRect(const QPointF& start, const QPointF& end);
    /// Whether a length lies within a threshold of a customary one, such as 250 or 800.
    static bool isCommonSize(double value, double threshold);
};

}  // namespace kestrio
