#include "scrolling/overlays/RegionRing.h"

#include <QPainterPath>
#include <cmath>

namespace kestrio {

namespace {

QRectF grown(const QRectF& rectangle, double by) {
    return rectangle.adjusted(-by, -by, by, by);
}

// All points that the line touches: where its edge is cut to whole points, it stays smooth within.
QRegion touchedBy(const QRectF& line, double corner, double width) {
    QPainterPath middle;
    middle.addRoundedRect(line, corner, corner);
    QPainterPathStroker stroker;
    stroker.setWidth(width);
    const QPainterPath stroke = stroker.createStroke(middle);
    const QRect outer = grown(line, width / 2).toAlignedRect();
    const int side = static_cast<int>(std::ceil(corner + width / 2));
    const QRect inner = grown(line, -width / 2).toAlignedRect();
    QRegion touched = QRegion(outer) - QRegion(inner);
    for (const QPoint& at : {outer.topLeft(), outer.topRight() - QPoint(side - 1, 0),
                             outer.bottomLeft() - QPoint(0, side - 1),
                             outer.bottomRight() - QPoint(side - 1, side - 1)}) {
        const QRect square(at, QSize(side, side));
        touched -= square;
        for (int y = square.top(); y <= square.bottom(); ++y)
            for (int x = square.left(); x <= square.right(); ++x)
                if (stroke.intersects(QRectF(x, y, 1, 1))) touched += QRect(x, y, 1, 1);
    }
    return touched;
}

}  // namespace

RegionRing ringAround(const QRectF& region, const QRectF& display, const RingMeasures& measures) {
    const int gap = measures.clearance;
    const QRect hole = region.toAlignedRect().adjusted(-gap, -gap, gap, gap);
    const double middle = measures.inset + measures.lineWidth / 2;
    const int reach =
        static_cast<int>(std::ceil(middle + measures.lineWidth / 2)) + measures.outside;
    const QRegion whole = QRegion(hole.adjusted(-reach, -reach, reach, reach)) - QRegion(hole);
    const QRegion shown = whole & display.toAlignedRect();

    RegionRing ring;
    ring.line = grown(QRectF(hole), middle);
    ring.strips.assign(shown.begin(), shown.end());
    ring.shape = touchedBy(ring.line, measures.corner, measures.lineWidth) & shown;
    return ring;
}

}  // namespace kestrio
