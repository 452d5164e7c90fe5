#include "platform/linux/x11/X11FloatingWindows.h"
#include "platform/linux/x11/X11GlobalHotkeys.h"
#include "platform/linux/x11/X11ScreenGrabber.h"
#include "platform/linux/x11/X11ScreenStream.h"
#include "scrolling/overlays/CaptureKeys.h"
#include "scrolling/overlays/ScrollingRegionOverlay.h"
#include "support/ScriptedAppearance.h"
#include "support/ScriptedDisplays.h"
#include "support/Waiting.h"
#include "ui/Palette.h"

#include <QGuiApplication>
#include <QPainter>
#include <QProcess>
#include <QRasterWindow>
#include <QScreen>
#include <atomic>

#include <gtest/gtest.h>

namespace kestrio {
namespace {

using namespace std::chrono_literals;

constexpr QColor page(20, 160, 90);

/// One colour over the whole screen.
class Page : public QRasterWindow {
  public:
    Page() {
        setFlags(Qt::Window | Qt::BypassWindowManagerHint);
        setGeometry(screen()->geometry());
        show();
        EXPECT_TRUE(waitUntil([this] { return isPainted_; }));
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter(this).fillRect(QRect(QPoint(), size()), page);
        isPainted_ = true;
    }

  private:
    bool isPainted_ = false;
};

/// On a real screen, at the scale of the process.
class X11Overlays : public testing::Test {
  protected:
    void SetUp() override {
        if (QGuiApplication::platformName() != u"xcb") GTEST_SKIP() << "needs an X server";
        page_ = std::make_unique<Page>();
    }

    QRect pixels(const QRectF& points) const {
        const double scale = page_->devicePixelRatio();
        return QRectF(points.topLeft() * scale, points.size() * scale).toAlignedRect();
    }
    QImage grab(const QRectF& points) {
        return runUntilDone(grabber_.grabRectangle(pixels(points), {}));
    }
    static int count(const QImage& image, const QColor& color) {
        int found = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                found += image.pixelColor(x, y) == color;
        return found;
    }
    /// While the frame walks and flashes, in a dozen grabs.
    void expectNothingInside(const QRectF& region) {
        for (int round = 0; round < 12; ++round) {
            if (round % 4 == 0) overlay_.flash();
            const QImage inside = grab(region);
            EXPECT_EQ(count(inside, page), inside.width() * inside.height());
            waitFor(25ms);
        }
    }

    std::unique_ptr<Page> page_;
    X11ScreenGrabber grabber_;
    std::shared_ptr<ScriptedAppearance> appearance_ = std::make_shared<ScriptedAppearance>();
    ScrollingRegionOverlay overlay_{std::make_shared<X11FloatingWindows>(), appearance_};
};

TEST_F(X11Overlays, FrameStandsRoundTheRegionAndNeverInIt) {
    const QRectF display = page_->screen()->geometry();
    const QRectF regions[] = {
        {60, 50, 200, 120},
        {60.5, 50.5, 201, 121.5},
        {0, 0, 150, 100},
        {display.right() - 120, 40, 120, display.height() - 40},
    };
    for (const QRectF& region : regions) {
        overlay_.show(region, display);
        const QRectF around = region.adjusted(-6, -6, 6, 6) & display;
        const QColor dash = Palette::light().accent;
        EXPECT_TRUE(waitUntil([&] { return count(grab(around), dash) > 100; }));
        expectNothingInside(region);
    }
    overlay_.hide();
    const QImage all = grab(display);
    EXPECT_TRUE(
        waitUntil([&] { return count(grab(display), page) == all.width() * all.height(); }));
}

TEST_F(X11Overlays, FrameDoesNotCountAsAChangeOfTheRegion) {
    const double scale = page_->devicePixelRatio();
    const auto displays = std::make_shared<ScriptedDisplays>();
    const QRectF display = page_->screen()->geometry();
    displays->setDisplays({{QStringLiteral("one"), display, display, pixels(display), scale}});
    const QRectF region(60, 50, 200, 120);
    overlay_.show(region, display);
    const QRectF around = region.adjusted(-6, -6, 6, 6);
    ASSERT_TRUE(waitUntil([&] { return count(grab(around), Palette::light().accent) > 100; }));
    std::atomic<int> frames = 0;
    X11ScreenStream stream(displays);
    stream.setFrameHandler([&](const StreamedFrame&) { ++frames; });
    runUntilDone(stream.start({region, 60}));
    for (int round = 0; round < 5; ++round) {
        overlay_.flash();
        waitFor(100ms);
    }
    EXPECT_EQ(frames, 1);
    runUntilDone(stream.stop());
}

TEST_F(X11Overlays, KeysAreTakenFromTheWindowThatHasTheFocus) {
    std::string pressed;
    const auto hotkeys = std::make_shared<X11GlobalHotkeys>();
    const auto press = [](const char* key) {
        QProcess::execute(QStringLiteral("xdotool"),
                          {QStringLiteral("key"), QString::fromLatin1(key)});
    };
    {
        CaptureKeys keys(hotkeys);
        QObject::connect(&keys, &CaptureKeys::confirmed, [&] { pressed += 'd'; });
        QObject::connect(&keys, &CaptureKeys::cancelled, [&] { pressed += 'c'; });
        for (const char* key : {"Return", "Escape", "KP_Enter"}) {
            const std::size_t before = pressed.size();
            press(key);
            EXPECT_TRUE(waitUntil([&] { return pressed.size() > before; })) << key;
            waitFor(60ms);  // until the release is seen
        }
        EXPECT_EQ(pressed, "dcd");
    }
    press("Return");
    waitFor(100ms);
    EXPECT_EQ(pressed, "dcd") << "the keys are other programs' again";
}

TEST_F(X11Overlays, FrameWalksUnlessMotionIsReducedAndFlashesWhite) {
    const QRectF display = page_->screen()->geometry();
    const QRectF region(60, 50, 200, 120);
    const QRectF top(80, 45, 100, 3);
    overlay_.show(region, display);
    const QColor dash = Palette::light().accent;
    ASSERT_TRUE(waitUntil([&] { return count(grab(top), dash) > 50; }));
    const QImage first = grab(top);
    EXPECT_TRUE(waitUntil([&] { return grab(top) != first; }));

    appearance_->set_isMotionReduced(true);
    waitFor(100ms);
    const QImage still = grab(top);
    waitFor(200ms);
    EXPECT_EQ(grab(top), still);
    overlay_.flash();
    EXPECT_TRUE(waitUntil([&] { return count(grab(top), dash) == 0; }));
    EXPECT_TRUE(waitUntil([&] { return grab(top) == still; }));
}

}  // namespace
}  // namespace kestrio
