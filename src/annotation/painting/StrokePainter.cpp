#include "annotation/painting/KindPainters.h"
#include "annotation/painting/PaintArea.h"
#include "annotation/painting/SmoothStroke.h"
#include "imaging/filters/StrokeMask.h"

#include <cmath>

namespace kestrio {

namespace {

// Points by which a stroke's curve may leave its thinned points; about what thinning takes away.
constexpr double curveSlack = 1.5;

QRect pixelsAround(std::span<const QPointF> points, double margin) {
    double left = points.front().x(), right = left, top = points.front().y(), bottom = top;
    for (const QPointF& point : points) {
        left = std::min(left, point.x());
        right = std::max(right, point.x());
        top = std::min(top, point.y());
        bottom = std::max(bottom, point.y());
    }
    return QRectF(QPointF(left - margin, top - margin), QPointF(right + margin, bottom + margin))
        .toAlignedRect();
}

}  // namespace

// The stroke is one area, so that joints and crossings of translucent pens stay even.
void paintRecord(QPainter& painter, const BrushAnnotation& stroke,
                 const AnnotationMapping& mapping) {
    const double width = stroke.strokeWidth * mapping.strokeScale;
    std::vector<QPointF> points;
    points.reserve(stroke.points.size());
    for (const QPointF& point : stroke.points)
        points.push_back(mapping.mapped(point));
    const std::vector<QPointF> line = smoothStroke(points, curveSlack * mapping.strokeScale);
    if (line.empty() || !(width > 0)) return;
    const QRect area = pixelsAround(line, width / 2 + 1) & paintedPixels(painter);
    if (area.isEmpty()) return;
    QImage ink(area.size(), QImage::Format_ARGB32_Premultiplied);
    if (ink.isNull()) return;
    ink.fill(Qt::transparent);
    compositeColor(ink, strokeMask(line, width, area), -area.topLeft(), stroke.color.toQColor());
    painter.drawImage(area.topLeft(), ink);
}

}  // namespace kestrio
