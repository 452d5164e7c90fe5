#include "annotation/drawing/DrawingConstraintService.h"

#include "annotation/model/Geometry.h"

#include <algorithm>
#include <cmath>

namespace kestrio {

QPointF DrawingConstraintService::constrainTo45Degrees(const QPointF& start, const QPointF& end) {
    constexpr double step = 0.7853981633974483;
    const double length = distance(start, end);
    if (!(length > 1.0)) return end;
    const double angle =
        std::round(std::atan2(end.y() - start.y(), end.x() - start.x()) / step) * step;
    return start + length * QPointF(std::cos(angle), std::sin(angle));
}

QRectF DrawingConstraintService::squareRect(const QPointF& start, const QPointF& end) {
    const QPointF reach = end - start;
    const double side = std::max(std::abs(reach.x()), std::abs(reach.y()));
    const QPointF corner(reach.x() < 0 ? -side : side, reach.y() < 0 ? -side : side);
    return rectBetween(start, start + corner);
}

bool DrawingConstraintService::isCommonSize(double value, double threshold) {
    struct Run {
        int first;
        int last;
        int step;
        double valuesAbove;  ///< the run counts for values above this only
    };
    constexpr Run runs[] = {{10, 100, 10, -INFINITY},
                            {150, 500, 50, -INFINITY},
                            {600, 1000, 100, -INFINITY},
                            {100, 2000, 100, 500}};
    for (const Run& run : runs) {
        if (!(value > run.valuesAbove)) continue;
        for (int size = run.first; size <= run.last; size += run.step) {
            if (std::abs(value - size) <= threshold) return true;
        }
    }
    return false;
}

}  // namespace kestrio
