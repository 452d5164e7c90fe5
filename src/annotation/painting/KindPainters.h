#pragma once

#include "annotation/model/AnyAnnotation.h"
#include "annotation/painting/AnnotationMapping.h"

#include <QPainter>

namespace kestrio {

// One painter a kind, for AnnotationPainter, which has checked that bounds and stroke are finite.
// Each leaves pen, brush and font as it likes and restores everything else.

void paintRecord(QPainter& painter, const ArrowAnnotation& arrow, const AnnotationMapping& mapping);
void paintRecord(QPainter& painter, const RectangleAnnotation& rectangle,
                 const AnnotationMapping& mapping);
void paintRecord(QPainter& painter, const CircleAnnotation& circle,
                 const AnnotationMapping& mapping);
void paintRecord(QPainter& painter, const TextAnnotation& text, const AnnotationMapping& mapping);
void paintRecord(QPainter& painter, const NumberAnnotation& badge,
                 const AnnotationMapping& mapping);
void paintRecord(QPainter& painter, const BrushAnnotation& stroke,
                 const AnnotationMapping& mapping);
void paintRecord(QPainter& painter, const EmojiAnnotation& emoji, const AnnotationMapping& mapping);
void paintRecord(QPainter& painter, const MeasurementAnnotation& measurement,
                 const AnnotationMapping& mapping);

}  // namespace kestrio
