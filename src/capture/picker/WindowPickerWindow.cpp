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
    return {Kestrio::tr("Click on a window to capture it. Press Escape to cancel."),
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

QRectF WindowPickerWindow::nameBox(const WindowInfo& window) const {
    const QRectF rect = inView(window);
    QRectF box(QPointF(0, rect.top() + labelTop), nameLabel(window, rect.width()).size());
    box.moveLeft(rect.center().x() - box.width() / 2);
    return box;
}

QRectF WindowPickerWindow::hintBox() const {
    QRectF box(QPointF(0, hintTop), hintLabel().size());
    box.moveLeft((width() - box.width()) / 2);
    if (hovered_ && nameBox(*hovered_).intersects(box)) box.moveBottom(height() - hintTop);
    return box;
}

void WindowPickerWindow::paintOver(QPainter& painter) {
    if (hovered_) paintHighlight(painter, *hovered_);
    hintLabel().paint(painter, hintBox());
}

void WindowPickerWindow::paintHighlight(QPainter& painter, const WindowInfo& window) const {
    const QRectF rect = inView(window);
    painter.setPen(QPen(border, 3));
    painter.setBrush(highlight);
    painter.drawRect(rect.adjusted(1.5, 1.5, -1.5, -1.5));
    nameLabel(window, rect.width()).paint(painter, nameBox(window));
}

void WindowPickerWindow::hover(const WindowInfo* window) {
    if (window == hovered_) return;
    const auto shown = [this] {
        QRegion region(hintBox().toAlignedRect());
        // A long name may reach beyond a narrow window.
        if (hovered_) {
            region += (inView(*hovered_) | nameBox(*hovered_))
                          .toAlignedRect()
                          .adjusted(-borderReach, -borderReach, borderReach, borderReach);
        }
        return region;
    };
    const QRegion before = shown();
    hovered_ = window;
    repaint(before + shown());
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
