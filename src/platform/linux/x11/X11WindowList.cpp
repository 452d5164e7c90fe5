#include "platform/linux/x11/X11WindowList.h"

#include "platform/linux/x11/ClientWindow.h"

#include <QRegion>
#include <algorithm>

namespace kestrio {

X11WindowList::X11WindowList(std::shared_ptr<XcbConnection> connection,
                             std::shared_ptr<Displays> displays)
    : connection_(std::move(connection)), displays_(std::move(displays)) {}

QRectF X11WindowList::toPoints(QRect pixels) const {
    const std::vector<Display> displays = displays_->displays();
    if (displays.empty()) return pixels;
    const auto found = std::find_if(displays.begin(), displays.end(), [&](const Display& display) {
        return display.pixels.contains(pixels.center());
    });
    const Display& display = found == displays.end() ? displays.front() : *found;
    return display.toPoints(QRectF(pixels));
}

std::vector<WindowInfo> X11WindowList::windowsOnScreen(double minimumSize) const {
    if (!connection_->open()) return {};
    QRegion screens;
    for (const Display& display : displays_->displays())
        screens += display.pixels;
    std::vector<ClientWindow> windows = readClientWindows(*connection_);
    std::reverse(windows.begin(), windows.end());
    std::vector<WindowInfo> found;
    for (const ClientWindow& window : windows) {
        const QRectF bounds = toPoints(window.visible);
        if (bounds.width() <= minimumSize || bounds.height() <= minimumSize) continue;
        if (!screens.intersects(window.visible)) continue;
        found.push_back(
            {window.id, window.ownerName, window.windowName, bounds, true, window.isAbove});
    }
    return found;
}

}  // namespace kestrio
