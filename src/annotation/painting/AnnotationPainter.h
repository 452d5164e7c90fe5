#pragma once

#include "annotation/model/AnyAnnotation.h"
#include "annotation/painting/AnnotationMapping.h"

#include <QPainter>
#include <span>

namespace kestrio {

/// Draws one annotation, for the canvas, the finished picture and the record that is just being
/// drawn alike. A blur draws nothing: it changes the pixels beneath (see BlurEffectRenderer).
/// Records that are damaged (no finite place or size) draw nothing; the painter's state is
/// restored. The mapping does all scaling: the painter itself may be moved by whole pixels, no
/// more.
void paintAnnotation(QPainter& painter, const AnyAnnotation& annotation,
                     const AnnotationMapping& mapping);

/// Draws annotations over a picture in their order, on all cores. Both of Image's formats.
void paintAnnotations(QImage& picture, std::span<const AnyAnnotation> annotations,
                      const AnnotationMapping& mapping);

}  // namespace kestrio
