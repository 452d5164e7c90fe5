#include "app/CaptureFixture.h"

#include "app/program/CountdownPresenter.h"
#include "support/PlainFloatingWindows.h"
#include "support/ScriptedDisplays.h"
#include "support/ScriptedGlobalHotkeys.h"

#include <QGuiApplication>
#include <QWindow>

namespace kestrio {
namespace {

using CountdownTest = CaptureFixture;
using ErrorCase = CaptureError::Case;

TEST_F(CountdownTest, ATimedCaptureCountsDownAndStandsBackForOthers) {
    captures->startDelayedCapture(1, CaptureKind::window);
    EXPECT_TRUE(captures->isCountingDown());
    EXPECT_EQ(captures->countdownRemaining(), 1);
    captures->startDelayedCapture(10, CaptureKind::region);
    EXPECT_EQ(captures->countdownRemaining(), 1);
    ASSERT_TRUE(waitUntil([&] { return service->windowCount == 1; }));
    EXPECT_FALSE(captures->isCountingDown());
    service->finish(outcome(CaptureAction::edit));
    ASSERT_TRUE(waitForEnd());

    captures->startDelayedCapture(1, CaptureKind::window);
    captures->startRegionCapture();
    ASSERT_TRUE(waitUntil([&] { return !captures->isCountingDown(); }));
    EXPECT_EQ(service->windowCount, 1);
    service->fail(ErrorCase::cancelled);
    ASSERT_TRUE(waitForEnd());
}

TEST_F(CountdownTest, ATimedCaptureShowsItsSecondsAndIsCalledOffByEscape) {
    const auto hotkeys = std::make_shared<ScriptedGlobalHotkeys>();
    const auto displays = std::make_shared<ScriptedDisplays>();
    Display display;
    display.bounds = display.visibleFrame = {0, 0, 800, 600};
    displays->setDisplays({display});
    const std::shared_ptr<CaptureCoordinator> shared(std::move(captures));
    const CountdownPresenter presenter(shared, displays, std::make_shared<PlainFloatingWindows>(),
                                       hotkeys);
    const auto shownWindows = [] {
        int count = 0;
        for (const QWindow* each : QGuiApplication::topLevelWindows())
            count += each->isVisible() && each->title() == u"Kestrio Countdown";
        return count;
    };
    shared->startDelayedCapture(30, CaptureKind::region);
    EXPECT_EQ(shownWindows(), 1);
    ASSERT_EQ(hotkeys->registered.size(), 1U);
    hotkeys->press(hotkeys->registered.begin()->first);
    ASSERT_TRUE(waitUntil([&] { return !shared->isCountingDown(); }));
    EXPECT_EQ(shownWindows(), 0);
    EXPECT_TRUE(hotkeys->registered.empty()) << "Escape is other programs' again";
    EXPECT_EQ(service->regionCount, 0);

    shared->startDelayedCapture(1, CaptureKind::region);
    EXPECT_EQ(shownWindows(), 1);
    ASSERT_TRUE(waitUntil([&] { return shared->countdownRemaining() == 0; }));
    EXPECT_EQ(shownWindows(), 0);
    EXPECT_EQ(service->regionCount, 0) << "the number has left the screen before";
    ASSERT_TRUE(waitUntil([&] { return service->regionCount == 1; }));
    service->fail(ErrorCase::cancelled);
    ASSERT_TRUE(waitUntil([&] { return !shared->isCapturing(); }));
}

}  // namespace
}  // namespace kestrio
