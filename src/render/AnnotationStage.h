#pragma once

#include "annotation/painting/AnnotationPainter.h"
#include "render/CompositeLayout.h"

#include <stop_token>

namespace kestrio {

/// Where records land in the output: their points are the screenshot's, which stands in the
/// layout's content rectangle. Not to be used where that is empty.
AnnotationMapping annotationMapping(const CompositeLayout& layout);

/// Draws annotations over a composed picture: first the blurs, which change the screenshot and
/// nothing beside it, then all others in their order. Draws nothing where the canvas has no room
/// for the screenshot. Throws Cancelled after a stop.
void drawAnnotations(QImage& output, std::span<const AnyAnnotation> annotations,
                     const CompositeLayout& layout, const std::stop_token& stop);

}  // namespace kestrio
