#include "scrolling/capture/ScrollingCaptureService.h"

#include <gtest/gtest.h>

#include "scrolling/capture/ScriptedPresenter.h"
#include "scrolling/capture/ScrolledScreen.h"
#include "support/NoisePicture.h"
#include "support/ScriptedDisplays.h"
#include "support/ScriptedScreenPermission.h"
#include "support/Waiting.h"

namespace kestrio {
namespace {

using Case = ScrollingCaptureError::Case;
using Phase = CaptureSessionState::Phase;

struct ScrollingCaptureServiceTest : testing::Test {
    std::shared_ptr<ScrolledScreen> screen =
        std::make_shared<ScrolledScreen>(ScrolledFrames({QSize(600, 2000), 0, 0, 3}, 400));
    std::shared_ptr<ScriptedSource> source = std::make_shared<ScriptedSource>();
    std::shared_ptr<ScriptedPresenter> presenter = std::make_shared<ScriptedPresenter>();
    std::shared_ptr<ChosenRegion> selector = std::make_shared<ChosenRegion>();
    std::shared_ptr<ScriptedScreenPermission> permission =
        std::make_shared<ScriptedScreenPermission>();
    std::shared_ptr<ScriptedDisplays> displays = std::make_shared<ScriptedDisplays>();
    std::vector<ScrollingCaptureError> asked;
    bool keeps = false;
    ScrollingCaptureConfig config;
    std::chrono::milliseconds timeout = std::chrono::seconds(20);
    std::vector<Phase> phases;
    std::unique_ptr<ScrollingCaptureService> service;

    struct Result {
        std::optional<CapturedImage> captured;
        std::optional<ScrollingCaptureError> error;
        bool isDone() const { return captured || error; }
    };
    std::shared_ptr<Result> result = std::make_shared<Result>();

    ScrollingCaptureServiceTest() {
        selector->region = QRectF(QPointF(), screen->size());
        Display display;
        display.bounds = QRectF(QPointF(), screen->size());
        displays->setDisplays({display});
        config.autoScroll.stabilizationCheckInterval = std::chrono::milliseconds(5);
        config.autoScroll.interStepDelay = std::chrono::milliseconds(1);
    }

    void make() {
        ScrollingCaptureDependencies with;
        with.permission = permission;
        with.displays = displays;
        with.settings =
            std::make_shared<AppSettingsService>(std::make_shared<MemoryUserDefaults>());
        with.regionSelector = selector;
        with.snapshots = screen;
        with.wheel = screen;
        with.makeSource = [this] { return source; };
        with.makePresenter = [this] { return presenter; };
        with.asksToKeep = [this](ScrollingCaptureError error, std::stop_token) -> Task<bool> {
            asked.push_back(error);
            co_return keeps;
        };
        with.captureTimeout = timeout;
        service = std::make_unique<ScrollingCaptureService>(std::move(with), config);
        service->setStateObserver(
            [this](const CaptureSessionState& state) { phases.push_back(state.phase); });
    }

    static Task<> follow(ScrollingCaptureService& service, ScrollingCaptureRequest request,
                         std::stop_token stop, std::shared_ptr<Result> into) {
        try {
            auto capturing = service.startScrollingCapture(request, stop);
            into->captured = co_await capturing;
        } catch (const ScrollingCaptureError& error) {
            into->error = error;
        }
    }

    std::stop_source stop;

    void start(ScrollingCaptureMode mode, std::optional<QRectF> region = std::nullopt) {
        if (!service) make();
        launch(follow(*service, {mode, region}, stop.get_token(), result), presenter.get());
    }

    void startManual() {
        start(ScrollingCaptureMode::manual);
        ASSERT_TRUE(waitUntil([this] { return source->region || result->isDone(); }));
    }

    void scrollTo(int y) {
        const int frames = presenter->flashCount;
        screen->position = y;
        source->push(screen->shown());
        ASSERT_TRUE(waitUntil([&] { return presenter->flashCount > frames; }));
    }

    bool waitForEnd() {
        return waitUntil([this] { return result->isDone(); });
    }

