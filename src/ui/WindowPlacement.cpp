#include "ui/WindowPlacement.h"

#include <QMargins>
#include <QScreen>
#include <QWindow>

namespace kestrio {

namespace {

// Room for what window managers draw around a window that is not shown yet, in points.
constexpr QMargins windowFrame(4, 32, 4, 4);

}  // namespace

void centre(QWindow& window) {
    const QScreen* screen = window.screen();
    if (!screen) return;
    const QRect free = screen->availableGeometry().marginsRemoved(windowFrame);
    const QSize size = window.size().boundedTo(free.size()).expandedTo(window.minimumSize());
    QRect place(QPoint(), size);
    place.moveCenter(free.center());
    place.moveTop(std::max(place.top(), free.top()));
    window.setGeometry(place);
}

void bringToFront(QWindow& window) {
    if (window.windowState() == Qt::WindowMinimized) window.showNormal();
    window.show();
    window.raise();
    window.requestActivate();
}

}  // namespace kestrio
