#include "scrolling/capture/AutomaticScrolling.h"

#include <algorithm>
#include <cmath>

#include "core/Localisation.h"

namespace kestrio {

namespace {

using Disposition = ScrollingStitchDisposition;
using Case = ScrollingCaptureError::Case;

// The scroll bar at the right edge would be in every strip.
constexpr double scrollBarWidth = 16;
constexpr double narrowestFrame = 50;
constexpr int chunksOfScroll = 4;
constexpr int retries = 2;
constexpr std::chrono::milliseconds retryPause(80);
constexpr std::chrono::milliseconds longestPause(60000);

// Parts of the region's height.
constexpr double wantedStep = 0.52, leastStep = 0.18, largestStep = 0.72;
constexpr double leastGain = 0.7, largestGain = 1.35;

bool isMismatch(const std::optional<ScrollingStitchOutcome>& outcome) {
    return outcome && (outcome->disposition == Disposition::matchFailed ||
                       outcome->disposition == Disposition::discontinuity);
}

}  // namespace

AutomaticScrolling::AutomaticScrolling(std::shared_ptr<ScrollingRun> run,
                                       std::unique_ptr<AutoScroller> scroller)
    : run_(std::move(run)), scroller_(std::move(scroller)) {
    distance_ = std::max(
        static_cast<int>(std::trunc(run_->region().height()) * scroller_->config().scrollStepRatio),
        1);
}

QRectF AutomaticScrolling::frameRectangle() const {
    QRectF rectangle = run_->region();
    rectangle.setWidth(std::max(rectangle.width() - scrollBarWidth, narrowestFrame));
    return rectangle;
}

Task<AutomaticScrolling::Outcome> AutomaticScrolling::process(QImage frame) {
    const auto run = run_;
    ScrollingSourceFrame source;
    source.image = std::move(frame);
    const auto processing = run->worker().process(std::move(source));
    co_return co_await processing;
}

Task<> AutomaticScrolling::seed() {
    const auto run = run_;
    // process() needs no handler, but a worker that has begun.
    run->worker().start([](const auto&, const auto&) {});
    auto taking = scroller_->picture(frameRectangle());
    const QImage frame = co_await taking;
    if (run->hasEnded()) co_return;
    if (frame.isNull()) {
        run->fail(
            ScrollingCaptureError::systemError(Kestrio::tr("Failed to capture initial frame")));
        co_return;
    }
    auto processing = process(frame);
    const Outcome outcome = co_await processing;
    if (run->hasEnded()) co_return;
    if (!outcome || !outcome->appended) {
        run->fail(ScrollingCaptureError(Case::stitchingFailed));
    } else {
        run->accept(frame, *outcome);
    }
}

bool AutomaticScrolling::goesOn(int steps) const {
    return !run_->hasEnded() && !isDone_ && steps < scroller_->config().maxScrollSteps;
}

Task<> AutomaticScrolling::scrollToEnd() {
    const auto run = run_;
    for (int steps = 0; goesOn(steps); ++steps) {
        auto stepping = step();
        co_await stepping;
        if (run->hasEnded()) co_return;
        const auto delay = std::clamp(scroller_->config().interStepDelay,
                                      std::chrono::milliseconds(0), longestPause);
        try {
            const auto pause = sleepFor(delay, run->stopToken());
            co_await pause;
        } catch (const Cancelled&) {
            co_return;
        }
    }
    if (run->session().nextSequenceNumber() > 0) run->end({ScrollingEnding::Kind::finished});
}

Task<> AutomaticScrolling::step() {
    const auto run = run_;
    auto scrolling = scroller_->scroll(run->region(), distance_, chunksOfScroll, run->stopToken());
    co_await scrolling;
    auto waiting = scroller_->waitForStabilization(frameRectangle(), run->stopToken());
    QImage frame = co_await waiting;
    if (run->hasEnded() || frame.isNull()) co_return;
    auto processing = takeWithRetries(std::move(frame));
    Taken taken = co_await processing;
    if (isMismatch(taken.outcome) && !run->hasEnded()) {
        auto again = takeFurtherBack(std::move(taken));
        taken = co_await again;
    }
    if (run->hasEnded()) co_return;
    if (!taken.outcome) {
        run->fail(ScrollingCaptureError(Case::stitchingFailed));
        co_return;
    }
    judge(taken.frame, *taken.outcome);
}

// Something may have lain over the page for a moment.
Task<AutomaticScrolling::Taken> AutomaticScrolling::takeWithRetries(QImage frame) {
    const auto run = run_;
    Taken taken{std::move(frame), std::nullopt};
    auto processing = process(taken.frame);
    taken.outcome = co_await processing;
    for (int i = 0; i < retries && isMismatch(taken.outcome) && !run->hasEnded(); ++i) {
        const auto pause = sleepFor(retryPause);
        co_await pause;
        auto taking = scroller_->picture(frameRectangle());
        const QImage again = co_await taking;
        if (!again.isNull()) taken.frame = again;
        auto retrying = process(taken.frame);
        taken.outcome = co_await retrying;
    }
    co_return taken;
}

// What the frames share may be blank, or repeat: less of a step leaves more in common.
Task<AutomaticScrolling::Taken> AutomaticScrolling::takeFurtherBack(Taken mismatch) {
    const auto run = run_;
    Taken taken = std::move(mismatch);
    while (isMismatch(taken.outcome) && !run->hasEnded() && scroller_->scrollBack(run->region())) {
        auto waiting = scroller_->waitForStabilization(frameRectangle(), run->stopToken());
        const QImage frame = co_await waiting;
        if (frame.isNull()) break;
        taken.frame = frame;
        auto processing = process(frame);
        taken.outcome = co_await processing;
    }
    co_return taken;
}

void AutomaticScrolling::judge(const QImage& frame, const ScrollingStitchOutcome& outcome) {
    switch (outcome.disposition) {
        case Disposition::seeded:
        case Disposition::appended:
            run_->accept(frame, outcome);
            adaptDistance(outcome.addedHeightPixels);
            return;
        case Disposition::duplicate:
        case Disposition::noMotion:
            isDone_ = outcome.reachedBottom;
            run_->showOutcome(outcome);
            return;
        case Disposition::matchFailed:
        case Disposition::discontinuity:
        case Disposition::horizontalMotion:
            return run_->fail(ScrollingCaptureError(Case::lowConfidence));
        case Disposition::outputLimitReached:
            return run_->fail(ScrollingCaptureError(Case::memoryError));
    }
}

// A page that moves less than it was asked to is asked for more.
void AutomaticScrolling::adaptDistance(int addedRows) {
    const double moved = addedRows / run_->displayScaleForOutput();
    if (moved <= 1) return;
    scroller_->learn(moved);
    const double height = run_->region().height();
    const double gain = std::clamp(height * wantedStep / moved, leastGain, largestGain);
    const int least = static_cast<int>(height * leastStep);
    const int most = static_cast<int>(height * largestStep);
    distance_ = std::clamp(static_cast<int>(gain * distance_), least, std::max(least, most));
}

}  // namespace kestrio
