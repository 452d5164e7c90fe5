#include "annotation/painting/KindPainters.h"
#include "annotation/painting/Turn.h"

#include <QPainterPath>
#include <cmath>

namespace kestrio {

namespace {

struct ShapeStyle {
    FillMode fillMode;
    double strokeWidth;  ///< painted units, at least 0
    QColor color;
};

/// Filled and stroked shapes are one area, so that translucent colours are even where fill and
/// stroke meet: `pathGrownBy` gives the shape's outline moved outward.
template <typename PathGrownBy>
void paintShape(QPainter& painter, const ShapeStyle& style, PathGrownBy pathGrownBy) {
    switch (style.fillMode) {
        case FillMode::fill:
            painter.fillPath(pathGrownBy(0), style.color);
            break;
        case FillMode::both:
            painter.fillPath(pathGrownBy(style.strokeWidth / 2), style.color);
            break;
        case FillMode::stroke:
            if (style.strokeWidth > 0) {
                painter.strokePath(pathGrownBy(0), QPen(style.color, style.strokeWidth,
                                                        Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
            }
            break;
    }
}

// Corners that are square stay so when they grow, as a mitred stroke's do.
QPainterPath roundedRect(const QRectF& rect, double radius, double growth) {
    const QRectF outer = rect.adjusted(-growth, -growth, growth, growth);
    QPainterPath path;
    const double limit = std::min(rect.width(), rect.height()) / 2;
    const double inner = std::isfinite(radius) ? std::clamp(radius, 0.0, limit) : 0.0;
    if (inner > 0) {
        path.addRoundedRect(outer, inner + growth, inner + growth);
    } else {
        path.addRect(outer);
    }
    return path;
}

}  // namespace

void paintRecord(QPainter& painter, const RectangleAnnotation& rectangle,
                 const AnnotationMapping& mapping) {
    const QRectF rect = mapping.mapped(rectangle.bounds).normalized();
    turnAround(painter, rect.center(), rectangle.rotation);
    paintShape(painter,
               {rectangle.fillMode, std::max(rectangle.strokeWidth, 0.0) * mapping.strokeScale,
                rectangle.color.toQColor()},
               [&](double growth) {
                   return roundedRect(rect, rectangle.cornerRadius * mapping.strokeScale, growth);
               });
}

void paintRecord(QPainter& painter, const CircleAnnotation& circle,
                 const AnnotationMapping& mapping) {
    const double radius = circle.radius * mapping.strokeScale;
    if (!(radius > 0)) return;
    paintShape(painter,
               {circle.fillMode, std::max(circle.strokeWidth, 0.0) * mapping.strokeScale,
                circle.color.toQColor()},
               [&](double growth) {
                   QPainterPath path;
                   path.addEllipse(mapping.mapped(circle.center), radius + growth, radius + growth);
                   return path;
               });
}

}  // namespace kestrio
