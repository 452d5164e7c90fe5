#include "scrolling/capture/ScrollingRun.h"

#include <algorithm>

#include "scrolling/capture/StitchHint.h"

namespace kestrio {

namespace {

// Pixels; the panel shows it smaller on dense displays.
constexpr QSize thumbnailSize(320, 240);

// Of its height that a frame must add, on average, for the limit of frames to hold.
constexpr double leastFrameShare = 0.4;

// Frames of which less is certain were joined by their looks alone, or beside much that moves.
constexpr double certainConfidence = 0.8;

// Smooth at the price of its size and not of the frame's.
QImage thumbnailOf(const QImage& frame) {
    return frame.scaled(thumbnailSize * 2, Qt::KeepAspectRatio, Qt::FastTransformation)
        .scaled(thumbnailSize, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

}  // namespace

ScrollingRun::ScrollingRun(std::shared_ptr<CaptureSession> session,
                           std::shared_ptr<ScrollingStitchWorker> worker,
                           std::shared_ptr<ScrollingPresenter> presenter, std::stop_token stop)
    : session_(std::move(session)),
      worker_(std::move(worker)),
      presenter_(std::move(presenter)),
      relay_(std::move(stop), [this] { cancel(); }) {
    connect(presenter_.get(), &ScrollingPresenter::completeRequested, this,
            [this] { end({ScrollingEnding::Kind::finished}); });
    connect(presenter_.get(), &ScrollingPresenter::cancelRequested, this, &ScrollingRun::cancel);
}

void ScrollingRun::accept(const QImage& frame, const ScrollingStitchOutcome& outcome) {
    displayScaleForOutput_ = std::max(frame.width() / std::max(region().width(), 1.0), 1.0);
    if (outcome.confidence < certainConfidence)
        warnings_.emplace_back(
            LowConfidenceMatch{session_->nextSequenceNumber(), outcome.confidence});
    session_->addFrame(frame);
    if (session_->state().phase == CaptureSessionState::Phase::selectingRegion)
        session_->set_state({CaptureSessionState::Phase::capturing});
    presenter_->flash();
    presenter_->showProgress({thumbnailOf(frame),
                              session_->nextSequenceNumber(),
                              outcome.totalHeightPixels,
                              outcome.reachedBottom,
                              {}});
    Q_EMIT frameCaptured(session_->nextSequenceNumber(), frame);
    if (isFull(frame.height(), outcome.totalHeightPixels)) end({ScrollingEnding::Kind::finished});
}

// While somebody scrolls smoothly, a frame adds a few rows only, and a hundred of them are a few
// seconds: those count as fewer.
bool ScrollingRun::isFull(int frameHeight, int totalHeight) const {
    const int limit = session_->config().maxFrameCount;
    return session_->nextSequenceNumber() >= limit &&
           totalHeight >= limit * leastFrameShare * frameHeight;
}

void ScrollingRun::showOutcome(const ScrollingStitchOutcome& outcome) {
    presenter_->showProgress({{},
                              session_->nextSequenceNumber(),
                              outcome.totalHeightPixels,
                              outcome.reachedBottom,
                              hintFor(outcome)});
}

void ScrollingRun::end(ScrollingEnding ending) {
    if (stop_.stop_requested()) return;
    stop_.request_stop();
    ended_.succeed(std::move(ending));
}

}  // namespace kestrio
