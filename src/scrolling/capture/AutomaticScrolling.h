#pragma once

#include "scrolling/capture/AutoScroller.h"
#include "scrolling/capture/ScrollingRun.h"

namespace kestrio {

/// Scrolls the page step by step and takes a frame after each. Main thread.
class AutomaticScrolling {
  public:
    AutomaticScrolling(std::shared_ptr<ScrollingRun> run, std::unique_ptr<AutoScroller> scroller);

    /// Takes the first frame, of the page as it is.
    Task<> seed();
    /// From then on until the page ends, a limit is reached or the run ends. Failures end the run
    /// and are not thrown. Owned by the caller until it ends.
    Task<> scrollToEnd();

  private:
    using Outcome = std::optional<ScrollingStitchOutcome>;

    QRectF frameRectangle() const;
    bool goesOn(int steps) const;
    Task<> step();
    Task<Outcome> process(QImage frame);
    /// A frame and what became of it.
    struct Taken {
        QImage frame;
        Outcome outcome;
    };
    Task<Taken> takeWithRetries(QImage frame);
    Task<Taken> takeFurtherBack(Taken mismatch);
    void judge(const QImage& frame, const ScrollingStitchOutcome& outcome);
    void adaptDistance(int addedRows);

    std::shared_ptr<ScrollingRun> run_;
    std::unique_ptr<AutoScroller> scroller_;
    int distance_ = 1;  // points of the next scroll
    bool isDone_ = false;
};

}  // namespace kestrio
