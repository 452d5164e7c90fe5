#include "library/pins/PinGeometry.h"
#include "library/pins/PinnedScreenshotCoordinator.h"
#include "library/pins/PinnedScreenshotWindow.h"

#include "support/MemoryPasteboard.h"
#include "support/PlainFloatingWindows.h"
#include "support/ScriptedDisplays.h"
#include "support/Waiting.h"

#include <gtest/gtest.h>
#include <QCoreApplication>
#include <QMouseEvent>

namespace kestrio {
namespace {

TEST(PinGeometry, PicturesAreFittedThenRaised) {
    const std::pair<QSizeF, QSizeF> cases[] = {
        {{3000, 1000}, {1200, 400}}, {{50, 50}, {100, 100}},      {{3000, 100}, {1200, 100}},
        {{640, 480}, {640, 480}},    {{1500, 3000}, {600, 1200}}, {{100, 1e6}, {100, 1200}},
    };
    for (const auto& [image, expected] : cases) {
        const QSizeF size = pinnedSize(image);
        EXPECT_NEAR(size.width(), expected.width(), 0.5) << image.width();
        EXPECT_NEAR(size.height(), expected.height(), 0.5) << image.width();
    }
}

TEST(PinGeometry, ResizingKeepsRatioAndLimits) {
    struct Case {
        QSizeF asked;
        double ratio;
        QSizeF expected;
    };
    const Case cases[] = {
        {{400, 999}, 2, {400, 200}}, {{50, 50}, 1, {100, 100}},      {{5000, 10}, 1.5, {1200, 800}},
        {{120, 10}, 4, {400, 100}},  {{1200, 10}, 0.5, {600, 1200}},
    };
    for (const Case& each : cases)
        EXPECT_EQ(resizedPin(each.asked, each.ratio), each.expected) << each.asked.width();
}

struct PinsTest : testing::Test {
    std::shared_ptr<ScriptedDisplays> displays = std::make_shared<ScriptedDisplays>();
    std::shared_ptr<MemoryPasteboard> pasteboard = std::make_shared<MemoryPasteboard>();
    PinnedScreenshotCoordinator pins{displays, std::make_shared<PlainFloatingWindows>(),
                                     std::make_shared<PictureExporter>(pasteboard)};

    // Windows that were closed delete themselves later, while what they refer to still stands.
    ~PinsTest() override { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    static Image picture(QSize size) {
        QImage bitmap(size, QImage::Format_RGB32);
        bitmap.fill(Qt::blue);
        return Image(bitmap);
    }

    static void mouse(PinnedScreenshotWindow& window, QEvent::Type type, QPointF at,
                      Qt::MouseButtons buttons) {
        const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, at, at + window.position(), button, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &event);
    }

    static void drag(PinnedScreenshotWindow& window, QPointF from, QPointF by) {
        const QPointF origin = window.position();
        mouse(window, QEvent::MouseButtonPress, from, Qt::LeftButton);
        QMouseEvent move(QEvent::MouseMove, from + by, origin + from + by, Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &move);
        mouse(window, QEvent::MouseButtonRelease, from + by, Qt::NoButton);
    }
};

TEST_F(PinsTest, StandsInTheMiddleOfThePrimaryDisplaysFreeArea) {
    Display display;
    display.bounds = {0, 0, 1920, 1080};
    display.visibleFrame = {0, 30, 1920, 1050};
    display.isPrimary = true;
    displays->setDisplays({display});
    const QUuid id = pins.pin(picture({400, 200}));
    EXPECT_EQ(pins.window(id)->geometry(), QRect(760, 455, 400, 200));
}

TEST_F(PinsTest, ClosingOneLeavesTheOthers) {
    const QUuid first = pins.pin(picture({300, 200}));
    const QUuid second = pins.pin(picture({300, 200}));
    pins.close(first);
    pins.close(first);
    EXPECT_EQ(pins.window(first), nullptr);
    ASSERT_NE(pins.window(second), nullptr);
    pins.window(second)->close();
    EXPECT_TRUE(pins.windowModels().empty());
}

TEST_F(PinsTest, IsMovedByItsContentAndResizedAtItsEdges) {
    const QUuid id = pins.pin(picture({400, 200}));
    PinnedScreenshotWindow& window = *pins.window(id);
    const QRect start = window.geometry();
    drag(window, {200, 100}, {30, -20});
    EXPECT_EQ(window.geometry(), start.translated(30, -20));
    drag(window, {399, 100}, {100, 70});
    EXPECT_EQ(window.size(), QSize(500, 250));
    const QRect wide = window.geometry();
    drag(window, {1, 120}, {100, 0});
    EXPECT_EQ(window.size(), QSize(400, 200));
    EXPECT_EQ(window.geometry().right(), wide.right());
}

TEST_F(PinsTest, CopiesItsPictureOrTellsThatItCannot) {
    const Image shown = picture({400, 200});
    PinnedScreenshotWindow& window = *pins.window(pins.pin(shown));
    QStringList failures;
    QObject::connect(&pins, &PinnedScreenshotCoordinator::copyFailed,
                     [&failures](const QString& message) { failures << message; });
    Q_EMIT window.copyRequested();
    EXPECT_TRUE(waitUntil([this] { return !pasteboard->contents().isEmpty(); }));
    EXPECT_EQ(pasteboard->contents().image, shown.bitmap());
    EXPECT_TRUE(failures.isEmpty());
    pasteboard->refusesImages = true;
    Q_EMIT window.copyRequested();
    EXPECT_TRUE(waitUntil([&failures] { return !failures.isEmpty(); }));
}

TEST_F(PinsTest, TheCloseButtonTakesAWholeClick) {
    const QUuid id = pins.pin(picture({400, 200}));
    PinnedScreenshotWindow* window = pins.window(id);
    const QPointF button = window->closeButton().center();
    mouse(*window, QEvent::MouseButtonPress, button, Qt::LeftButton);
    mouse(*window, QEvent::MouseButtonRelease, {200, 150}, Qt::NoButton);
    ASSERT_NE(pins.window(id), nullptr);
    mouse(*window, QEvent::MouseButtonPress, button, Qt::LeftButton);
    mouse(*window, QEvent::MouseButtonRelease, button, Qt::NoButton);
    EXPECT_EQ(pins.window(id), nullptr);
}

}  // namespace
}  // namespace kestrio
