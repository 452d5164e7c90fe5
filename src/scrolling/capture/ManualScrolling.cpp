#include "scrolling/capture/ManualScrolling.h"

#include "core/Localisation.h"

namespace kestrio {

namespace {

constexpr int toleratedFailures = 5;
constexpr std::chrono::milliseconds firstFramePoll(50);
constexpr int firstFramePolls = 60;

}  // namespace

ManualScrolling::ManualScrolling(std::shared_ptr<ScrollingRun> run,
                                 std::shared_ptr<ScrollingFrameSourceProtocol> source,
                                 std::shared_ptr<ScreenSnapshotProviderProtocol> snapshots)
    : run_(std::move(run)), source_(std::move(source)), snapshots_(std::move(snapshots)) {}

ManualScrolling::~ManualScrolling() {
    source_->setFrameHandler({});
    source_->setErrorHandler({});
}

Task<> ManualScrolling::capture(std::shared_ptr<ManualScrolling> self) {
    const auto run = self->run_;
    const QPointer<ManualScrolling> guarded(self.get());
    run->worker().start([guarded](const auto& frame, const auto& outcome) {
        if (guarded) guarded->judge(frame, outcome);
    });
    self->source_->setFrameHandler([worker = &run->worker()](ScrollingSourceFrame frame) {
        worker->submit(std::move(frame));
    });
    self->source_->setErrorHandler([run](const QString& reason) {
        run->fail(ScrollingCaptureError::systemError(
            Kestrio::tr("Screen capture stream stopped: %1").arg(reason)));
    });
    try {
        auto starting = self->source_->start(run->region());
        co_await starting;
        auto waiting = self->waitForFirstFrame();
        const bool hasFrame = co_await waiting;
        if (!hasFrame && !run->hasEnded()) {
            run->fail(ScrollingCaptureError::systemError(
                Kestrio::tr("Screen capture stream produced no initial frame")));
        }
    } catch (const std::exception& error) {
        run->fail(ScrollingCaptureError::from(error));
    }
}

Task<bool> ManualScrolling::waitForFirstFrame() {
    const auto run = run_;
    for (int poll = 0; poll < firstFramePolls; ++poll) {
        if (run->session().nextSequenceNumber() > 0 || run->hasEnded()) co_return true;
        const auto pause = sleepFor(firstFramePoll);
        co_await pause;
    }
    co_return run->session().nextSequenceNumber() > 0;
}

void ManualScrolling::judge(const ScrollingSourceFrame& frame,
                            const ScrollingStitchOutcome& outcome) {
    if (run_->hasEnded()) return;
    if (outcome.appended) return run_->accept(frame.image, outcome);
    if (outcome.disposition == ScrollingStitchDisposition::outputLimitReached)
        return run_->fail(ScrollingCaptureError(ScrollingCaptureError::Case::memoryError));
    if (outcome.consecutiveFailureCount >= toleratedFailures)
        return run_->fail(ScrollingCaptureError(ScrollingCaptureError::Case::lowConfidence));
    // The user may still be scrolling.
    run_->showOutcome(outcome);
}

Task<> ManualScrolling::stop(std::shared_ptr<ManualScrolling> self, ScrollingEnding::Kind ending) {
    const auto source = self->source_;
    source->setErrorHandler({});
    auto stopping = source->stop();
    co_await stopping;
    source->setFrameHandler({});
    if (ending != ScrollingEnding::Kind::finished) co_return;
    try {
        const auto run = self->run_;
        auto taking = self->snapshots_->capture(run->region(), {});
        const Image last = co_await taking;
        const auto processing = run->worker().process({last.bitmap(), {}});
        co_await processing;
    } catch (const std::exception&) {
        // What was captured so far is complete in itself.
    }
}

}  // namespace kestrio
