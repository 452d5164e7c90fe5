#include "capture/overlay/StripedDimming.h"
#include "capture/picker/WindowPickerWindow.h"
#include "capture/region/RegionCaptureWindow.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

#include <gtest/gtest.h>

namespace kestrio {
namespace {

int areaOf(const QRegion& region) {
    int area = 0;
    for (const QRect& rect : region)
        area += rect.width() * rect.height();
    return area;
}

TEST(StripedDimming, LetsTheScreenThroughButWhereSomethingIsPainted) {
    for (const double scale : {1.0, 1.5, 2.0}) {
        StripedDimming dimming({300, 90}, scale);
        const QRect label(20, 10, 40, 20), cutOut(100, 0, 100, 90);
        dimming.repaint(QRect(0, 0, 300, 90), [&](QPainter& painter) {
            painter.fillRect(label, QColor(0, 0, 0, 180));
            painter.fillRect(QRect(220, 30, 30, 30), QColor(0, 0, 255, 30));
        });
        const QRegion shape = dimming.shape(cutOut);
        EXPECT_TRUE((QRegion(label) - shape).isEmpty()) << scale;
        EXPECT_TRUE((shape & cutOut).isEmpty()) << scale;
        EXPECT_EQ(areaOf(shape & QRect(200, 0, 100, 90)), 100 * 90 / 3) << "a tint is no part";
        dimming.repaint(label, [](QPainter&) {});
        EXPECT_EQ(areaOf(dimming.shape({})), 300 * 90 / 3) << "what was taken away leaves nothing";
    }
}

struct LiveOverlay : testing::Test {
    Display display;
    std::optional<RegionCaptureResult> result;

    LiveOverlay() {
        QScreen* const screen = QGuiApplication::primaryScreen();
        display.name = screen->name();
        display.bounds = screen->geometry();
        display.scale = screen->devicePixelRatio();
    }

    static void waitForExposure(const QWindow& window) {
        while (!window.isExposed())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    static void pointer(QWindow& window, QEvent::Type type, QPointF at) {
        const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        const auto held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, at, at, button, held, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &event);
    }
};

TEST_F(LiveOverlay, WithoutAPictureTheChosenPartIsAHoleInTheWindow) {
    RegionCaptureWindow overlay(display, {{}, display.bounds, display.scale}, {}, {}, false,
                                [this](auto ended) { result = std::move(ended); });
    overlay.setLiveDimming(LiveDimming::striped);
    overlay.open();
    waitForExposure(overlay);
    EXPECT_FALSE(overlay.mask().isEmpty());
    pointer(overlay, QEvent::MouseButtonPress, {100, 80});
    pointer(overlay, QEvent::MouseMove, {250, 200});
    pointer(overlay, QEvent::MouseMove, {400, 300});
    pointer(overlay, QEvent::MouseButtonRelease, {400, 300});
    const QRect inside = QRect(100, 80, 300, 220).adjusted(20, 20, -20, -20);
    EXPECT_TRUE((overlay.mask() & inside).isEmpty());
    const QRect outside(0, 0, 60, 60);
    EXPECT_EQ(areaOf(overlay.mask() & outside), 60 * 60 / 3);
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(&overlay, &enter);
    ASSERT_TRUE(result);
    EXPECT_EQ(result->rect, QRectF(100, 80, 300, 220).translated(display.bounds.topLeft()));
    EXPECT_TRUE(result->image.isNull()) << "the service captures it once the overlay is gone";
}

TEST_F(LiveOverlay, ThePickersHintMakesRoomForANameAtTheTop) {
    QImage white((display.bounds.size() * display.scale).toSize(), QImage::Format_RGB32);
    white.fill(Qt::white);
    WindowInfo top;
    top.windowName = QStringLiteral("at the top");
    top.bounds = QRectF(0, 10, display.bounds.width(), 300).translated(display.bounds.topLeft());
    WindowPickerWindow picker(display, {white, display.bounds, display.scale}, {top}, {});
    picker.open();
    waitForExposure(picker);
    const auto shown = [&] {
        return picker.screen()
            ->grabWindow(picker.winId())
            .toImage()
            .convertToFormat(QImage::Format_RGB32);
    };
    const auto darkAt = [&](double y) {
        const QImage now = shown();
        const QPoint at = (QPointF(display.bounds.width() / 2 - 150, y) * display.scale).toPoint();
        return qGray(now.pixel(at)) < 120;
    };
    const double below = display.bounds.height() - 50;
    pointer(picker, QEvent::MouseMove, {20, display.bounds.height() - 200});
    EXPECT_TRUE(darkAt(50));
    EXPECT_FALSE(darkAt(below));
    pointer(picker, QEvent::MouseMove, {20, 100});
    EXPECT_FALSE(darkAt(50));
    EXPECT_TRUE(darkAt(below));
    const QImage followed = shown();
    QEvent everything(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(&picker, &everything);
    EXPECT_TRUE(followed == shown()) << "nothing of the hint is left behind";
}

}  // namespace
}  // namespace kestrio
