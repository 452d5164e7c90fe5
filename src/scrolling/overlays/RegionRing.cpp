#include "scrolling/overlays/RegionRing.h"

#include <QPainterPath>
#include <QPolygonF>
#include <cmath>

namespace kestrio {

namespace {

QRegion rounded(const QRectF& rectangle, double radius) {
    QPainterPath path;
    path.addRoundedRect(rectangle, radius, radius);
    return QRegion(path.toFillPolygon().toPolygon());
}

QRectF grown(const QRectF& rectangle, double by) {
    return rectangle.adjusted(-by, -by, by, by);
}

}  // namespace

RegionRing ringAround(const QRectF& region, const QRectF& display, const RingMeasures& measures) {
    const int gap = measures.clearance;
    const QRect hole = region.toAlignedRect().adjusted(-gap, -gap, gap, gap);
    const int reach = static_cast<int>(std::ceil(measures.lineWidth)) + measures.outside;
    const QRegion whole = QRegion(hole.adjusted(-reach, -reach, reach, reach)) - QRegion(hole);
    const QRegion shown = whole & display.toAlignedRect();

    const double half = measures.lineWidth / 2;
    RegionRing ring;
    ring.line = grown(QRectF(hole), half);
    ring.strips.assign(shown.begin(), shown.end());
    ring.shape = (rounded(grown(ring.line, half), measures.corner + half) -
                  rounded(QRectF(hole), std::max(measures.corner - half, 0.0))) &
                 shown;
    return ring;
}

}  // namespace kestrio
