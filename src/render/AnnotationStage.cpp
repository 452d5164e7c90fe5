#include "render/AnnotationStage.h"

namespace kestrio {

AnnotationMapping annotationMapping(const CompositeLayout& layout) {
    const QRectF point = mapToOutput(QRectF(0, 0, 1, 1), layout);
    const double strokeScale = layout.isValid() ? (point.width() + point.height()) * 0.5 : 1;
    return {QPointF(), {point.width(), point.height()}, strokeScale};
}

void drawAnnotations(QImage& output, std::span<const AnyAnnotation> annotations,
                     const CompositeLayout& layout) {
    paintAnnotations(output, annotations, annotationMapping(layout));
}

}  // namespace kestrio
