#include "annotation/painting/AnnotationPainter.h"

#include "annotation/model/AnnotationKind.h"
#include "annotation/painting/KindPainters.h"
#include "annotation/painting/PaintArea.h"
#include "core/Parallel.h"

#include <cmath>

namespace kestrio {

namespace {

// What lies further out is damage; Qt's rasteriser counts in fractions of pixels in 32 bits.
constexpr double farthest = 1e6;

bool isWithinReach(const QRectF& rect) {
    const double edges[] = {rect.left(), rect.top(), rect.right(), rect.bottom()};
    return std::all_of(std::begin(edges), std::end(edges),
                       [](double edge) { return std::abs(edge) <= farthest; });
}

bool isPaintable(const AnyAnnotation& annotation, const AnnotationMapping& mapping) {
    return isWithinReach(mapping.mapped(annotation.bounds())) &&
           std::abs(annotation.strokeWidth() * mapping.strokeScale) <= farthest;
}

/// True where nothing of the record can touch the painter's pixels.
bool isOutOfSight(const QPainter& painter, const AnyAnnotation& annotation,
                  const AnnotationMapping& mapping) {
    if (kindOf(annotation).outgrowsBounds) return false;
    // Heads, ticks and labels, and the corners of turned records.
    constexpr double decorationMargin = 100;
    const QRectF bounds = mapping.mapped(annotation.bounds()).normalized();
    const double reach =
        std::hypot(bounds.width(), bounds.height()) / 2 +
        (decorationMargin + 4 * std::abs(annotation.strokeWidth())) * mapping.strokeScale;
    const QRectF around = QRectF(bounds.center(), QSizeF()).adjusted(-reach, -reach, reach, reach);
    return !around.intersects(paintedPixels(painter));
}

struct RecordPainter {
    QPainter& painter;
    const AnnotationMapping& mapping;

    void operator()(const BlurAnnotation&) const {}
    template <typename Record>
    void operator()(const Record& record) const {
        paintRecord(painter, record, mapping);
    }
};

}  // namespace

void paintAnnotation(QPainter& painter, const AnyAnnotation& annotation,
                     const AnnotationMapping& mapping) {
    if (!isPaintable(annotation, mapping) || isOutOfSight(painter, annotation, mapping)) return;
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                           QPainter::SmoothPixmapTransform);
    annotation.visit(RecordPainter{painter, mapping});
    painter.restore();
}

void paintAnnotations(QImage& picture, std::span<const AnyAnnotation> annotations,
                      const AnnotationMapping& mapping) {
    if (picture.isNull() || annotations.empty()) return;
    // Records on the edge of a strip are laid out twice. Qt's rasteriser rounds otherwise where it
    // cuts a shape, so strips are of one height, whatever the number of threads.
    constexpr int stripRows = 512;
    uchar* const pixels = picture.bits();
    const int strips = (picture.height() + stripRows - 1) / stripRows;
    const auto paintStrip = [&](int top) {
        QImage strip(pixels + top * picture.bytesPerLine(), picture.width(),
                     std::min(stripRows, picture.height() - top), picture.bytesPerLine(),
                     picture.format());
        QPainter painter(&strip);
        AnnotationMapping stripMapping = mapping;
        stripMapping.origin.ry() -= top;
        for (const AnyAnnotation& annotation : annotations)
            paintAnnotation(painter, annotation, stripMapping);
    };
    parallelBands(strips, 1, [&](int first, int last) {
        for (int strip = first; strip < last; ++strip)
            paintStrip(strip * stripRows);
    });
}

}  // namespace kestrio
