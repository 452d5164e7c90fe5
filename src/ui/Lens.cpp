#include "ui/Lens.h"

#include <QPainter>
#include <QPainterPath>

namespace kestrio {

namespace {

constexpr double crosshairGap = 4;
constexpr double ringWidth = 3;
constexpr double frameWidth = 3;

void paintPixels(QPainter& painter, const Lens& lens, const QImage& picture, QPoint pixel) {
    const QSizeF shown = lens.circle.size() / lens.pixelSide;
    const QRectF source(pixel.x() + 0.5 - shown.width() / 2, pixel.y() + 0.5 - shown.height() / 2,
                        shown.width(), shown.height());
    // Bounded by hand: the painter would shrink the rest of a source that leaves the picture.
    const QRectF inside = source & QRectF(picture.rect());
    if (inside.isEmpty()) return;
    const QRectF target(
        lens.circle.topLeft() + (inside.topLeft() - source.topLeft()) * lens.pixelSide,
        inside.size() * lens.pixelSide);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter.drawImage(target, picture, inside);
}

void paintCrosshair(QPainter& painter, const Lens& lens) {
    const QPointF middle = lens.circle.center();
    const double from = lens.pixelSide / 2 + crosshairGap;
    const double to = lens.circle.width() / 2;
    painter.setPen(QPen(QColor(255, 255, 255, 150), 1));
    for (const QPointF& way : {QPointF(1, 0), QPointF(-1, 0), QPointF(0, 1), QPointF(0, -1)})
        painter.drawLine(middle + way * from, middle + way * to);
}

void paintFrame(QPainter& painter, const Lens& lens) {
    QRectF frame(0, 0, lens.pixelSide, lens.pixelSide);
    frame.moveCenter(lens.circle.center());
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::black, frameWidth));
    painter.drawRect(frame);
    painter.setPen(QPen(Qt::white, frameWidth / 2));
    painter.drawRect(frame);
}

}  // namespace

void Lens::paint(QPainter& painter, const QImage& picture, QPoint pixel) const {
    QPainterPath round;
    round.addEllipse(circle);
    painter.save();
    painter.setClipPath(round, Qt::IntersectClip);
    painter.fillRect(circle, QColor(0x2a, 0x2a, 0x2e));
    paintPixels(painter, *this, picture, pixel);
    if (hasCrosshair) paintCrosshair(painter, *this);
    paintFrame(painter, *this);
    painter.restore();
    painter.setBrush(Qt::NoBrush);
    // Dark around the light ring, which would be lost on a light picture.
    painter.setPen(QPen(QColor(0, 0, 0, 110), ringWidth + 2));
    painter.drawEllipse(circle);
    painter.setPen(QPen(QColor(255, 255, 255, 235), ringWidth));
    painter.drawEllipse(circle);
}

}  // namespace kestrio
