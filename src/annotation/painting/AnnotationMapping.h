#pragma once

#include <QPointF>
#include <QRectF>

namespace kestrio {

/// Where the points of records, which count from the screenshot's top left corner, land in the
/// coordinates of what is painted on. The canvas and the finished picture differ in nothing else.
struct AnnotationMapping {
    QPointF origin = {};      ///< where the screenshot's top left corner lands
    QPointF scale = {1, 1};   ///< painted units a point, by axis, above 0
    double strokeScale = 1;   ///< the same for widths, radii and sizes of type
    double pixelDensity = 1;  ///< the screenshot's own pixels a point, which measurements count

    bool operator==(const AnnotationMapping&) const = default;

    QPointF mapped(const QPointF& point) const {
        return {origin.x() + point.x() * scale.x(), origin.y() + point.y() * scale.y()};
    }
    QRectF mapped(const QRectF& rect) const {
        return {mapped(rect.topLeft()), mapped(rect.bottomRight())};
    }
};

}  // namespace kestrio
