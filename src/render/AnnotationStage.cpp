#include "render/AnnotationStage.h"

#include "annotation/blur/BlurEffectRenderer.h"
#include "core/Cancelled.h"

namespace kestrio {

namespace {

std::vector<BlurAnnotation> blursOf(std::span<const AnyAnnotation> annotations) {
    std::vector<BlurAnnotation> blurs;
    for (const AnyAnnotation& annotation : annotations)
        if (const auto* blur = annotation.as<BlurAnnotation>()) blurs.push_back(*blur);
    return blurs;
}

}  // namespace

AnnotationMapping annotationMapping(const CompositeLayout& layout) {
    const QRectF point = mapToOutput(QRectF(0, 0, 1, 1), layout);
    const double strokeScale = layout.isValid() ? (point.width() + point.height()) * 0.5 : 1;
    return {QPointF(), {point.width(), point.height()}, strokeScale};
}

void drawAnnotations(QImage& output, std::span<const AnyAnnotation> annotations,
                     const CompositeLayout& layout, const std::stop_token& stop) {
    output = BlurEffectRenderer::shared()
                 .apply(Image(std::move(output)), blursOf(annotations), layout.imageSize,
                        contentRect(layout), stop)
                 .takeBitmap();
    throwIfStopped(stop);
    paintAnnotations(output, annotations, annotationMapping(layout));
}

}  // namespace kestrio
