#include "annotation/model/RectangleAnnotation.h"

#include "annotation/model/Geometry.h"

namespace kestrio {

bool RectangleAnnotation::operator==(const RectangleAnnotation& other) const {
    return id == other.id && identical(bounds, other.bounds) && fillMode == other.fillMode &&
           cornerRadius == other.cornerRadius && rotation == other.rotation &&
           strokeWidth == other.strokeWidth;
}

}  // namespace kestrio
