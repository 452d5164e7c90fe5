#include "scrolling/capture/ScrollingCaptureService.h"

#include <QDir>
#include <QScopeGuard>

#include "capture/IdleLimit.h"
#include "core/Localisation.h"

namespace kestrio {

namespace {

using Case = ScrollingCaptureError::Case;
using Phase = CaptureSessionState::Phase;
using Kind = ScrollingEnding::Kind;

constexpr double smallestSide = 50;  // points
// An overlay needs it to leave the screen, and what it covered to be painted again.
constexpr std::chrono::milliseconds overlayLeaves(100);

ScrollingStitchEngine::Config engineConfig(const ScrollingCaptureConfig& config) {
    ScrollingStitchEngine::Config engine;
    engine.minOverlapRatio = config.minOverlapRatio;
    return engine;
}

StitchingMetrics metricsOf(const ScrollingStitchSnapshot& snapshot) {
    StitchingMetrics metrics;
    metrics.overlapDetectionTime = snapshot.processingTime;
    metrics.renderingTime = snapshot.renderingTime;
    metrics.totalTime = snapshot.processingTime + snapshot.renderingTime;
    metrics.frameCount = snapshot.acceptedFrameCount;
    return metrics;
}

QImage requirePicture(const ScrollingStitchSnapshot& snapshot) {
    if (snapshot.acceptedFrameCount < 1) throw ScrollingCaptureError(Case::insufficientFrames);
    if (!snapshot.image.isNull()) return snapshot.image;
    if (!snapshot.needsTemporaryFile) throw ScrollingCaptureError(Case::stitchingFailed);
    throw ScrollingCaptureError::systemError(
        Kestrio::tr("The temporary folder %1 has no room for so tall a picture.")
            .arg(QDir::toNativeSeparators(QDir::tempPath())));
}

}  // namespace

struct ScrollingCaptureService::Shared {
    ScrollingCaptureDependencies with;
    ScrollingCaptureConfig config;
    StateObserver observer;
    std::stop_source owner;  // ends with the service
    bool isActive = false;
    StitchingMetrics lastMetrics;
    std::vector<StitchingWarning> lastWarnings;

