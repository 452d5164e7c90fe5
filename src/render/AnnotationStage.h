#pragma once

#include "annotation/painting/AnnotationPainter.h"
#include "render/CompositeLayout.h"

namespace kestrio {

/// Where records land in the output: the canvas' points on the whole of it.
AnnotationMapping annotationMapping(const CompositeLayout& layout);

/// Draws annotations over a composed picture in their order.
void drawAnnotations(QImage& output, std::span<const AnyAnnotation> annotations,
                     const CompositeLayout& layout);

}  // namespace kestrio
