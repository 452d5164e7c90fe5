#include "annotation/painting/ArrowShape.h"
#include "annotation/painting/KindPainters.h"

namespace kestrio {

void paintRecord(QPainter& painter, const ArrowAnnotation& arrow,
                 const AnnotationMapping& mapping) {
    const ArrowGeometry geometry{mapping.mapped(arrow.startPoint), mapping.mapped(arrow.endPoint),
                                 std::max(arrow.strokeWidth, 0.0) * mapping.strokeScale};
    painter.fillPath(arrowOutline(geometry, geometry.headSize(mapping.strokeScale)),
                     arrow.color.toQColor());
}

}  // namespace kestrio
