#include "render/AnnotationStage.h"

#include "annotation/blur/BlurEffectRenderer.h"
#include "core/Cancelled.h"

namespace kestrio {

namespace {

// What reaches beyond the screenshot is cut off: the canvas shows blurs of its pixels only, and a
// smeared backdrop hides nothing.
std::vector<BlurAnnotation> blursOn(const QRectF& screenshot,
                                    std::span<const AnyAnnotation> annotations) {
    std::vector<BlurAnnotation> blurs;
    for (const AnyAnnotation& annotation : annotations) {
        const auto* blur = annotation.as<BlurAnnotation>();
        if (!blur) continue;
        blurs.push_back(*blur);
        blurs.back().bounds = blur->bounds.normalized() & screenshot;
    }
    return blurs;
}

}  // namespace

AnnotationMapping annotationMapping(const CompositeLayout& layout) {
    const QRectF content = contentRect(layout);
    const double x = content.width() / layout.imageSize.width();
    const double y = content.height() / layout.imageSize.height();
    return {content.topLeft(), {x, y}, (x + y) / 2, layout.pixelDensity};
}

void drawAnnotations(QImage& output, std::span<const AnyAnnotation> annotations,
                     const CompositeLayout& layout, const std::stop_token& stop) {
    const QRectF content = contentRect(layout);
    if (content.isEmpty()) return;
    const QRectF screenshot(QPointF(), layout.imageSize);
    output = BlurEffectRenderer::shared()
                 .apply(Image(std::move(output)), blursOn(screenshot, annotations),
                        layout.imageSize, content, stop)
                 .takeBitmap();
    throwIfStopped(stop);
    paintAnnotations(output, annotations, annotationMapping(layout));
}

}  // namespace kestrio
