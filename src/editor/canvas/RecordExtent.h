#pragma once

#include "annotation/model/AnyAnnotation.h"

namespace kestrio {

/// Whether two records are painted alike. Unlike their equality this counts colours and how a text
/// is set.
bool looksSame(const AnyAnnotation& a, const AnyAnnotation& b);

/// A rectangle that a record does not paint beyond, in points from the top left of its canvas;
/// generous rather than tight.
QRectF paintedExtent(const AnyAnnotation& record);

}  // namespace kestrio
