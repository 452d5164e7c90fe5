#include "scrolling/overlays/RingStrip.h"

#include "ui/Palette.h"

#include <QPainter>

namespace kestrio {

RingStrip::RingStrip(const QRect& place, std::function<void(QPainter&)> paint)
    : paint_(std::move(paint)) {
    setFlags(Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
             Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus);
    setTitle(QStringLiteral("Kestrio Region Frame"));
    setGeometry(place);
}

void RingStrip::makeTranslucent() {
    QSurfaceFormat translucent;
    translucent.setAlphaBufferSize(8);
    setFormat(translucent);
}

void RingStrip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(QRect(QPoint(), size()),
                     format().hasAlpha() ? QColor(Qt::transparent) : Palette::light().overlayLine);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(-position());
    paint_(painter);
}

}  // namespace kestrio
