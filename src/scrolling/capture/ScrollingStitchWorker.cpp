#include "scrolling/capture/ScrollingStitchWorker.h"

#include "core/Stopwatch.h"

namespace kestrio {

namespace {

constexpr double millisecondsPerSecond = 1000;

}  // namespace

ScrollingStitchWorker::ScrollingStitchWorker(ScrollingStitchEngine::Config config)
    : engine_(config), queue_(QStringLiteral("com.kestrio.scrolling.stitch-worker")) {}

ScrollingStitchWorker::~ScrollingStitchWorker() {
    reset();
}

void ScrollingStitchWorker::start(OutcomeHandler handler) {
    restart(std::move(handler));
}

void ScrollingStitchWorker::restart(OutcomeHandler handler) {
    const std::lock_guard lock(stateLock_);
    ++generation_;
    pendingFrame_.reset();
    pendingDeliveries_.clear();
    outcomeDeliveryGeneration_.reset();
    drainScheduled_ = hasAcceptedSeed_ = false;
    droppedFrames_ = 0;
    processingTime_ = 0;
    acceptingFrames_ = handler != nullptr;
    outcomeHandler_ = std::move(handler);
    // What is queued afterwards finds it empty.
    queue_.async([this] { engine_.reset(); });
}

int ScrollingStitchWorker::currentGeneration() const {
    const std::lock_guard lock(stateLock_);
    return generation_;
}

void ScrollingStitchWorker::submit(ScrollingSourceFrame frame) {
    const std::lock_guard lock(stateLock_);
    if (!acceptingFrames_) return;
    if (pendingFrame_) {
        ++droppedFrames_;
        const int waiting = pendingFrame_->metadata.sequenceNumber;
        const int arriving = frame.metadata.sequenceNumber;
        // The first frame is the top of the page; afterwards the newest tells most.
        const bool replaces = hasAcceptedSeed_ ? arriving >= waiting : arriving < waiting;
        if (replaces) pendingFrame_ = std::move(frame);
    } else {
        pendingFrame_ = std::move(frame);
    }
    if (std::exchange(drainScheduled_, true)) return;
    queue_.async([this, generation = generation_] { drain(generation); });
}

std::optional<ScrollingSourceFrame> ScrollingStitchWorker::takePending(int generation) {
    const std::lock_guard lock(stateLock_);
    if (generation_ != generation) return std::nullopt;
    std::optional<ScrollingSourceFrame> frame = std::exchange(pendingFrame_, std::nullopt);
    if (!frame) drainScheduled_ = false;
    return frame;
}

void ScrollingStitchWorker::drain(int generation) {
    while (auto frame = takePending(generation)) {
        const ScrollingStitchOutcome outcome = ingest(*frame, generation);
        deliver(std::move(*frame), outcome, generation);
    }
}

ScrollingStitchOutcome ScrollingStitchWorker::ingest(const ScrollingSourceFrame& frame,
                                                     int generation) {
    Stopwatch stopwatch;
    const ScrollingStitchOutcome outcome = engine_.ingest(frame.image);
    const std::lock_guard lock(stateLock_);
    if (generation_ != generation) return outcome;
    processingTime_ += stopwatch.lap() / millisecondsPerSecond;
    if (outcome.acceptedFrameCount >= 1) hasAcceptedSeed_ = true;
    return outcome;
}

void ScrollingStitchWorker::deliver(ScrollingSourceFrame frame,
                                    const ScrollingStitchOutcome& outcome, int generation) {
    const std::lock_guard lock(stateLock_);
    if (generation_ != generation || !outcomeHandler_) return;
    auto& waiting = pendingDeliveries_;
    if (outcome.appended) waiting.clear();
    // Of those that added nothing, the newest is enough.
    if (!waiting.empty() && !waiting.back().outcome.appended) waiting.pop_back();
    waiting.push_back({std::move(frame), outcome, generation});
    if (outcomeDeliveryGeneration_ == generation) return;
    outcomeDeliveryGeneration_ = generation;
    QMetaObject::invokeMethod(
        &home_, [this, generation] { deliverPending(generation); }, Qt::QueuedConnection);
}

void ScrollingStitchWorker::deliverPending(int generation) {
    for (;;) {
        std::unique_lock lock(stateLock_);
        if (pendingDeliveries_.empty() || generation_ != generation) {
            if (outcomeDeliveryGeneration_ == generation) outcomeDeliveryGeneration_.reset();
            return;
        }
        const PendingOutcomeDelivery delivery = std::move(pendingDeliveries_.front());
        pendingDeliveries_.pop_front();
        // A copy: the handler may start the worker again.
        const OutcomeHandler handler = outcomeHandler_;
        lock.unlock();
        handler(delivery.frame, delivery.outcome);
    }
}

Completion<std::optional<ScrollingStitchOutcome>> ScrollingStitchWorker::process(
    ScrollingSourceFrame frame) {
    return runOn(queue_, [this, frame = std::move(frame), generation = currentGeneration()] {
        std::optional<ScrollingStitchOutcome> outcome;
        if (generation == currentGeneration()) outcome = ingest(frame, generation);
        return outcome;
    });
}

Completion<ScrollingStitchSnapshot> ScrollingStitchWorker::finish() {
    return runOn(queue_, [this, generation = currentGeneration()] { return composed(generation); });
}

ScrollingStitchSnapshot ScrollingStitchWorker::composed(int generation) {
    ScrollingStitchSnapshot snapshot;
    if (generation != currentGeneration()) return snapshot;
    drain(generation);
    engine_.settle();
    Stopwatch stopwatch;
    snapshot.image = engine_.compose();
    snapshot.renderingTime = stopwatch.lap() / millisecondsPerSecond;
    snapshot.acceptedFrameCount = engine_.acceptedFrameCount();
    snapshot.totalHeightPixels = engine_.totalHeight();
    snapshot.retainedStorageBytes = engine_.retainedStorageBytes();
    snapshot.needsTemporaryFile = engine_.needsTemporaryFile();
    snapshot.matchFailureCount = engine_.matchFailureCount();
    const std::lock_guard lock(stateLock_);
    snapshot.droppedFrameCount = droppedFrames_;
    snapshot.processingTime = processingTime_;
    return snapshot;
}

}  // namespace kestrio
