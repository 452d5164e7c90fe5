#include "annotation/model/CircleAnnotation.h"

#include "annotation/model/Geometry.h"

namespace kestrio {

QRectF CircleAnnotation::boundingRect() const {
    return {center.x() - radius, center.y() - radius, 2 * radius, 2 * radius};
}

void CircleAnnotation::reshape(const QRectF& rect) {
    center = rect.center();
    radius = std::min(rect.width(), rect.height()) * 0.5;
}

bool CircleAnnotation::operator==(const CircleAnnotation& other) const {
    return id == other.id && identical(center, other.center) && radius == other.radius &&
           fillMode == other.fillMode && strokeWidth == other.strokeWidth;
}

}  // namespace kestrio
