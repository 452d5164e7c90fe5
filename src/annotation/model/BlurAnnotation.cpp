#include "annotation/model/BlurAnnotation.h"

#include "annotation/model/Geometry.h"

namespace kestrio {

bool BlurAnnotation::operator==(const BlurAnnotation& other) const {
    return id == other.id && identical(bounds, other.bounds) && blurRadius == other.blurRadius &&
           blurType == other.blurType && intensity == other.intensity;
}

}  // namespace kestrio
