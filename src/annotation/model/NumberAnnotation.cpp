#include "annotation/model/NumberAnnotation.h"

#include "annotation/model/Geometry.h"

namespace kestrio {

QRectF NumberAnnotation::boundingRect() const {
    return squareAround(center, size);
}

void NumberAnnotation::reshape(const QRectF& rect) {
    center = rect.center();
    size = std::min(rect.width(), rect.height());
}

bool NumberAnnotation::operator==(const NumberAnnotation& other) const {
    return id == other.id && identical(center, other.center) && number == other.number &&
           size == other.size;
}

}  // namespace kestrio
