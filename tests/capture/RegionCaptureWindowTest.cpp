#include "capture/region/RegionCaptureWindow.h"

#include "capture/overlay/DimPixels.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>

#include <gtest/gtest.h>

#include <random>

namespace kestrio {

namespace {

QImage noise(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    std::minstd_rand random(7);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, 0xff000000u | QRgb(random()));
    return image;
}

class RegionCaptureWindowTest : public testing::Test {
  protected:
    RegionCaptureWindowTest() {
        QScreen* const screen = QGuiApplication::primaryScreen();
        display.name = screen->name();
        display.bounds = screen->geometry();
        display.scale = screen->devicePixelRatio();
        picture = noise((display.bounds.size() * display.scale).toSize());
        WindowInfo window;
        window.bounds = QRectF(420, 90, 260, 200);
        overlay = std::make_unique<RegionCaptureWindow>(
            display, DisplaySnapshot{picture, display.bounds, display.scale}, std::vector{window},
            RegionSelectionOptions(), false, [this](std::optional<RegionCaptureResult> ended) {
                result = std::move(ended);
                ++endings;
            });
        overlay->open();
        while (!overlay->isExposed())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    void pointer(QEvent::Type type, QPointF at) {
        const bool isHeld = type != QEvent::MouseButtonRelease && isDown;
        if (type == QEvent::MouseButtonPress) isDown = true;
        if (type == QEvent::MouseButtonRelease) isDown = false;
        QMouseEvent event(type, at, at, type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                          isHeld || isDown ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(overlay.get(), &event);
    }

    void move(QPointF at) { pointer(QEvent::MouseMove, at); }

    void drag(QPointF from, QPointF to) {
        move(from);
        pointer(QEvent::MouseButtonPress, from);
        for (int step = 1; step <= 4; ++step)
            move(from + (to - from) * step / 4.0);
        pointer(QEvent::MouseButtonRelease, to);
    }

    void key(int code, const QString& text = {}, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QKeyEvent event(QEvent::KeyPress, code, modifiers, text);
        QCoreApplication::sendEvent(overlay.get(), &event);
    }

    /// What stands on the screen, in pixels.
    QImage shown() {
        return overlay->screen()
            ->grabWindow(overlay->winId())
            .toImage()
            .convertToFormat(QImage::Format_RGB32);
    }

    QImage paintedAnew() {
        QEvent everything(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(overlay.get(), &everything);
        return shown();
    }

    QRect pixels(QRectF points) const {
        return QRectF(points.topLeft() * display.scale, points.size() * display.scale).toRect();
    }

    Display display;
    QImage picture;
    std::unique_ptr<RegionCaptureWindow> overlay;
    std::optional<RegionCaptureResult> result;
    int endings = 0;
    bool isDown = false;
};

/// Where two pictures differ.
QRect difference(const QImage& a, const QImage& b) {
    QRegion differing;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            if (a.pixel(x, y) != b.pixel(x, y)) differing += QRect(x, y, 1, 1);
    return differing.boundingRect();
}

TEST_F(RegionCaptureWindowTest, ShowsTheCutOutAsItWasAndDimsTheRest) {
    drag({100, 80}, {300, 240});
    const QImage screen = shown();
    ASSERT_EQ(screen.size(), picture.size());
    const QRect inside = pixels(QRectF(120, 100, 160, 120));
    EXPECT_TRUE(screen.copy(inside) == picture.copy(inside));
    QImage dimmed(picture.size(), QImage::Format_RGB32);
    copyDimmed(dimmed, picture, picture.rect());
    const QRect outside = pixels(QRectF(10, 10, 80, 60));
    EXPECT_TRUE(screen.copy(outside) == dimmed.copy(outside));
    // Seven tenths of the light, to the nearest step.
    const QRgb before = picture.pixel(outside.topLeft());
    EXPECT_NEAR(qRed(screen.pixel(outside.topLeft())), qRed(before) * 0.7, 1);
    EXPECT_NEAR(qBlue(screen.pixel(outside.topLeft())), qBlue(before) * 0.7, 1);
}

TEST_F(RegionCaptureWindowTest, RepaintsAllThatChanges) {
    std::minstd_rand random(3);
    const auto anywhere = [&] { return QPointF(random() % 800, random() % 800); };
    for (int round = 0; round < 12; ++round) {
        move(anywhere());
        move({500, 150});  // over the window to snap to
        move(anywhere());
        drag(anywhere(), anywhere());
        move(anywhere());
        key(Qt::Key_Right, {}, Qt::ShiftModifier);
        key(Qt::Key_Down, {}, Qt::ControlModifier);
        key(Qt::Key_3, QStringLiteral("3"));
        const QImage followed = shown();
        const QImage anew = paintedAnew();
        ASSERT_TRUE(followed == anew)
            << "round " << round << " differs at " << difference(followed, anew).x() << ", "
            << difference(followed, anew).y();
    }
}

TEST_F(RegionCaptureWindowTest, DeliversThePixelsAndTheChosenColour) {
    drag({100.0, 80.0}, {300.0, 240.0});
    key(Qt::Key_5, QStringLiteral("5"));
    EXPECT_EQ(endings, 0);
    key(Qt::Key_R, QStringLiteral("r"));
    key(Qt::Key_Escape);
    ASSERT_EQ(endings, 1);
    ASSERT_TRUE(result);
    EXPECT_EQ(result->choice.tool, AnnotationTool::rectangle);
    EXPECT_EQ(result->choice.toolColor, quickColors[4]);
    EXPECT_TRUE(result->image.bitmap().convertToFormat(QImage::Format_RGB32) ==
                picture.copy(pixels(QRectF(100, 80, 200, 160))));
}

TEST_F(RegionCaptureWindowTest, ControlATakesTheWholeDisplay) {
    key(Qt::Key_A, QStringLiteral("\x01"), Qt::ControlModifier);
    EXPECT_EQ(endings, 0) << "adjusted first";
    key(Qt::Key_Return);
    ASSERT_TRUE(result);
    EXPECT_EQ(result->image.bitmap().size(), picture.size());
}

TEST_F(RegionCaptureWindowTest, TellsOfEachInput) {
    int inputs = 0;
    overlay->setInputListener([&] { ++inputs; });
    move({10, 10});
    drag({20, 20}, {200, 200});
    EXPECT_EQ(inputs, 8);
    key(Qt::Key_Left);
    EXPECT_EQ(inputs, 9);
}

TEST(CaptureToolbar, TakesMoreRowsOnNarrowDisplays) {
    for (const double widest : {1000.0, 500.0, 400.0}) {
        const CaptureToolbar toolbar(widest);
        EXPECT_LE(toolbar.size().width(), widest);
        EXPECT_EQ(toolbar.size().height() > 50, widest < 1000);
        for (std::size_t i = 0; i < toolbar.buttons().size(); ++i) {
            const QRectF place = toolbar.buttons()[i].place;
            EXPECT_TRUE(QRectF(QPointF(), toolbar.size()).contains(place));
            EXPECT_EQ(toolbar.buttonAt(place.center()), int(i));
        }
    }
}

}  // namespace

}  // namespace kestrio
