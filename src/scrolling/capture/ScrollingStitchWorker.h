#pragma once

#include <QObject>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>

#include "core/Task.h"
#include "scrolling/capture/ScrollingFrame.h"
#include "scrolling/stitch/ScrollingStitchEngine.h"

namespace kestrio {

/// What a capture has come to. Times in seconds.
struct ScrollingStitchSnapshot {
    QImage image;  ///< null where there is no frame, or no room for the picture
    int acceptedFrameCount = 0;
    int totalHeightPixels = 0;
    qint64 retainedStorageBytes = 0;
    int droppedFrameCount = 0;
    double processingTime = 0;
    double renderingTime = 0;
    int matchFailureCount = 0;
    bool needsTemporaryFile = false;  ///< the pixels of the picture lie in a file, or should
};

/// Gives the engine a thread of its own. At most one frame waits for it, the newest (the first,
/// until there is one), and outcomes reach the main thread in order, of which those that are out
/// of date are left out. Made on the main thread; submit() may be called from any.
class ScrollingStitchWorker {
  public:
    using OutcomeHandler =
        std::function<void(const ScrollingSourceFrame&, const ScrollingStitchOutcome&)>;

    explicit ScrollingStitchWorker(ScrollingStitchEngine::Config config);
    ~ScrollingStitchWorker();

    /// Starts over; `handler` is called on the main thread for frames that are submitted.
    void start(OutcomeHandler handler);
    /// Forgets everything; what still goes on of it comes to nothing.
    void reset() { restart({}); }

    /// Never waits. Nothing happens before start() and after reset().
    void submit(ScrollingSourceFrame frame);
    /// The outcome of a frame that must not be left out; nothing after a reset meanwhile.
    Completion<std::optional<ScrollingStitchOutcome>> process(ScrollingSourceFrame frame);
    /// Takes the frame that waits, and puts the picture together.
    Completion<ScrollingStitchSnapshot> finish();

  private:
    struct PendingOutcomeDelivery {
        ScrollingSourceFrame frame;
        ScrollingStitchOutcome outcome;
        int generation = 0;
    };

    void restart(OutcomeHandler handler);
    int currentGeneration() const;
    void drain(int generation);
    std::optional<ScrollingSourceFrame> takePending(int generation);
    ScrollingStitchOutcome ingest(const ScrollingSourceFrame& frame, int generation);
    void deliver(ScrollingSourceFrame frame, const ScrollingStitchOutcome& outcome, int generation);
    void deliverPending(int generation);
    ScrollingStitchSnapshot composed(int generation);

    mutable std::mutex stateLock_;
    std::optional<ScrollingSourceFrame> pendingFrame_;
    bool drainScheduled_ = false;
    bool acceptingFrames_ = false;
    bool hasAcceptedSeed_ = false;
    int generation_ = 0;
    OutcomeHandler outcomeHandler_;
    std::deque<PendingOutcomeDelivery> pendingDeliveries_;
    std::optional<int> outcomeDeliveryGeneration_;
    int droppedFrames_ = 0;
    double processingTime_ = 0;

    ScrollingStitchEngine engine_;  // on the queue alone
    QObject home_;                  // whose thread is told of outcomes
    SerialQueue queue_;             // last, so that it ends first
};

}  // namespace kestrio
