#include "editor/views/MagnifierItem.h"

#include <QPainterPath>

namespace kestrio {

namespace {

constexpr int radius = 6;  // pixels around the middle one

}  // namespace

void MagnifierItem::setController(EditorController* controller) {
    if (controller_ == controller) return;
    controller_ = controller;
    if (controller_) {
        connect(&controller_->editor().colorPickerVM(),
                &ColorPickerViewModel::cursorPositionChanged, this, [this] { update(); });
    }
    Q_EMIT controllerChanged();
}

void MagnifierItem::paint(QPainter* painter) {
    if (!controller_) return;
    EditorViewModel& editor = controller_->editor();
    const QImage pixels = ColorPickerService().pixelsAround(
        editor.screenshot(), editor.colorPickerVM().cursorPosition(), radius);
    const QRectF whole(QPointF(), size());
    QPainterPath lens;
    lens.addEllipse(whole.adjusted(2, 2, -2, -2));
    painter->setRenderHint(QPainter::Antialiasing);
    painter->save();
    painter->setClipPath(lens);
    painter->fillRect(whole, QColor(0x2a, 0x2a, 0x2e));
    if (!pixels.isNull()) painter->drawImage(whole, pixels);
    const double side = width() / (2 * radius + 1);
    const QRectF middle(radius * side, radius * side, side, side);
    painter->setPen(QPen(Qt::black, 3));
    painter->drawRect(middle);
    painter->setPen(QPen(Qt::white, 1.5));
    painter->drawRect(middle);
    painter->restore();
    painter->setPen(QPen(QColor(255, 255, 255, 230), 3));
    painter->drawPath(lens);
}

}  // namespace kestrio
