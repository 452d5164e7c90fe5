#include "annotation/model/ArrowAnnotation.h"

#include "annotation/model/Geometry.h"

#include <cmath>
#include <limits>

namespace kestrio {

namespace {

/// Large enough to survive being added to the coordinate.
double pad(double coordinate) {
    return std::max(std::abs(coordinate) * 4 * std::numeric_limits<double>::epsilon(), 1e-9);
}

}  // namespace

QRectF ArrowAnnotation::boundingRect() const {
    std::vector<QPointF> points = controlPoints;
    points.push_back(startPoint);
    points.push_back(endPoint);
    const QRectF rect = enclosingRect(points);
    return {rect.x(), rect.y(), rect.width() + pad(rect.right()),
            rect.height() + pad(rect.bottom())};
}

void ArrowAnnotation::reshape(const QRectF& rect) {
    const QRectF old = boundingRect();
    if (!(old.width() > 0 && old.height() > 0)) return;
    startPoint = mapped(startPoint, old, rect);
    endPoint = mapped(endPoint, old, rect);
    for (QPointF& point : controlPoints)
        point = mapped(point, old, rect);
}

bool ArrowAnnotation::operator==(const ArrowAnnotation& other) const {
    return id == other.id && identical(startPoint, other.startPoint) &&
           identical(endPoint, other.endPoint) && identical(controlPoints, other.controlPoints) &&
           strokeWidth == other.strokeWidth;
}

}  // namespace kestrio
