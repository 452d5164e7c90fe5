#include "capture/overlay/OverlayLabel.h"

#include <QFontMetricsF>
#include <QPainter>
#include <cmath>

namespace kestrio {

QSizeF OverlayLabel::size() const {
    const QFontMetricsF metrics(font);
    return {std::ceil(metrics.horizontalAdvance(text)) + 2 * sidePadding,
            std::ceil(metrics.height()) + 2 * topPadding};
}

void OverlayLabel::paint(QPainter& painter, const QRectF& box) const {
    constexpr double groundOpacity = 0.7;
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgbF(0, 0, 0, groundOpacity));
    painter.drawRoundedRect(box, radius, radius);
    painter.setPen(Qt::white);
    painter.setFont(font);
    painter.drawText(box, Qt::AlignCenter, text);
}

}  // namespace kestrio
