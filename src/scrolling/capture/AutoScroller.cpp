#include "scrolling/capture/AutoScroller.h"

#include <algorithm>
#include <cmath>

#include "imaging/filters/FrameSimilarity.h"

namespace kestrio {

namespace {

// Browsers move furthest. Learning from less wins a step, from more loses rows.
constexpr double assumedPointsPerClick = 120;
constexpr int mostChunks = 8;
constexpr std::chrono::milliseconds pauseAfterChunk(12);
// What an animation of the scroll needs to begin.
constexpr std::chrono::milliseconds pauseAfterScroll(80);

// False where it was stopped.
Task<bool> pause(std::chrono::milliseconds duration, std::stop_token stop) {
    try {
        const auto sleeping = sleepFor(duration, stop);
        co_await sleeping;
    } catch (const Cancelled&) {
        co_return false;
    }
    co_return true;
}

}  // namespace

AutoScroller::AutoScroller(AutoScrollConfig config, std::shared_ptr<SyntheticScroll> wheel,
                           std::shared_ptr<ScreenSnapshotProviderProtocol> snapshots)
    : config_(config),
      wheel_(std::move(wheel)),
      snapshots_(std::move(snapshots)),
      pointsPerClick_(assumedPointsPerClick) {}

AutoScroller::~AutoScroller() {
    if (pointerBefore_) wheel_->movePointer(*pointerBefore_);
}

Task<> AutoScroller::scroll(QRectF region, int distance, int chunks, std::stop_token stop) {
    const int clicks =
        std::max(static_cast<int>(std::max(distance, 1) / std::max(pointsPerClick_, 1.0)), 1);
    const int pieces = std::min({std::max(chunks, 1), mostChunks, clicks});
    if (!pointerBefore_) pointerBefore_ = wheel_->pointer();
    lastClicks_ = 0;
    for (int i = 0; i < pieces && !stop.stop_requested(); ++i) {
        const int piece = clicks / pieces + (i < clicks % pieces ? 1 : 0);
        if (!region.isEmpty()) {
            wheel_->scroll(region.center(), piece);
            lastClicks_ += piece;
        }
        auto waiting = pause(pauseAfterChunk, stop);
        co_await waiting;
    }
}

bool AutoScroller::scrollBack(QRectF region) {
    const int clicks = lastClicks_ / 2;
    if (clicks < 1) return false;
    wheel_->scroll(region.center(), -clicks);
    lastClicks_ -= clicks;
    return true;
}

void AutoScroller::learn(double moved) {
    if (lastClicks_ > 0 && moved >= 1) pointsPerClick_ = moved / lastClicks_;
}

Task<QImage> AutoScroller::picture(QRectF rectangle) {
    if (rectangle.isEmpty()) co_return QImage();
    QImage taken;
    try {
        auto capturing = snapshots_->capture(rectangle, {});
        const Image image = co_await capturing;
        taken = image.bitmap();
    } catch (const std::exception&) {
        // A display that is being reconfigured: the next picture may succeed.
    }
    co_return taken;
}

Task<QImage> AutoScroller::waitForStabilization(QRectF rectangle, std::stop_token stop) {
    auto beginning = pause(pauseAfterScroll, stop);
    const bool goesOn = co_await beginning;
    auto taking = picture(rectangle);
    QImage previous = co_await taking;
    if (!goesOn) co_return previous;
    const QDeadlineTimer deadline(config_.stabilizationTimeout);
    while (!deadline.hasExpired()) {
        auto waiting = pause(config_.stabilizationCheckInterval, stop);
        const bool isWanted = co_await waiting;
        if (!isWanted) co_return previous;
        auto again = picture(rectangle);
        QImage now = co_await again;
        const bool stands =
            !previous.isNull() && frameSimilarity(previous, now) >= config_.identicalFrameThreshold;
        if (stands) co_return now;
        if (!now.isNull()) previous = std::move(now);
    }
    if (!previous.isNull()) co_return previous;
    auto last = picture(rectangle);
    co_return co_await last;
}

}  // namespace kestrio
