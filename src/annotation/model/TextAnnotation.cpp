#include "annotation/model/TextAnnotation.h"

#include "annotation/model/Geometry.h"

namespace kestrio {

bool TextAnnotation::operator==(const TextAnnotation& other) const {
    return id == other.id && identical(bounds, other.bounds) && text == other.text &&
           fontSize == other.fontSize && fontFamily == other.fontFamily &&
           rotation == other.rotation && strokeWidth == other.strokeWidth;
}

}  // namespace kestrio