    void expectError(Case which) {
        ASSERT_TRUE(waitForEnd());
        ASSERT_TRUE(result->error);
        EXPECT_EQ(result->error->which(), which) << result->error->errorDescription().toStdString();
        EXPECT_FALSE(presenter->isShown);
        EXPECT_EQ(phases.back(), Phase::failed);
    }
};

TEST_F(ScrollingCaptureServiceTest, JoinsWhatTheUserScrolls) {
    startManual();
    EXPECT_EQ(source->region, QRectF(0, 0, 600, 400));
    scrollTo(0);
    scrollTo(130);
    scrollTo(300);
    EXPECT_TRUE(presenter->begun.front().isManual);
    EXPECT_EQ(presenter->progress.back().frameCount, 3);
    EXPECT_EQ(presenter->progress.back().heightPixels, 700);
    EXPECT_FALSE(presenter->progress.back().thumbnail.isNull());
    // The last of it was not delivered yet when the user pressed Done.
    screen->position = 371;
    Q_EMIT presenter->completeRequested();
    ASSERT_TRUE(waitForEnd());
    ASSERT_TRUE(result->captured);
    EXPECT_TRUE(result->captured->image.bitmap() == screen->frames().joined(0, 371));
    EXPECT_EQ(result->captured->captureRect, QRectF(0, 0, 600, 400));
    EXPECT_FALSE(presenter->isShown);
    EXPECT_GE(source->stopCount, 1);
    EXPECT_EQ(service->lastStitchingMetrics().frameCount, 4);
    EXPECT_GT(service->lastStitchingMetrics().overlapDetectionTime, 0);
    EXPECT_TRUE(service->lastStitchingWarnings().empty());
    EXPECT_EQ(phases, (std::vector{Phase::selectingRegion, Phase::capturing, Phase::stitching,
                                   Phase::completed}));
}

TEST_F(ScrollingCaptureServiceTest, ScrollsByItselfToTheEndAndPutsThePointerBack) {
    for (const int pointsPerClick : {20, 60, 120}) {
        *result = {};
        screen->position = 0;
        screen->pointsPerClick = pointsPerClick;
        start(ScrollingCaptureMode::automatic);
        ASSERT_TRUE(waitUntil([this] { return presenter->isShown; }));
        EXPECT_EQ(presenter->startedCount, 0);
        ASSERT_TRUE(waitUntil([this] { return presenter->flashCount > 0; }));
        Q_EMIT presenter->startRequested();
        ASSERT_TRUE(waitForEnd());
        ASSERT_TRUE(result->captured) << result->error->errorDescription().toStdString();
        const QImage truth = screen->frames().joined(0, screen->frames().furthest());
        // The column of the scroll bar is left out.
        EXPECT_TRUE(result->captured->image.bitmap() == truth.copy(0, 0, 584, truth.height()));
        EXPECT_EQ(screen->pointerPlace, QPointF(3, 4));
        presenter->startedCount = presenter->flashCount = 0;
    }
    EXPECT_GT(*std::ranges::max_element(screen->clicks), 1);
}

TEST_F(ScrollingCaptureServiceTest, BeginsByItselfInAGivenRegion) {
    start(ScrollingCaptureMode::automatic, QRectF(0, 0, 600, 400));
    ASSERT_TRUE(waitForEnd());
    ASSERT_TRUE(result->captured);
    EXPECT_EQ(presenter->startedCount, 1);
}

TEST_F(ScrollingCaptureServiceTest, LeavesOutWhatLiesBesideTheScreen) {
    start(ScrollingCaptureMode::manual, QRectF(200, -50, 600, 400));
    ASSERT_TRUE(waitUntil([this] { return source->region.has_value(); }));
    EXPECT_EQ(source->region, QRectF(200, 0, 400, 350));
    EXPECT_EQ(presenter->begun.front().region, QRectF(200, 0, 400, 350));
    stop.request_stop();
    expectError(Case::cancelled);
}

TEST_F(ScrollingCaptureServiceTest, RefusesWhatCannotBegin) {
    permission->isGranted = false;
    start(ScrollingCaptureMode::manual);
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(result->error->which(), Case::permissionDenied);
    permission->isGranted = true;

    *result = {};
    selector->region = QRectF(0, 0, 49, 200);
    start(ScrollingCaptureMode::manual);
    expectError(Case::regionTooSmall);

    for (const QRectF& beside : {QRectF(600, 0, 300, 300), QRectF(-300, 900, 200, 200)}) {
        *result = {};
        start(ScrollingCaptureMode::automatic, beside);
        expectError(Case::systemError);
    }
    *result = {};
    start(ScrollingCaptureMode::automatic, QRectF(560, 0, 300, 300));
    expectError(Case::regionTooSmall);
    EXPECT_TRUE(presenter->begun.empty());

    *result = {};
    selector->region.reset();
    start(ScrollingCaptureMode::manual);
    expectError(Case::cancelled);

    *result = {};
    selector->region = QRectF(0, 0, 600, 400);
    source->onStart = [] {
        throw ScrollingCaptureError::systemError(QStringLiteral("no display"));
    };
    start(ScrollingCaptureMode::manual);
    expectError(Case::systemError);
    source->onStart = nullptr;

    *result = {};
    screen->isReadable = false;
    start(ScrollingCaptureMode::automatic);
    expectError(Case::systemError);
    screen->isReadable = true;

    *result = {};
    screen->permitted = false;
    start(ScrollingCaptureMode::automatic, QRectF(0, 0, 600, 400));
    expectError(Case::accessibilityPermissionDenied);
    EXPECT_TRUE(asked.empty());
}

TEST_F(ScrollingCaptureServiceTest, ASecondStartDisturbsNothing) {
    startManual();
    scrollTo(0);
    const auto second = std::make_shared<Result>();
    launch(follow(*service, {}, {}, second), presenter.get());
    ASSERT_TRUE(waitUntil([&] { return second->isDone(); }));
    EXPECT_EQ(second->error->which(), Case::systemError);
    scrollTo(90);
    Q_EMIT presenter->completeRequested();
    Q_EMIT presenter->cancelRequested();
    ASSERT_TRUE(waitForEnd());
    EXPECT_TRUE(result->captured);
}

TEST_F(ScrollingCaptureServiceTest, CancelsInEveryState) {
    startManual();
    scrollTo(0);
    Q_EMIT presenter->cancelRequested();
    expectError(Case::cancelled);
    EXPECT_TRUE(asked.empty());

    *result = {};
    start(ScrollingCaptureMode::automatic);
    ASSERT_TRUE(waitUntil([this] { return presenter->isShown; }));
    stop.request_stop();
    expectError(Case::cancelled);
}

TEST_F(ScrollingCaptureServiceTest, OffersToKeepWhatWasCaptured) {
    keeps = true;
    startManual();
    scrollTo(0);
    scrollTo(120);
    source->fail(QStringLiteral("the display is gone"));
    ASSERT_TRUE(waitForEnd());
    ASSERT_TRUE(result->captured);
    EXPECT_TRUE(result->captured->image.bitmap() == screen->frames().joined(0, 120));
    ASSERT_EQ(asked.size(), 1u);
    EXPECT_EQ(asked.front().which(), Case::systemError);

    // Five frames that do not continue end it.
    keeps = false;
    *result = {};
    source->region.reset();
    startManual();
    scrollTo(0);
    for (int i = 0; i < 30 && !result->isDone(); ++i) {
        source->push(
            noisePicture(QSize(600, 400), QImage::Format_RGB32).mirrored(i % 2, i % 3 == 0));
        waitFor(std::chrono::milliseconds(20));
    }
    expectError(Case::lowConfidence);
    EXPECT_TRUE(result->error->isReported());
}

TEST_F(ScrollingCaptureServiceTest, EndsAtItsLimits) {
    config.maxFrameCount = 3;
    make();
    startManual();
    for (const int y : {0, 50, 100})
        scrollTo(y);
    ASSERT_TRUE(waitForEnd());
    ASSERT_TRUE(result->captured);

    service.reset();
    *result = {};
    source->region.reset();
    config.maxFrameCount = 10;
    make();
    startManual();
    for (int y = 0; y <= 1140; y += 60)
        scrollTo(y);
    EXPECT_FALSE(result->isDone()) << "as many frames, but hardly more rows";
    scrollTo(1210);
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(result->captured->image.bitmap().height(), 1610);

    service.reset();
    *result = {};
    source->region.reset();
    timeout = std::chrono::milliseconds(300);
    make();
    startManual();
    scrollTo(0);
    expectError(Case::captureTimeout);
    EXPECT_EQ(asked.size(), 1u);
}

TEST_F(ScrollingCaptureServiceTest, OutlivedByACapture) {
    startManual();
    scrollTo(0);
    service.reset();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(result->error->which(), Case::cancelled);
}

}  // namespace
}  // namespace kestrio
