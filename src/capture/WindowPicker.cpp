#include "capture/WindowPicker.h"

namespace kestrio {

const WindowInfo* windowAt(QPointF point, const std::vector<WindowInfo>& windows) {
    for (const WindowInfo& window : windows)
        if (window.bounds.contains(point)) return &window;
    return nullptr;
}

}  // namespace kestrio
