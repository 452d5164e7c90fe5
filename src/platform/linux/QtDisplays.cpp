#include "platform/linux/QtDisplays.h"

#include "platform/linux/x11/Monitors.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

namespace kestrio {

namespace {

/// Qt keeps a screen's origin in pixels and divides its size.
QRect pixelsOf(const QScreen& screen, const std::vector<Monitor>& monitors) {
    const QPoint origin = screen.geometry().topLeft();
    for (const Monitor& monitor : monitors)
        if (monitor.name == screen.name() && monitor.pixels.topLeft() == origin)
            return monitor.pixels;
    return {origin, (QSizeF(screen.geometry().size()) * screen.devicePixelRatio()).toSize()};
}

Display displayOf(const QScreen& screen, const std::vector<Monitor>& monitors) {
    Display display;
    display.name = screen.name();
    display.bounds = screen.geometry();
    display.visibleFrame = screen.availableGeometry();
    display.pixels = pixelsOf(screen, monitors);
    display.scale = std::max(screen.devicePixelRatio(), 1.0);
    display.isPrimary = &screen == QGuiApplication::primaryScreen();
    return display;
}

}  // namespace

QtDisplays::QtDisplays(std::shared_ptr<XcbConnection> connection)
    : connection_(std::move(connection)) {
    connect(qGuiApp, &QGuiApplication::screenAdded, this, [this](QScreen* screen) {
        follow(screen);
        noteChange();
    });
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &QtDisplays::noteChange);
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, &QtDisplays::noteChange);
    for (QScreen* screen : QGuiApplication::screens())
        follow(screen);
}

void QtDisplays::follow(QScreen* screen) {
    connect(screen, &QScreen::geometryChanged, this, &QtDisplays::noteChange);
    connect(screen, &QScreen::availableGeometryChanged, this, &QtDisplays::noteChange);
    connect(screen, &QScreen::logicalDotsPerInchChanged, this, &QtDisplays::noteChange);
    connect(screen, &QScreen::physicalDotsPerInchChanged, this, &QtDisplays::noteChange);
}

void QtDisplays::noteChange() {
    known_.reset();
    if (std::exchange(isChanging_, true)) return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            isChanging_ = false;
            known_.reset();
            Q_EMIT changed();
        },
        Qt::QueuedConnection);
}

std::vector<Display> QtDisplays::displays() const {
    if (known_) return *known_;
    const std::vector<Monitor> monitors = readMonitors(*connection_);
    std::vector<Display> found;
    for (const QScreen* screen : QGuiApplication::screens()) {
        if (screen->geometry().isEmpty()) continue;  // Qt's stand-in while no monitor is connected
        const Display display = displayOf(*screen, monitors);
        found.insert(display.isPrimary ? found.begin() : found.end(), display);
    }
    known_ = found;
    return found;
}

QPointF QtDisplays::pointerPosition() const {
    return QCursor::pos();
}

}  // namespace kestrio
