#pragma once

#include "annotation/model/AnyAnnotation.h"

namespace kestrio {

/// Whether a click at a point of the image means this annotation: within 10 points of its bounds,
/// which for a turned text or rectangle turn with it.
bool isHit(const AnyAnnotation& annotation, const QPointF& point);

/// An upright rectangle outside of which no point hits the annotation.
QRectF hitBox(const AnyAnnotation& annotation);

/// Whether an eraser of this radius (image points) touches what is painted of an annotation.
bool isErased(const AnyAnnotation& annotation, const QPointF& point, double radius);

}  // namespace kestrio
