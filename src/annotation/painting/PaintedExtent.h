#pragma once

#include "annotation/model/AnyAnnotation.h"

namespace kestrio {

/// A rectangle that a record does not paint beyond, in points of its own;
/// generous rather than tight.
QRectF paintedExtent(const AnyAnnotation& annotation);

}  // namespace kestrio