    static Task<CapturedImage> capture(std::shared_ptr<Shared> self,
                                       ScrollingCaptureRequest request, std::stop_token stop);
    static Task<CapturedImage> captureSession(std::shared_ptr<Shared> self,
                                              std::shared_ptr<CaptureSession> session,
                                              ScrollingCaptureRequest request,
                                              std::stop_token stop);
    Task<QRectF> chooseRegion(std::stop_token stop);
    QRectF onDesktop(const QRectF& region) const;
    Task<> limitTime(std::shared_ptr<ScrollingRun> run);
    static Task<ScrollingEnding> takeFrames(std::shared_ptr<Shared> self,
                                            std::shared_ptr<ScrollingRun> run,
                                            ScrollingCaptureMode mode, bool isAttended);
    static Task<ScrollingEnding> scrollByHand(std::shared_ptr<Shared> self,
                                              std::shared_ptr<ScrollingRun> run);
    static Task<ScrollingEnding> scrollByItself(std::shared_ptr<Shared> self,
                                                std::shared_ptr<ScrollingRun> run, bool isAttended);
    static Task<> waitForStart(std::shared_ptr<ScrollingRun> run);
    bool mayScroll() const;
    static Task<bool> isKept(std::shared_ptr<Shared> self, std::shared_ptr<ScrollingRun> run,
                             ScrollingCaptureError error, std::stop_token stop);
    static Task<CapturedImage> finish(std::shared_ptr<Shared> self,
                                      std::shared_ptr<ScrollingRun> run);
};

ScrollingCaptureService::ScrollingCaptureService(ScrollingCaptureDependencies dependencies,
                                                 ScrollingCaptureConfig config)
    : shared_(std::make_shared<Shared>()) {
    shared_->with = std::move(dependencies);
    shared_->config = config;
}

ScrollingCaptureService::~ScrollingCaptureService() {
    shared_->owner.request_stop();
}

void ScrollingCaptureService::setStateObserver(StateObserver observer) {
    shared_->observer = std::move(observer);
}

const StitchingMetrics& ScrollingCaptureService::lastStitchingMetrics() const {
    return shared_->lastMetrics;
}

const std::vector<StitchingWarning>& ScrollingCaptureService::lastStitchingWarnings() const {
    return shared_->lastWarnings;
}

Task<CapturedImage> ScrollingCaptureService::startScrollingCapture(ScrollingCaptureRequest request,
                                                                   std::stop_token stop) {
    return Shared::capture(shared_, std::move(request), std::move(stop));
}

Task<CapturedImage> ScrollingCaptureService::Shared::capture(std::shared_ptr<Shared> self,
                                                             ScrollingCaptureRequest request,
                                                             std::stop_token stop) {
    if (self->isActive) {
        throw ScrollingCaptureError::systemError(
            Kestrio::tr("A scrolling capture is already active"));
    }
    if (!self->with.permission->preflight())
        throw ScrollingCaptureError::permissionDenied(self->with.permission->obstacle());
    self->isActive = true;
    const auto ending = qScopeGuard([self] { self->isActive = false; });
    std::stop_source either;
    const std::stop_callback caller(stop, [either]() mutable { either.request_stop(); });
    const std::stop_callback end(self->owner.get_token(),
                                 [either]() mutable { either.request_stop(); });
    const auto session = std::make_shared<CaptureSession>(self->config);
    QObject::connect(session.get(), &CaptureSession::stateChanged, session.get(),
                     [observer = self->observer, raw = session.get()] {
                         if (observer) observer(raw->state());
                     });
    try {
        session->set_state({Phase::selectingRegion});
        auto capturing = captureSession(self, session, std::move(request), either.get_token());
        CapturedImage captured = co_await capturing;
        session->set_state({Phase::completed});
        co_return captured;
    } catch (const std::exception& failure) {
        const ScrollingCaptureError error = ScrollingCaptureError::from(failure);
        session->set_state({Phase::failed, error});
        throw error;
    }
}

Task<CapturedImage> ScrollingCaptureService::Shared::captureSession(
    std::shared_ptr<Shared> self, std::shared_ptr<CaptureSession> session,
    ScrollingCaptureRequest request, std::stop_token stop) {
    const bool isAttended = !request.region;
    QRectF region = request.region.value_or(QRectF());
    if (isAttended) {
        auto choosing = self->chooseRegion(stop);
        region = co_await choosing;
    }
    region = self->onDesktop(region);
    if (region.width() < smallestSide || region.height() < smallestSide)
        throw ScrollingCaptureError(Case::regionTooSmall);
    if (isAttended) {
        const auto leaving = sleepFor(overlayLeaves, stop);
        co_await leaving;
    }
    session->set_captureRegion(region);
    const auto mode = request.mode.value_or(self->with.settings->load().scrollingCaptureMode);
    const auto worker = std::make_shared<ScrollingStitchWorker>(engineConfig(self->config));
    const auto run =
        std::make_shared<ScrollingRun>(session, worker, self->with.makePresenter(), stop);
    launch(self->limitTime(run), run.get());
    run->presenter().begin({region, mode == ScrollingCaptureMode::manual});
    const auto leaving = qScopeGuard([run] { run->presenter().end(); });
    auto taking = takeFrames(self, run, mode, isAttended);
    const ScrollingEnding ending = co_await taking;
    switch (ending.kind) {
        case Kind::finished:
            break;
        case Kind::cancelled:
            throw ScrollingCaptureError(Case::cancelled);
        case Kind::failed: {
            const ScrollingCaptureError error =
                ending.error.value_or(ScrollingCaptureError(Case::stitchingFailed));
            if (!isAttended || session->nextSequenceNumber() < 1 || !self->with.asksToKeep)
                throw error;
            auto asking = isKept(self, run, error, stop);
            const bool keeps = co_await asking;
            if (!keeps) throw error.reported();
        }
    }
    auto finishing = finish(self, run);
    co_return co_await finishing;
}

Task<QRectF> ScrollingCaptureService::Shared::chooseRegion(std::stop_token stop) {
    const AppSettings settings = with.settings->load();
    RegionSelectionOptions options;
    // What becomes of the picture is decided when there is one.
    options.confirms = false;
    options.snaps = settings.snapToWindowInRegionCapture;
    options.magnifies = settings.showMagnifierInRegionCapture;
    const std::function<Task<RegionCaptureResult>(std::function<void()>, std::stop_token)> select =
        [selector = with.regionSelector, options](std::function<void()> onInput,
                                                  std::stop_token inner) {
            RegionSelectionOptions asked = options;
            asked.onInput = std::move(onInput);
            return selector->select(std::move(asked), std::move(inner));
        };
    auto selecting = withIdleLimit<RegionCaptureResult>(with.idleLimit, stop, select);
    const RegionCaptureResult result = co_await selecting;
    co_return result.rect;
}

// What lies beside the screen would be missing from each frame, so that frames and region would no
// longer fit each other, and a middle out there takes no wheel.
QRectF ScrollingCaptureService::Shared::onDesktop(const QRectF& region) const {
    QRectF desktop;
    for (const Display& display : with.displays->displays())
        desktop |= display.bounds;
    if (!region.intersects(desktop)) {
        throw ScrollingCaptureError::systemError(
            Kestrio::tr("The region does not lie on the screen."));
    }
    return region & desktop;
}

Task<> ScrollingCaptureService::Shared::limitTime(std::shared_ptr<ScrollingRun> run) {
    const auto sleeping = sleepFor(with.captureTimeout, run->stopToken());
    co_await sleeping;
    run->fail(ScrollingCaptureError(Case::captureTimeout));
}

Task<ScrollingEnding> ScrollingCaptureService::Shared::takeFrames(std::shared_ptr<Shared> self,
                                                                  std::shared_ptr<ScrollingRun> run,
                                                                  ScrollingCaptureMode mode,
                                                                  bool isAttended) {
    auto taking = mode == ScrollingCaptureMode::manual ? scrollByHand(self, run)
                                                       : scrollByItself(self, run, isAttended);
    co_return co_await taking;
}

Task<ScrollingEnding> ScrollingCaptureService::Shared::scrollByHand(
    std::shared_ptr<Shared> self, std::shared_ptr<ScrollingRun> run) {
    const auto manual =
        std::make_shared<ManualScrolling>(run, self->with.makeSource(), self->with.snapshots);
    launch(ManualScrolling::capture(manual), manual.get());
    ScrollingEnding ending = co_await run->ended();
    auto stopping = ManualScrolling::stop(manual, ending.kind);
    co_await stopping;
    co_return ending;
}

bool ScrollingCaptureService::Shared::mayScroll() const {
    return with.wheel && (with.wheel->isPermitted() || with.wheel->requestPermission());
}

Task<> ScrollingCaptureService::Shared::waitForStart(std::shared_ptr<ScrollingRun> run) {
    Completion<> started;
    QObject::connect(&run->presenter(), &ScrollingPresenter::startRequested, run.get(),
                     [started] { started.succeed(); });
    const std::stop_callback end(run->stopToken(), [started] { started.succeed(); });
    co_await started;
}

Task<ScrollingEnding> ScrollingCaptureService::Shared::scrollByItself(
    std::shared_ptr<Shared> self, std::shared_ptr<ScrollingRun> run, bool isAttended) {
    AutomaticScrolling automatic(
        run, std::make_unique<AutoScroller>(self->config.autoScroll, self->with.wheel,
                                            self->with.snapshots));
    auto seeding = automatic.seed();
    co_await seeding;
    if (isAttended && !run->hasEnded()) {
        auto waiting = waitForStart(run);
        co_await waiting;
    }
    if (!run->hasEnded()) {
        if (self->mayScroll()) {
            run->presenter().showStarted();
            auto scrolling = automatic.scrollToEnd();
            co_await scrolling;
        } else {
            run->fail(ScrollingCaptureError(Case::accessibilityPermissionDenied));
        }
    }
    co_return co_await run->ended();
}

Task<bool> ScrollingCaptureService::Shared::isKept(std::shared_ptr<Shared> self,
                                                   std::shared_ptr<ScrollingRun> run,
                                                   ScrollingCaptureError error,
                                                   std::stop_token stop) {
    run->presenter().end();
    auto asking = self->with.asksToKeep(std::move(error), std::move(stop));
    co_return co_await asking;
}

Task<CapturedImage> ScrollingCaptureService::Shared::finish(std::shared_ptr<Shared> self,
                                                            std::shared_ptr<ScrollingRun> run) {
    run->session().set_state({Phase::stitching});
    run->presenter().showStitching();
    const auto finishing = run->worker().finish();
    const ScrollingStitchSnapshot snapshot = co_await finishing;
    self->lastMetrics = metricsOf(snapshot);
    self->lastWarnings = run->warnings();
    CapturedImage captured;
    captured.image = Image(requirePicture(snapshot), run->displayScaleForOutput());
    captured.captureRect = run->region();
    captured.captureDate = QDateTime::currentDateTime();
    co_return captured;
}

}  // namespace kestrio
