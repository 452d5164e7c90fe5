#include "annotation/painting/ArrowShape.h"

#include <QLineF>
#include <cmath>

namespace kestrio {

namespace {

// The shaft ends this far before the tip, in head sizes.
constexpr double shaftGap = 0.8;

/// The arrow's direction and the one to its right.
struct Axes {
    QPointF along;
    QPointF across;
};

Axes axesOf(const ArrowGeometry& arrow, double length) {
    const QPointF along = (arrow.end - arrow.start) / length;
    return {along, {-along.y(), along.x()}};
}

double lengthOf(const ArrowGeometry& arrow) {
    return QLineF(arrow.start, arrow.end).length();
}

QPolygonF band(const QPointF& from, const QPointF& to, const QPointF& halfAcross) {
    return QPolygonF({from + halfAcross, to + halfAcross, to - halfAcross, from - halfAcross});
}

}  // namespace

double ArrowGeometry::headSize(double unit) const {
    return std::max(strokeWidth * 4, 12 * unit);
}

QPolygonF arrowShaft(const ArrowGeometry& arrow, double headSize) {
    const double length = lengthOf(arrow);
    if (!(length > 0)) return {};
    const Axes axes = axesOf(arrow, length);
    return band(arrow.start, arrow.end - axes.along * (headSize * shaftGap),
                axes.across * (arrow.strokeWidth / 2));
}

QPolygonF arrowhead(const ArrowGeometry& arrow, double headSize) {
    const double length = lengthOf(arrow);
    if (!(length > 0)) return {};
    const Axes axes = axesOf(arrow, length);
    const QPointF base = arrow.end - axes.along * headSize;
    const QPointF half = axes.across * (headSize / 2);
    return QPolygonF({arrow.end, base - half, base + half});
}

QPainterPath arrowOutline(const ArrowGeometry& arrow, double headSize) {
    QPainterPath outline;
    outline.setFillRule(Qt::WindingFill);
    const QPolygonF head = arrowhead(arrow, headSize);
    if (head.isEmpty()) return outline;
    outline.addPolygon(head);
    outline.closeSubpath();

    QPolygonF shaft = arrowShaft(arrow, headSize);
    const bool runsBack = lengthOf(arrow) < headSize * shaftGap;
    // Both outlines must turn the same way, or the fill would cut one out of the other.
    if (runsBack) std::reverse(shaft.begin(), shaft.end());
    outline.addPolygon(shaft);
    if (!runsBack) {
        const double radius = arrow.strokeWidth / 2;
        const QRectF cap(arrow.start - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius));
        outline.arcTo(cap, QLineF(arrow.start, shaft.back()).angle(), 180);
    }
    outline.closeSubpath();
    return outline;
}

}  // namespace kestrio
