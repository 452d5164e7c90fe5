#include "capture/region/Magnifier.h"

#include "capture/overlay/OverlayLabel.h"
#include "imaging/text/SystemFont.h"

#include <QPainter>
#include <QPainterPath>

namespace kestrio {

namespace {

constexpr double diameter = 100;
constexpr double magnification = 8;
constexpr double crosshairGap = 4;
constexpr double borderWidth = 3;
constexpr double textSize = 12;

void paintCrosshair(QPainter& painter, const QRectF& lens) {
    const QPointF middle = lens.center();
    const double from = magnification / 2 + crosshairGap;
    const double to = diameter / 2;
    painter.setPen(QPen(QColor(255, 255, 255, 150), 1));
    for (const QPointF& way : {QPointF(1, 0), QPointF(-1, 0), QPointF(0, 1), QPointF(0, -1)})
        painter.drawLine(middle + way * from, middle + way * to);
    const QRectF pixel(middle.x() - magnification / 2, middle.y() - magnification / 2,
                       magnification, magnification);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::black, 3));
    painter.drawRect(pixel);
    painter.setPen(QPen(Qt::white, 1.5));
    painter.drawRect(pixel);
}

}  // namespace

void paintMagnifier(QPainter& painter, const QRectF& place, const QImage& frozen, QPoint pixel) {
    const QRectF lens(place.center().x() - diameter / 2, place.top() + 2, diameter, diameter);
    QPainterPath round;
    round.addEllipse(lens);
    painter.save();
    painter.setClipPath(round, Qt::IntersectClip);
    painter.fillRect(lens, QColor(0x2a, 0x2a, 0x2e));
    const double shown = diameter / magnification;
    const QRectF source(pixel.x() + 0.5 - shown / 2, pixel.y() + 0.5 - shown / 2, shown, shown);
    // Bounded by hand: the painter would shrink the rest of a source that leaves the picture.
    const QRectF inside = source & QRectF(frozen.rect());
    const QRectF target((inside.x() - source.x()) * magnification + lens.x(),
                        (inside.y() - source.y()) * magnification + lens.y(),
                        inside.width() * magnification, inside.height() * magnification);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter.drawImage(target, frozen, inside);
    paintCrosshair(painter, lens);
    painter.restore();
    painter.setBrush(Qt::NoBrush);
    // Dark around the light ring, which would be lost on a light picture.
    painter.setPen(QPen(QColor(0, 0, 0, 110), borderWidth + 2));
    painter.drawEllipse(lens);
    painter.setPen(QPen(QColor(255, 255, 255, 235), borderWidth));
    painter.drawEllipse(lens);
    const OverlayLabel label{frozen.rect().contains(pixel)
                                 ? frozen.pixelColor(pixel).name(QColor::HexRgb).toUpper()
                                 : QString(),
                             systemFont(textSize, QFont::Medium)};
    QRectF box(QPointF(), label.size());
    box.moveCenter({place.center().x(), lens.bottom() + 22});
    if (!label.text.isEmpty()) label.paint(painter, box);
}

}  // namespace kestrio
