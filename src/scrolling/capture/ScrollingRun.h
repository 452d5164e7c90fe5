#pragma once

#include <QPointer>
#include <memory>

#include "scrolling/capture/CaptureSession.h"
#include "scrolling/capture/ScrollingPresenter.h"
#include "scrolling/capture/ScrollingStitchWorker.h"
#include "scrolling/capture/StitchingMetrics.h"

namespace kestrio {

/// How the taking of frames ended.
struct ScrollingEnding {
    enum class Kind { finished, cancelled, failed };

    Kind kind = Kind::finished;
    std::optional<ScrollingCaptureError> error = std::nullopt;  ///< of a failed one
};

/// One capture between the choice of its region and its end, as both modes share it: frames that
/// were accepted, what the user sees of them, and the one end that it has. Main thread.
class ScrollingRun : public QObject {
    Q_OBJECT

  public:
    /// `stop` cancels it.
    ScrollingRun(std::shared_ptr<CaptureSession> session,
                 std::shared_ptr<ScrollingStitchWorker> worker,
                 std::shared_ptr<ScrollingPresenter> presenter, std::stop_token stop);

    CaptureSession& session() { return *session_; }
    ScrollingStitchWorker& worker() { return *worker_; }
    ScrollingPresenter& presenter() { return *presenter_; }
    QRectF region() const { return session_->captureRegion(); }

    /// A frame that the engine has joined. Ends the run at the limit of frames.
    void accept(const QImage& frame, const ScrollingStitchOutcome& outcome);
    /// One that it has not, or not yet.
    void showOutcome(const ScrollingStitchOutcome& outcome);

    /// Only the first of all ends counts.
    void end(ScrollingEnding ending);
    void fail(const ScrollingCaptureError& error) { end({ScrollingEnding::Kind::failed, error}); }
    bool hasEnded() const { return stop_.stop_requested(); }
    /// Requested once the run has ended.
    std::stop_token stopToken() const { return stop_.get_token(); }
    /// To be awaited once.
    const Completion<ScrollingEnding>& ended() const { return ended_; }

    /// What is doubtful about the picture so far.
    const std::vector<StitchingWarning>& warnings() const { return warnings_; }

    /// Pixels a point of the frames, at least 1.
    double displayScaleForOutput() const { return displayScaleForOutput_; }

    Q_SIGNAL void frameCaptured(int count, const QImage& frame);

  private:
    bool isFull(int frameHeight, int totalHeight) const;
    void cancel() { end({ScrollingEnding::Kind::cancelled}); }

    std::shared_ptr<CaptureSession> session_;
    std::shared_ptr<ScrollingStitchWorker> worker_;
    std::shared_ptr<ScrollingPresenter> presenter_;
    std::stop_source stop_;
    Completion<ScrollingEnding> ended_;
    std::vector<StitchingWarning> warnings_;
    double displayScaleForOutput_ = 1;
    std::stop_callback<std::function<void()>> relay_;  // last: may call at once
};

}  // namespace kestrio
