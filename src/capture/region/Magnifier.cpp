#include "capture/region/Magnifier.h"

#include "capture/overlay/OverlayLabel.h"
#include "imaging/text/SystemFont.h"
#include "ui/Lens.h"

#include <QPainter>

namespace kestrio {

namespace {

constexpr double diameter = 100;
constexpr double textSize = 12;

}  // namespace

void paintMagnifier(QPainter& painter, const QRectF& place, const QImage& frozen, QPoint pixel) {
    const Lens lens{QRectF(place.center().x() - diameter / 2, place.top() + 2, diameter, diameter)};
    lens.paint(painter, frozen, pixel);
    const OverlayLabel label{frozen.rect().contains(pixel)
                                 ? frozen.pixelColor(pixel).name(QColor::HexRgb).toUpper()
                                 : QString(),
                             systemFont(textSize, QFont::Medium)};
    QRectF box(QPointF(), label.size());
    box.moveCenter({place.center().x(), lens.circle.bottom() + 22});
    if (!label.text.isEmpty()) label.paint(painter, box);
}

}  // namespace kestrio
