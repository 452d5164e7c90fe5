#include "annotation/model/MeasurementAnnotation.h"

#include "annotation/model/Geometry.h"

#include <limits>

namespace kestrio {

QRectF MeasurementAnnotation::boundingRect() const {
    return rectBetween(startPoint, endPoint);
}

void MeasurementAnnotation::reshape(const QRectF& rect) {
    constexpr double leastExtent = std::numeric_limits<double>::epsilon();
    const QRectF old = boundingRect();
    for (QPointF* point : {&startPoint, &endPoint}) {
        const QPointF stretched = mapped(*point, old, rect);
        *point = {old.width() > leastExtent ? stretched.x() : rect.center().x(),
                  old.height() > leastExtent ? stretched.y() : rect.center().y()};
    }
}

bool MeasurementAnnotation::operator==(const MeasurementAnnotation& other) const {
    return id == other.id && identical(startPoint, other.startPoint) &&
           identical(endPoint, other.endPoint) && strokeWidth == other.strokeWidth;
}

}  // namespace kestrio
