#pragma once

#include "annotation/painting/AnnotationPainter.h"
#include "render/CompositeLayout.h"

#include <stop_token>

namespace kestrio {

/// Where records but blurs land in the output: the canvas' points on the whole of it.
AnnotationMapping annotationMapping(const CompositeLayout& layout);

/// Draws annotations over a composed picture: first the blurs, which act on everything that they
/// cover, then all others in their order. Blurs belong to the screenshot and move with it; their
/// points are its own. Throws Cancelled after a stop.
void drawAnnotations(QImage& output, std::span<const AnyAnnotation> annotations,
                     const CompositeLayout& layout, const std::stop_token& stop);

}  // namespace kestrio
