#pragma once

#include <QPainterPath>
#include <QPolygonF>

namespace kestrio {

/// An arrow's outlines, in the units of its points. It is straight whatever control points its
/// record has.
struct ArrowGeometry {
    QPointF start;
    QPointF end;
    double strokeWidth;

    /// The length and width of the head, never less than a small arrow needs. `unit` is the size of
    /// a point.
    double headSize(double unit = 1) const;
};

/// The shaft, which stops inside the head so that its end is hidden: four corners, one edge on each
/// side of the line. Behind the start where the arrow is shorter than its head. Empty for no
/// length.
QPolygonF arrowShaft(const ArrowGeometry& arrow, double headSize);

/// The head's triangle, its tip first. Empty for an arrow of no length.
QPolygonF arrowhead(const ArrowGeometry& arrow, double headSize);

/// Shaft and head as one outline for a winding fill, the start rounded, so that translucent colours
/// are even where both meet.
QPainterPath arrowOutline(const ArrowGeometry& arrow, double headSize);

}  // namespace kestrio
