#include "capture/CaptureError.h"
#include "capture/ScreenCaptureService.h"

#include "support/ScriptedDisplays.h"
#include "support/ScriptedScreenPermission.h"

#include <gtest/gtest.h>
#include <QCoreApplication>

namespace kestrio {
namespace {

using namespace std::chrono_literals;
using ErrorCase = CaptureError::Case;

/// A user of overlays who is the test. Each choice waits until it is answered.
template <typename Answer>
struct ScriptedChoice {
    std::vector<Completion<Answer>> open;

    Completion<Answer> ask(const std::stop_token& stop) { return open.emplace_back(stop); }
    void answer(Answer value) { open.back().succeed(std::move(value)); }
    void cancel() { open.back().fail(std::make_exception_ptr(Cancelled())); }
};

struct ScriptedSelector : RegionSelector, ScriptedChoice<RegionCaptureResult> {
    RegionSelectionOptions options;

    Task<RegionCaptureResult> select(RegionSelectionOptions asked, std::stop_token stop) override {
        options = asked;
        const auto chosen = ask(stop);
        co_return co_await chosen;
    }
};

struct ScriptedPicker : WindowPicker, ScriptedChoice<std::optional<WindowInfo>> {
    std::function<void()> onInput;

    Task<std::optional<WindowInfo>> pick(std::function<void()> told,
                                         std::stop_token stop) override {
        onInput = std::move(told);
        const auto chosen = ask(stop);
        co_return co_await chosen;
    }
};

struct ScriptedSnapshots : ScreenSnapshotProviderProtocol {
    std::vector<QRectF> rects;
    std::exception_ptr failure;

    Task<Image> capture(QRectF rect, std::stop_token) override {
        rects.push_back(rect);
        if (failure) std::rethrow_exception(failure);
        co_return picture();
    }
    Task<Image> captureWindow(WindowInfo, std::stop_token) override {
        if (failure) std::rethrow_exception(failure);
        co_return picture();
    }
    Task<DisplaySnapshot> captureDisplay(Display display, std::stop_token) override {
        if (failure) std::rethrow_exception(failure);
        co_return DisplaySnapshot{picture().bitmap(), display.bounds, 1};
    }
    static Image picture() {
        QImage bitmap(20, 10, QImage::Format_RGB32);
        bitmap.fill(Qt::cyan);
        return Image(bitmap);
    }
};

struct ScreenCaptureServiceTest : testing::Test {
    std::shared_ptr<ScriptedScreenPermission> permission =
        std::make_shared<ScriptedScreenPermission>();
    std::shared_ptr<ScriptedDisplays> displays = std::make_shared<ScriptedDisplays>();
    std::shared_ptr<ScriptedSnapshots> snapshots = std::make_shared<ScriptedSnapshots>();
    std::shared_ptr<AppSettingsService> settings =
        std::make_shared<AppSettingsService>(std::make_shared<MemoryUserDefaults>());
    std::shared_ptr<ScriptedSelector> selector = std::make_shared<ScriptedSelector>();
    std::shared_ptr<ScriptedPicker> picker = std::make_shared<ScriptedPicker>();
    std::chrono::milliseconds limit = 20s;
    std::unique_ptr<ScreenCaptureService> service = make();

    std::unique_ptr<ScreenCaptureService> make() {
        return std::make_unique<ScreenCaptureService>(ScreenCaptureDependencies{
            permission, displays, snapshots, settings, selector, picker, limit});
    }

    template <typename T>
    static ErrorCase failureOf(Task<T> task) {
        try {
            runUntilDone(std::move(task));
        } catch (const CaptureError& error) {
            return error.which();
        }
        ADD_FAILURE() << "no failure";
        return ErrorCase::systemError;
    }

    /// A user who takes more than 300 ms, and moves the pointer all the while.
    Task<> adjustAndChoose() {
        for (int input = 0; input < 8; ++input) {
            const auto pause = sleepFor(40ms);
            co_await pause;
            selector->options.onInput();
        }
        selector->answer(frozenResult());
    }

    static RegionCaptureResult frozenResult() {
        RegionCaptureResult result;
        result.rect = {10, 20, 20, 10};
        result.image = ScriptedSnapshots::picture();
        result.choice.action = CaptureAction::pin;
        return result;
    }

