#include "capture/overlay/FrozenWindow.h"

#include "capture/overlay/DimPixels.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QSurfaceFormat>

namespace kestrio {

namespace {

// Another program may hold the keyboard for a moment, as menus do.
constexpr std::chrono::milliseconds grabPause(25);
constexpr int mostGrabTries = 40;
constexpr QColor dimming(0, 0, 0, 77);  // as copyDimmed()

QScreen* screenOf(const Display& display) {
    for (QScreen* screen : QGuiApplication::screens())
        if (screen->name() == display.name) return screen;
    return QGuiApplication::primaryScreen();
}

}  // namespace

FrozenWindow::FrozenWindow(const Display& display, DisplaySnapshot snapshot)
    : QWindow(screenOf(display)), snapshot_(std::move(snapshot)), store_(this) {
    setSurfaceType(QSurface::RasterSurface);
    // Without the window manager, which would animate it and keep panels above it.
    setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint |
             Qt::WindowStaysOnTopHint);
    setGeometry(display.bounds.toRect());
    grabbing_.setInterval(grabPause);
    connect(&grabbing_, &QTimer::timeout, this, &FrozenWindow::grabKeys);
}

void FrozenWindow::open() {
    if (snapshot_.image.isNull() && dimming_ == LiveDimming::translucent) {
        QSurfaceFormat withAlpha = format();
        withAlpha.setAlphaBufferSize(8);
        setFormat(withAlpha);
    } else if (snapshot_.image.isNull()) {
        stripes_.emplace(size(), devicePixelRatio());
    }
    create();
    store_.resize(size());
    show();
    // Keys go to whichever window of the program has the focus, even while this one holds them.
    QCoreApplication::instance()->installEventFilter(this);
}

void FrozenWindow::grabKeys() {
    ++grabTries_;
    // The gaps between stripes would let the pointer through to what lies below.
    const bool isGrabbed = setKeyboardGrabEnabled(true) && (!stripes_ || setMouseGrabEnabled(true));
    if (!isGrabbed && grabTries_ < mostGrabTries) {
        grabbing_.start();
        return;
    }
    grabbing_.stop();
    if (!isGrabbed) requestActivate();
}

bool FrozenWindow::eventFilter(QObject* watched, QEvent* event) {
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease ||
                       event->type() == QEvent::ShortcutOverride;
    if (!isKey || !isVisible()) return QWindow::eventFilter(watched, event);
    event->accept();
    noteInput();
    if (event->type() == QEvent::KeyPress) takeKey(static_cast<const QKeyEvent&>(*event));
    return true;
}

bool FrozenWindow::event(QEvent* event) {
    if (event->type() == QEvent::UpdateRequest) {
        repaintAll();
        return true;
    }
    // Before it is handled, which may be the end of this window.
    if (event->isPointerEvent()) noteInput();
    return QWindow::event(event);
}

void FrozenWindow::noteInput() const {
    if (inputListener_) inputListener_();
}

void FrozenWindow::resizeEvent(QResizeEvent* event) {
    store_.resize(event->size());
}

void FrozenWindow::exposeEvent(QExposeEvent*) {
    if (!isExposed()) return;
    const bool hasNewShape = stripes_ && grabTries_ > 0;
    if (hasNewShape) {
        store_.flush(QRect(QPoint(), size()));
    } else {
        repaintAll();
    }
    if (grabTries_ == 0) grabKeys();
}

QRect FrozenWindow::toPixels(const QRect& points) const {
    const double scale = snapshot_.image.isNull() ? devicePixelRatio() : snapshot_.scale;
    return QRectF(points.x() * scale, points.y() * scale, points.width() * scale,
                  points.height() * scale)
        .toAlignedRect();
}

void FrozenWindow::paintGround(QImage& target, const QRegion& points) const {
    const QRegion clear = undimmed() & points;
    for (const QRect& rect : points - clear)
        copyDimmed(target, snapshot_.image, toPixels(rect));
    for (const QRect& rect : clear)
        copyPlain(target, snapshot_.image, toPixels(rect));
}

void FrozenWindow::paintGround(QPainter& painter, const QRegion& points) const {
    const QRect all(QPoint(), size());
    if (snapshot_.image.isNull()) {
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(all, Qt::transparent);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    } else {
        painter.drawImage(all, snapshot_.image);
    }
    for (const QRect& rect : points - undimmed())
        painter.fillRect(rect, dimming);
}

void FrozenWindow::repaint(const QRegion& points) {
    const QRegion region = points & QRect(QPoint(), size());
    if (!isExposed() || region.isEmpty()) return;
    if (stripes_) {
        repaintStriped(region);
        return;
    }
    store_.beginPaint(region);
    auto* target = dynamic_cast<QImage*>(store_.paintDevice());
    const bool isDirect = target && target->depth() == 32 && !snapshot_.image.isNull();
    if (isDirect) paintGround(*target, region);
    {
        QPainter painter(store_.paintDevice());
        painter.setClipRegion(region);
        if (!isDirect) paintGround(painter, region);
        painter.setRenderHint(QPainter::Antialiasing);
        paintOver(painter);
    }
    store_.endPaint();
    store_.flush(region);
}

void FrozenWindow::repaintStriped(const QRegion& points) {
    stripes_->repaint(points, [this](QPainter& painter) { paintOver(painter); });
    store_.beginPaint(points);
    {
        QPainter painter(store_.paintDevice());
        painter.setClipRegion(points);
        painter.fillRect(QRect(QPoint(), size()), Qt::black);
        painter.drawImage(QPoint(), stripes_->picture());
    }
    store_.endPaint();
    setMask(stripes_->shape(undimmed()));
    store_.flush(points);
}

}  // namespace kestrio
