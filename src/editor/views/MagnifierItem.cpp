#include "editor/views/MagnifierItem.h"

#include "ui/Lens.h"

namespace kestrio {

namespace {

constexpr int radius = 6;       // pixels around the middle one
constexpr double ringRoom = 2;  // points

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
    painter->setRenderHint(QPainter::Antialiasing);
    const Lens lens{QRectF(QPointF(), size()).adjusted(ringRoom, ringRoom, -ringRoom, -ringRoom),
                    width() / (2 * radius + 1), false};
    lens.paint(*painter, pixels, {radius, radius});
}

}  // namespace kestrio