    static WindowInfo someWindow() {
        return {7, QStringLiteral("P"), {}, QRectF(1, 2, 300, 200), true};
    }
};

TEST_F(ScreenCaptureServiceTest, WhatWasFrozenIsDelivered) {
    auto capturing = service->startRegionCapture({});
    selector->answer(frozenResult());
    const RegionCaptureOutcome outcome = runUntilDone(std::move(capturing));
    EXPECT_EQ(outcome.capturedImage.image.bitmap(), ScriptedSnapshots::picture().bitmap());
    EXPECT_EQ(outcome.capturedImage.captureRect, QRectF(10, 20, 20, 10));
    EXPECT_EQ(outcome.choice.action, CaptureAction::pin);
    EXPECT_TRUE(snapshots->rects.empty());
}

TEST_F(ScreenCaptureServiceTest, WithoutAPictureTheScreenIsCapturedNow) {
    auto capturing = service->startRegionCapture({});
    selector->answer({QRectF(5, 5, 40, 30), {}, {CaptureAction::copy}});
    runUntilDone(std::move(capturing));
    EXPECT_EQ(snapshots->rects, std::vector<QRectF>({QRectF(5, 5, 40, 30)}));
    auto empty = service->startRegionCapture({});
    selector->answer({QRectF(5, 5, 0, 30), {}, {CaptureAction::copy}});
    EXPECT_EQ(failureOf(std::move(empty)), ErrorCase::invalidRegion);
}

TEST_F(ScreenCaptureServiceTest, SettingsAreReadAtEachStart) {
    AppSettings changed = settings->load();
    changed.confirmBeforeEditing = false;
    changed.snapToWindowInRegionCapture = false;
    settings->save(changed);
    auto capturing = service->startRegionCapture({});
    EXPECT_FALSE(selector->options.confirms);
    EXPECT_FALSE(selector->options.snaps);
    EXPECT_TRUE(selector->options.magnifies);
    selector->cancel();
    EXPECT_EQ(failureOf(std::move(capturing)), ErrorCase::cancelled);
}

TEST_F(ScreenCaptureServiceTest, WithoutPermissionNothingAppears) {
    permission->isGranted = false;
    EXPECT_EQ(failureOf(service->startRegionCapture({})), ErrorCase::permissionDenied);
    EXPECT_EQ(failureOf(service->startWindowCapture({})), ErrorCase::permissionDenied);
    EXPECT_TRUE(selector->open.empty());
    EXPECT_TRUE(picker->open.empty());
    permission->insurmountable = QStringLiteral("not in this session");
    try {
        runUntilDone(service->captureDisplay({}));
        ADD_FAILURE() << "no failure";
    } catch (const CaptureError& error) {
        EXPECT_EQ(error.errorDescription(), u"not in this session") << "also on the command line";
    }
}

TEST_F(ScreenCaptureServiceTest, PickedWindowsAreCaptured) {
    auto capturing = service->startWindowCapture({});
    picker->answer(someWindow());
    EXPECT_EQ(runUntilDone(std::move(capturing)).captureRect, someWindow().bounds);

    auto beside = service->startWindowCapture({});
    picker->answer(std::nullopt);
    EXPECT_EQ(failureOf(std::move(beside)), ErrorCase::windowNotFound);

    snapshots->failure =
        std::make_exception_ptr(ScreenGrabError(ScreenGrabError::Case::windowGone));
    auto closed = service->startWindowCapture({});
    picker->answer(someWindow());
    EXPECT_EQ(failureOf(std::move(closed)), ErrorCase::windowNotFound);
}

TEST_F(ScreenCaptureServiceTest, FailuresOfTheScreenAreWrapped) {
    Display display;
    display.bounds = {0, 0, 100, 100};
    displays->setDisplays({display});
    snapshots->failure =
        std::make_exception_ptr(ScreenSnapshotError(ScreenSnapshotError::Case::display));
    EXPECT_EQ(failureOf(service->captureDisplay({})), ErrorCase::systemError);
}

TEST_F(ScreenCaptureServiceTest, AChoiceThatHangsEndsQuietly) {
    limit = 30ms;
    service = make();
    EXPECT_EQ(failureOf(service->startRegionCapture({})), ErrorCase::cancelled);
    EXPECT_EQ(failureOf(service->startWindowCapture({})), ErrorCase::cancelled);
    selector->options.onInput();  // by an overlay that is late
}

TEST_F(ScreenCaptureServiceTest, EachInputGivesTheWholeTimeAgain) {
    limit = 120ms;
    service = make();
    auto capturing = service->startRegionCapture({});
    const auto working = adjustAndChoose();
    EXPECT_EQ(runUntilDone(std::move(capturing)).choice.action, CaptureAction::pin)
        << "after more than twice the limit";
    auto picking = service->startWindowCapture({});
    picker->onInput();
    picker->answer(someWindow());
    runUntilDone(std::move(picking));
}

TEST_F(ScreenCaptureServiceTest, StopsNewStartsAndTheEndOfTheServiceCancel) {
    std::stop_source stop;
    auto stopped = service->startRegionCapture(stop.get_token());
    stop.request_stop();
    EXPECT_EQ(failureOf(std::move(stopped)), ErrorCase::cancelled);

    auto replaced = service->startRegionCapture({});
    auto second = service->startRegionCapture({});
    EXPECT_EQ(failureOf(std::move(replaced)), ErrorCase::cancelled);
    service.reset();
    EXPECT_EQ(failureOf(std::move(second)), ErrorCase::cancelled);
}

}  // namespace
}  // namespace kestrio
