#include "capture/picker/WindowPickerWindow.h"

#include "capture/overlay/OverlayLabel.h"
#include "capture/picker/PickerLabel.h"
#include "core/Localisation.h"
#include "imaging/text/SystemFont.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace kestrio {

namespace {

constexpr double hintTop = 40;
constexpr double labelTop = 20;
constexpr int borderReach = 3;
constexpr QColor highlight(10, 124, 255, 46);
constexpr QColor border(10, 124, 255);

OverlayLabel hintLabel() {
    return {localised("Click on a window to capture it. Press Escape to cancel."),
            systemFont(16, QFont::Normal), 12, 8, 8};
}

OverlayLabel nameLabel(const WindowInfo& window, double width) {
    const QFont font = systemFont(13, QFont::Medium);
    return {pickerLabel(window, font, width), font, 8, 4, 6};
}

}  // namespace

WindowPickerWindow::WindowPickerWindow(const Display& display, DisplaySnapshot snapshot,
                                       std::vector<WindowInfo> windows, Endings endings)
    : FrozenWindow(display, std::move(snapshot)),
      bounds_(display.bounds),
      windows_(std::move(windows)),
      endings_(std::move(endings)) {
    setTitle(QStringLiteral("Kestrio Window Picker"));
    setCursor(Qt::PointingHandCursor);
    hovered_ = windowUnder(QCursor::pos() - bounds_.topLeft());
}

const WindowInfo* WindowPickerWindow::windowUnder(QPointF point) const {
    return windowAt(point + bounds_.topLeft(), windows_);
}

QRectF WindowPickerWindow::inView(const WindowInfo& window) const {
    return window.bounds.translated(-bounds_.topLeft()) & QRectF(QPointF(), size());
}

QRegion WindowPickerWindow::undimmed() const {
    return hovered_ ? QRegion(inView(*hovered_).toAlignedRect()) : QRegion();
}

void WindowPickerWindow::paintOver(QPainter& painter) {
    if (hovered_) paintHighlight(painter, *hovered_);
    const OverlayLabel hint = hintLabel();
    QRectF box(QPointF(0, hintTop), hint.size());
    box.moveLeft((width() - box.width()) / 2);
    hint.paint(painter, box);
}

void WindowPickerWindow::paintHighlight(QPainter& painter, const WindowInfo& window) const {
    const QRectF rect = inView(window);
    painter.setPen(QPen(border, 3));
    painter.setBrush(highlight);
    painter.drawRect(rect.adjusted(1.5, 1.5, -1.5, -1.5));
    const OverlayLabel label = nameLabel(window, rect.width());
    QRectF box(QPointF(0, rect.top() + labelTop), label.size());
    box.moveLeft(rect.center().x() - box.width() / 2);
    label.paint(painter, box);
}

void WindowPickerWindow::hover(const WindowInfo* window) {
    if (window == hovered_) return;
    QRect changed;
    for (const WindowInfo* each : {std::exchange(hovered_, window), window})
        if (each) {
            // A long name may reach beyond a narrow window.
            const QRectF rect = inView(*each);
            const double wider =
                std::max(0.0, (nameLabel(*each, rect.width()).size().width() - rect.width()) / 2);
            changed |= rect.adjusted(-wider - borderReach, -borderReach, wider + borderReach,
                                     borderReach + labelTop)
                           .toAlignedRect();
        }
    repaint(changed);
}

void WindowPickerWindow::mouseMoveEvent(QMouseEvent* event) {
    hover(windowUnder(event->position()));
}

void WindowPickerWindow::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        cancel();
        return;
    }
    const Endings endings = std::exchange(endings_, {});
    if (!endings.picked) return;
    const WindowInfo* const window = windowUnder(event->position());
    endings.picked(window ? std::optional(*window) : std::nullopt);
}

bool WindowPickerWindow::takeKey(const QKeyEvent& event) {
    if (event.key() != Qt::Key_Escape) return false;
    cancel();
    return true;
}

void WindowPickerWindow::cancel() {
    const Endings endings = std::exchange(endings_, {});
    if (endings.cancelled) endings.cancelled();
}

}  // namespace kestrio
