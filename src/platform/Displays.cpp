#include "platform/Displays.h"

namespace kestrio {

namespace {

// QRectF counts its right and lower edge as inside, which belong to the neighbour.
bool holds(const QRectF& bounds, QPointF point) {
    return point.x() >= bounds.left() && point.x() < bounds.right() && point.y() >= bounds.top() &&
           point.y() < bounds.bottom();
}

}  // namespace

const Display* findDisplay(const std::vector<Display>& displays, QPointF point) {
    for (const Display& display : displays)
        if (holds(display.bounds, point)) return &display;
    return nullptr;
}

std::optional<Display> Displays::displayAt(QPointF point) const {
    const auto all = displays();
    const Display* found = findDisplay(all, point);
    return found ? std::optional(*found) : std::nullopt;
}

std::optional<Display> Displays::displayUnderPointer() const {
    if (auto display = displayAt(pointerPosition())) return display;
    const auto all = displays();
    if (all.empty()) return std::nullopt;
    return all.front();
}

}  // namespace kestrio
