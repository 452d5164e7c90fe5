#include "app/shell/WindowFocus.h"

#include <QScreen>
#include <QWindow>

namespace kestrio {

void centre(QWindow& window) {
    const QScreen* screen = window.screen();
    if (!screen) return;
    QRect frame = window.geometry();
    frame.moveCenter(screen->availableGeometry().center());
    window.setPosition(frame.topLeft());
}

void bringToFront(QWindow& window) {
    if (window.windowState() == Qt::WindowMinimized) window.showNormal();
    window.show();
    window.raise();
    window.requestActivate();
}

}  // namespace kestrio
